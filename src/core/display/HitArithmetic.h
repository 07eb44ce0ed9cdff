#pragma once

#include "core/workspace/Workspace.h"

namespace vastrel {

// The winding test of a click: the click is an apex, and the angles under which the edges of a ring are seen
// from it add up to a multiple of 2 pi inside and to 0 outside.

/// The angle of (x, y) by steps: pi / 2 where |x| is below 0.0001, and pi with eight decimals.
double SafeAtan2(double y, double x);

/// The angle from a to c as seen from b. Its dot and cross product are rounded to 32-bit floats.
double TurnAngle(const PointXY& a, const PointXY& b, const PointXY& c);

/// Whether the ring through points 1 to `count`, closed by an edge from the last to the first, winds round
/// (cx, cy): the sum of the angles, a 32-bit float after every addition, is off 0 by more than 0.00001. Rings
/// of either direction count. A ring without a point holds nothing.
bool InsidePart(double cx, double cy, std::ptrdiff_t count, const Array1<PointXY>& points);

} // namespace vastrel
