#pragma once

#include <string_view>

namespace vastrel {

/// Whether two UTF-8 texts are the same without regard to the case of their letters, those of every script
/// and in any locale. Letter stands against letter: "ß" is not "SS". A byte that is part of no character
/// counts as the Latin letter of that code.
bool EqualWithoutCase(std::string_view a, std::string_view b);

} // namespace vastrel
