#pragma once

#include "core/display/PolygonView.h"

namespace vastrel {

// The arithmetic behind PolygonView.h; faults show in the floating-point flags.

/// The rectangle of a map, and how it is to be shown.
struct MapExtent {
    double XMin = 0, YMax = 0;
    double Width = 0, Height = 0;
    double Zoom = 1;
};

/// Whether the offset that centres the map takes in the settled pan.
enum class SettledPan { Included, LeftOut };

/// Fits the extent to the surface. The factor is the ratio of the surface's outer height to its outer width,
/// so that a wide map becomes about as wide as the surface is high; it may leave much of the surface empty,
/// or run over its edges. Run-time error 11 for an extent of no width or no height.
void FitPolygonView(PolygonMapView& view, const SurfaceSize& surface, const MapExtent& extent,
                    SettledPan settledPan);

/// The plot position of a map position, rounded nowhere.
UnroundedPosition UnroundedPositionOf(const PolygonMapView& view, double x, double y);

/// The plot position in whole pixels. Its y is rounded twice, before and after the flip: vertices that two
/// Regions share fall on the same pixel because the same arithmetic runs on both. Run-time error 6 outside
/// the 32-bit range.
PlotPoint RoundedPosition(const PolygonMapView& view, double x, double y);

/// Whether an inverse takes in the offset of the last drag.
enum class LastDrag { Included, LeftOut };

/// The map position at a place of the plot; run-time error 11 where the scale is 0.
MousePosition MapPositionOf(const PolygonMapView& view, double plotX, double plotY, LastDrag lastDrag);

} // namespace vastrel
