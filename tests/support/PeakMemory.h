#pragma once

#include <cstdint>
#include <sys/resource.h>

namespace vastrel {

constexpr std::uint64_t HundredMegabytes = std::uint64_t{100} * 1024 * 1024;

/// What a peak is held against: freed memory stays in the address sanitizer's quarantine for a while.
inline std::uint64_t WithinLimit(std::uint64_t bytes) {
#ifdef __SANITIZE_ADDRESS__
    return bytes * 8;
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
