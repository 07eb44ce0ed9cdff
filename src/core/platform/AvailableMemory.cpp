#include "core/platform/AvailableMemory.h"

#include <fstream>
#include <limits>
#include <string>
#include <utility>

namespace vastrel {

namespace {
std::function<std::uint64_t()> forced;
}

void ForceAvailableMemory(std::function<std::uint64_t()> tell) {
    forced = std::move(tell);
}

std::uint64_t AvailableMemory() {
    if (forced) return forced();
    std::ifstream info("/proc/meminfo");
    for (std::string line; std::getline(info, line);) {
        constexpr std::string_view key = "MemAvailable:";
        if (line.compare(0, key.size(), key) == 0) return std::stoull(line.substr(key.size())) * 1024;
    }
    return std::numeric_limits<std::uint64_t>::max();
}

} // namespace vastrel
