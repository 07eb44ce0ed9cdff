#pragma once

#include <string>
#include <string_view>

namespace vastrel {

/// The process's own folder, in memory where there is such a place, and gone at its end. Its path holds no
/// dot.
const std::string& InputFolder();

/// Writes a file into that folder and gives its path.
std::string WriteInput(const std::string& name, std::string_view bytes);

/// Takes a file out of that folder, if it is there.
void DropInput(const std::string& name);

} // namespace vastrel
