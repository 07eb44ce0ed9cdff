#pragma once

#include "core/display/PlotSurface.h"
#include "support/ShapefileBytes.h"

#include <string>
#include <vector>

namespace vastrel {

/// A whole record of a polygon file, its header included.
std::string PolygonRecord(int number, const std::vector<Ring>& rings);

/// A polygon file of these records behind a main header of 100 bytes.
std::string PolygonFile(const std::vector<std::string>& records);

/// Three Regions in the extent from (100, 200) to (110, 205): a box, a box with a hole, and a triangle. Every
/// ring repeats its first vertex.
std::vector<std::string> ThreeRegions();

/// Opens such a file for the map: ShapeFilePath, NumRegion, the extent, and a zoom of 1, in a fresh store.
void OpenThreeRegions(const std::string& path);

/// A surface on which the extent of the three is 100 by 50 pixels large, 10 pixels a unit, its lower left
/// corner at (50, 75): half as high as wide, so that the factor is 0.5, and 200 by 100 pixels inside.
inline constexpr SurfaceSize ThreeRegionsSurface = {3000, 1500, 200, 100};

} // namespace vastrel
