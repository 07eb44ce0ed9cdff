#pragma once

#include "core/workspace/Pairs.h"

namespace vastrel {

/// The squared distances between all pairs of n Regions, with the positions that they belong to. A bandwidth
/// changes nothing in them.
struct PairDistances {
    Array1<double> X, Y; // 1..n
    Pairs Squared;
};

} // namespace vastrel
