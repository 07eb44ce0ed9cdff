#pragma once

#include <cstdint>
#include <sys/resource.h>

namespace vastrel {

constexpr std::uint64_t HundredMegabytes = std::uint64_t{100} * 1024 * 1024;

/// What a peak is held against: the address sanitizer pads every block, and keeps a quarter of a gigabyte and
/// more of freed memory in its quarantine.
inline std::uint64_t WithinLimit(std::uint64_t bytes) {
#ifdef __SANITIZE_ADDRESS__
    return bytes * 8 + 5 * HundredMegabytes;
#else
    return bytes;
#endif
}

/// The most memory that this process has held so far, in bytes.
inline std::uint64_t PeakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;
}

} // namespace vastrel
