#pragma once

#include "core/workspace/Pairs.h"

#include <algorithm>

namespace vastrel {

/// The row-normalised kernel of n Regions, W(i, j) = K(i, j) / Length(i). The kernel K itself is symmetric,
/// so half of it says all: half the memory of a table, and half the way through it.
struct KernelWeights {
    Pairs Values;          // K(i, j) where i differs from j
    double Peak = 0;       // K(i, i)
    Array1<double> Length; // 1..n: of the rows of K

    /// W(i, j) for i and j of 1..n; run-time error 9 beyond them.
    double operator()(std::ptrdiff_t i, std::ptrdiff_t j) const {
        return (i == j ? Peak : Values(i, j)) / Length(i);
    }

    bool IsAllocated() const { return Length.IsAllocated(); }
    void Clear() { *this = {}; }

    void SetLengths(double length) { std::fill_n(Length.data(), Length.UpperBound() + 1, length); }

    /// Makes every weight 0.
    void SetZero() {
        Values.SetZero();
        Peak = 0;
        SetLengths(1);
    }
};

} // namespace vastrel
