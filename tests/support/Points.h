#pragma once

#include "core/workspace/Workspace.h"

#include <vector>

namespace vastrel {

struct MapPosition {
    double X = 0, Y = 0;
};

/// A fresh store with a point dataset at these positions, as the loader leaves it, its counts apart.
inline void FillPoints(const std::vector<MapPosition>& at) {
    ws = Workspace{};
    ws.bTextfileData = true;
    ws.NumTextRegion = static_cast<double>(at.size());
    ws.RegionCentroid.ReDim(static_cast<std::ptrdiff_t>(at.size()));
    for (size_t i = 0; i < at.size(); ++i)
        ws.RegionCentroid(static_cast<std::ptrdiff_t>(i + 1)) = {std::to_string(i + 1), at[i].X, at[i].Y};
}

} // namespace vastrel
