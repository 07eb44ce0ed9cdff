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

    /// W(i, j) for i and j of 1..n; run-time error 9 for any others.
    double operator()(std::ptrdiff_t i, std::ptrdiff_t j) const {
        return (i == j ? Peak : Values(i, j)) / Length(i > 0 ? i : -1);
    }

    bool IsAllocated() const { return Length.IsAllocated(); }
    void Clear() { *this = {}; }

    /// The lengths of n rows, all of them 1.
    void SetUnitLengths(std::ptrdiff_t n) {
        Length.ReDim(n);
        std::fill_n(Length.data() + 1, n, 1.0);
    }

    /// The weights of n Regions, all of them 0.
    void SetZero(std::ptrdiff_t n) {
        Values.ReDimUnset(n);
        Values.SetZero();
        Peak = 0;
        SetUnitLengths(n);
    }
};

} // namespace vastrel
