#pragma once

#include "core/workspace/Workspace.h"

namespace vastrel {

/// The study area of a point dataset, in square map units: the area under the convex hull of its plotted
/// positions, scaled back by the plot units per map unit. Reorders PlottedPoints, which stay so until the
/// next drawing.
///
/// Zero with fewer than three hull points, or where the present points were never plotted; the scales are
/// not looked at then. Run-time error 6 where a product of positions leaves the 32-bit range.
double PointStudyArea();

/// Drops the plotted positions and their scales: they belong to an earlier dataset.
void ForgetPlottedPoints();

/// Wraps points 1..n (Jarvis's march by pseudo-angles): brings the hull points to places 1..M in order and
/// returns M. Steps of the pseudo-angle are rounded to 32-bit floats.
/// R. A. Jarvis, On the identification of the convex hull of a finite set of points in the plane,
/// Information Processing Letters 2 (1973).
std::ptrdiff_t WrapHull(Array1<PlotPoint>& points);

/// The angle from one point to another, as a number that grows with it from 0 to below 360; 40 * 90 for two
/// points in one place.
float PseudoAngle(PlotPoint from, PlotPoint to);

/// Half the cross products over hull places 2..M, taken in pairs. It is meant that the two terms with place 1
/// are absent: this is no closed shoelace, and the result depends on where the plot's origin lies.
double OpenHullSum(const Array1<PlotPoint>& hull, std::ptrdiff_t count);

} // namespace vastrel
