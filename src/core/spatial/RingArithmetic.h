#pragma once

#include "core/workspace/Workspace.h"

namespace vastrel {

// Arithmetic on the vertices 1 to n of a ring. The last vertex is not joined to the first: a ring repeats its
// first. The formulas are the shoelace formula of the plane and the centroid that goes with it.

/// Half the sum of y(k+1) x(k) - y(k) x(k+1), with its sign: positive for rings that run counter-clockwise.
/// A ring of fewer than two vertices has area 0.
double SignedRingArea(const Array1<PointXY>& vertices);

/// The centroid of a ring of this area, which is taken without its sign: the centroid is right for a ring
/// that runs clockwise, and that of a ring that runs the other way is negated. Meant so: a hole pulls its
/// Region's centroid through the origin. (0, 0) for fewer than two vertices; run-time error 11 for an area of
/// 0 otherwise.
PointXY RingCentroid(const Array1<PointXY>& vertices, double area);

} // namespace vastrel
