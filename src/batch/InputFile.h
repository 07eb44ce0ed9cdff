#pragma once

#include <cstdint>
#include <string>

namespace vastrel {

/// A file that a run has read, under the name by which the command line names it.
struct InputFile {
    std::string Path;
    std::uint64_t Bytes = 0;
    std::string SHA256;
    bool operator==(const InputFile&) const = default;
};

} // namespace vastrel
