#pragma once

#include "core/display/PlotSurface.h"

namespace vastrel {

// The pictures of the open shapefile on picSHP. Each reads the .shp at ShapeFilePath again from the disk; its
// errors are those of ComputeView and WalkRings. Every ring is filled by itself, so that a hole is painted
// over, not cut out. Without a shapefile nothing is drawn.

/// Erases and draws the outlines.
void DrawPlainMap(PlotSurface& picSHP);

/// The same without the settled pan.
void DrawPlainMapNoPan(PlotSurface& picSHP);

/// Erases and fills each Region in the class colour of its value, element 1 the first record, by the legend
/// in force. Run-time error 9 where there are fewer values than records.
void DrawStatisticMap(PlotSurface& picSHP, const Array1<double>& values);

/// Erases and fills each Region in the colour of its cusum in a period; white before any run. Run-time error
/// 9 where the table has no such Region or period.
void DrawCusumMap(PlotSurface& picSHP, std::ptrdiff_t period);

/// Paints one Region, counted from 0, yellow and all others white on top of what stands there. While the map
/// shows a statistic, that is painted first, from DisplayDrawValues and without its legend; not before a
/// legend was built for it.
void DrawHighlight(PlotSurface& picSHP, std::ptrdiff_t region);

/// Draws a red point at each RegionCentroid on top of what stands there, in whole pixels nowhere. The line
/// width stays 3 until the next drawing.
void DrawCentroidPoints(PlotSurface& picSHP);

} // namespace vastrel
