#pragma once

#include "core/display/PlotSurface.h"

#include <string>

namespace vastrel {

/// A position on the map as the mouse tells it, in 32-bit floats.
struct MousePosition {
    float X = 0, Y = 0;
    bool operator==(const MousePosition&) const = default;
};

/// Recomputes the view of the polygon map, PolygonView of the store, from the extent of the shapefile, the
/// surface's sizes and MapZoom, and puts the surface in its drawing state: line width 1, transparent white
/// fill. Every drawing begins with it.
///
/// Run-time errors, after which the view is 0 and the pan is kept: 11 for an extent of no width or no height,
/// 5 for a surface of no outer size, 6 for an extent too large for its zoom.
void ComputeView(PlotSurface& picSHP);

/// The same with the settled pan left out.
void ComputeViewNoPan(PlotSurface& picSHP);

/// The plot position of a map position, in whole pixels. Run-time error 6 outside the 32-bit range.
PlotPoint WorldToPlot(double x, double y);

/// The map position of a click. Run-time error 11 where the scale is 0: at a zoom of 0, or before any
/// drawing.
MousePosition PlotToWorld(double plotX, double plotY);

/// The map position that the status line shows: the last drag is left out, so that after a pan the line and
/// the hit test do not agree until a double click; meant so. Errors as above.
MousePosition StatusPlotToWorld(double plotX, double plotY);

/// "(X: 1.5, Y: -2)", of StatusPlotToWorld.
std::string StatusText(double plotX, double plotY);

} // namespace vastrel
