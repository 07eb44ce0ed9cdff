#pragma once

#include <filesystem>
#include <string>

namespace vastrel {

/// The path of a UTF-8 text, as the file functions of the language take it, and back.
std::filesystem::path NativePath(const std::string& path);
std::string PathText(const std::filesystem::path& path);

/// The file name without its folder.
std::string FileName(const std::string& path);

/// The path under which a file stands on the disk when its name is compared without regard to the case of the
/// letters A to Z: the path itself where it exists, otherwise the first such name of the folder in the order
/// of its bytes. An empty text where there is none.
std::string FindFile(const std::string& path);

} // namespace vastrel
