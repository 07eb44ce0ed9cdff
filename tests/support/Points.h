#pragma once

#include "core/workspace/Workspace.h"

#include <algorithm>
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

/// An array counted from 1.
template <typename T>
Array1<T> ArrayFrom1(const std::vector<T>& values) {
    Array1<T> array(static_cast<std::ptrdiff_t>(values.size()));
    std::copy(values.begin(), values.end(), array.data() + 1);
    return array;
}

/// Elements 1 to the bound; none of an array that was never dimensioned.
template <typename T>
std::vector<T> From1(const Array1<T>& array) {
    if (!array.IsAllocated()) return {};
    return {array.data() + 1, array.data() + array.UpperBound() + 1};
}

} // namespace vastrel
