#include "core/numeric/Memory.h"

#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"

#include <fstream>
#include <limits>

namespace vastrel {

std::uint64_t AvailableMemory() {
    std::ifstream info("/proc/meminfo");
    for (std::string line; std::getline(info, line);) {
        constexpr std::string_view key = "MemAvailable:";
        if (line.compare(0, key.size(), key) == 0) return std::stoull(line.substr(key.size())) * 1024;
    }
    return std::numeric_limits<std::uint64_t>::max();
}

void RequireMemory(double bytes, const std::string& source) {
    if (bytes <= static_cast<double>(AvailableMemory())) return;
    RaiseCustomary(OutOfMemory, source,
                   "The run needs " + Num(bytes / 1024 / 1024, "0") + " MB, and the machine has " +
                       Num(static_cast<double>(AvailableMemory()) / 1024 / 1024, "0") + " MB left.");
}

} // namespace vastrel
