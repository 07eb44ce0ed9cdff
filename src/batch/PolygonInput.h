#pragma once

#include <string>

namespace vastrel {

/// Opens a polygon shapefile with its attribute table into the store, in the order in which the desktop
/// program does after its file dialog. False where the base name is refused; the message has been shown.
/// A table that cannot be opened is told, and the run goes on without.
/// Run-time errors: 53 no such file, 75 a directory, and those of the opening steps.
bool OpenPolygonInput(const std::string& path);

} // namespace vastrel
