#pragma once

#include <string>

namespace vastrel {

/// The translation between native paths and drive-letter file names, at the one boundary that asks for the
/// latter. On systems without drive letters the native path "/data/nc.shp" is "C:\data\nc.shp" and back; on
/// systems with them both functions return what they are given.
std::string ToFileSpec(const std::string& nativePath);
std::string FromFileSpec(const std::string& fileSpec);

} // namespace vastrel
