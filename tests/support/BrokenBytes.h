#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vastrel {

/// Calls `use` with the bytes cut off at every `step`-th place, and with the byte there changed in the bits
/// of each of `flips`; `what` tells which.
inline void ForEachBroken(const std::string& sound, size_t step, const std::vector<int>& flips,
                          const std::function<void(const std::string& bytes, const std::string& what)>& use) {
    for (size_t place = 0; place < sound.size(); place += step) {
        const std::string where = " at " + std::to_string(place);
        use(sound.substr(0, place), "cut off" + where);
        for (const int flip : flips) {
            std::string changed = sound;
            changed[place] = static_cast<char>(changed[place] ^ flip);
            use(changed, "changed by " + std::to_string(flip) + where);
        }
    }
}

} // namespace vastrel
