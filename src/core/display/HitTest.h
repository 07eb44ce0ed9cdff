#pragma once

#include "core/display/PolygonView.h"

namespace vastrel {

/// What a click on the polygon map fell on: the Region, counted from 0, and the position on the map.
struct RegionHit {
    std::int32_t Region = 0;
    MousePosition At;
};

/// Finds the Region under a click among ShpPolygons and puts it into SelectedRegion. A click on empty ground
/// gives 0, the first Region. A polygon of one part ends the search; among polygons of several parts the last
/// one wins, unless one of a single part follows. A hole counts like any ring: a click in it selects its
/// polygon. A polygon without a part is passed over.
///
/// Run-time errors, after which SelectedRegion is 0: those of PlotToWorld, and 6 for coordinates whose
/// products do not fit in 32-bit floats.
RegionHit HitTestRegion(double plotX, double plotY);

} // namespace vastrel
