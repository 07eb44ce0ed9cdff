#pragma once

#include "core/display/PlotSurface.h"

namespace vastrel {

/// The circle of a class on a point map.
struct PointSymbol {
    double Radius = 0;
    Colour Outline = 0;
    bool operator==(const PointSymbol&) const = default;
};

} // namespace vastrel
