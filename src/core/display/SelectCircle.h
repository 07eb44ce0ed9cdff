#pragma once

#include "core/display/PlotSurface.h"
#include "core/display/PointView.h"
#include "core/workspace/Sorting.h"

namespace vastrel {

/// The circle that a drag selects points with: centre and radius in plot pixels.
struct SelectCircle {
    double CentreX = 0, CentreY = 0;
    double Radius = 0;
};

/// The circle round a centre through a position of the mouse.
SelectCircle CircleThrough(double centreX, double centreY, double plotX, double plotY);

/// The radius in whole map units along the x axis, halves away from zero. Run-time error 11 for a scale of 0:
/// at a zoom of 0, or before any drawing.
double SelectRadius(const PointView& view, const SelectCircle& circle);

/// Pairs (Region, flag) for the points 1..n: 1 within the circle or on it, otherwise 0. It goes by unrounded
/// plot positions. Run-time error 9 for fewer points.
Array1<KeyedValue> PointSelection(const PointView& view, const SelectCircle& circle, const Array1<double>& x,
                                  const Array1<double>& y, std::ptrdiff_t n);

/// Draws the circle in green, one pixel wide, on top of what stands there.
void DrawSelectCircle(PlotSurface& surface, const SelectCircle& circle);

} // namespace vastrel
