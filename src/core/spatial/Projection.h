#pragma once

#include <string>

namespace vastrel {

/// The bytes of the .prj file that goes with a shapefile, whatever the case of its name; empty where there is
/// none. Run-time errors: those of BinaryFile::Open for a file that may not be read.
std::string ProjectionOf(const std::string& shapefilePath);

/// Whether a projection, as the text of a .prj file, is a geographic system: its coordinates are longitude
/// and latitude. The empty text is none.
bool IsGeographic(const std::string& projection);

} // namespace vastrel
