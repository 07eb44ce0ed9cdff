#pragma once

#include "core/spatial/CPolygon.h"
#include "core/workspace/Workspace.h"

#include <vector>

namespace vastrel {

/// The vertices of a closed ring; the last repeats the first.
using ClosedRing = std::vector<PointXY>;

/// An outer ring, which runs counter-clockwise, and its holes, which run clockwise.
struct NestedRings {
    ClosedRing Outer;
    std::vector<ClosedRing> Holes;
};

/// The parts of a polygon as outer rings with their holes, in the order of the parts.
///
/// How the rings of a file run is not relied upon: a ring that lies in an odd number of larger ones is a hole
/// of the smallest outer ring around it, all others are outer rings. Rings may touch, and share vertices and
/// edges; they are not to cross. A ring that is open is closed; one of fewer than four vertices then
/// encloses nothing and is left out.
std::vector<NestedRings> NestRings(const CPolygon& polygon);

} // namespace vastrel
