#pragma once

#include <string>
#include <vector>

namespace vastrel {

/// The files of a polygon dataset that are read when its shapefile is opened, those that exist: the
/// shapefile, its index, the attribute table and the code page beside it. The path is absolute. As in the
/// opening, names are compared without regard to case, and the table's name is the path up to its first dot.
std::vector<std::string> FilesOfShapefile(const std::string& path);

} // namespace vastrel
