#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vastrel {

/// Writes a file into the process's own folder, gone at its end, and gives the path.
std::string WriteInput(const std::string& name, std::string_view bytes);

/// Runs one input through a reader, with a fresh store and a platform that is silent. Run-time errors are how
/// a reader refuses a file; anything else that leaves it is a finding, and so is a coordinate or a count of
/// the store that is not finite.
void RunReader(const std::function<void()>& read);

/// The input as text.
inline std::string_view AsText(const std::uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace vastrel
