#pragma once

#include <string>
#include <string_view>

namespace vastrel {

/// The bytes as UTF-8 text: what is no UTF-8 is taken as Windows-1252, byte by byte.
std::string ToUtf8(std::string_view bytes);

/// The bytes of a Windows-1252 text as UTF-8.
std::string Windows1252ToUtf8(std::string_view bytes);

} // namespace vastrel
