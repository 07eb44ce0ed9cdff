#pragma once

#include "core/workspace/Arrays.h"

namespace vastrel {

/// The squared distances between all pairs of n Regions, with the positions that they belong to. A bandwidth
/// changes nothing in them.
struct PairDistances {
    Array1<double> X, Y;    // 1..n
    Array1<double> Squared; // the pairs (1, 2..n), (2, 3..n), and so on, from element 0

    static std::ptrdiff_t Count(std::ptrdiff_t n) { return n * (n - 1) / 2; }

    /// Where the pairs (i, i + 1), (i, i + 2) to (i, n) stand, one behind the other.
    double* PairsOf(std::ptrdiff_t i, std::ptrdiff_t n) { return Squared.data() + CountBefore(i, n); }
    const double* PairsOf(std::ptrdiff_t i, std::ptrdiff_t n) const {
        return Squared.data() + CountBefore(i, n);
    }

private:
    static std::ptrdiff_t CountBefore(std::ptrdiff_t i, std::ptrdiff_t n) {
        return (i - 1) * (2 * n - i) / 2;
    }
};

} // namespace vastrel
