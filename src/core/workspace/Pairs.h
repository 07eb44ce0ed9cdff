#pragma once

#include "core/workspace/Arrays.h"

#include <algorithm>
#include <string>

namespace vastrel {

/// A number for each pair of n Regions: the pairs (1, 2..n), (2, 3..n) and so on, one behind the other.
class Pairs {
public:
    /// Drops the contents, for a kernel that sets every number itself.
    void ReDimUnset(std::ptrdiff_t n) {
        n_ = 0; // where the memory is refused there are no pairs
        values_.ReDimUnset(CountOf(n) - 1);
        n_ = n;
    }
    void SetZero() { values_.SetZero(); }

    std::ptrdiff_t Regions() const { return n_; }
    std::ptrdiff_t Count() const { return CountOf(n_); }

    /// All numbers, one behind the other.
    double* All() { return values_.data(); }
    const double* All() const { return values_.data(); }

    /// Those of the pairs (i, i + 1), (i, i + 2) to (i, n).
    double* After(std::ptrdiff_t i) { return All() + CountBefore(i); }
    const double* After(std::ptrdiff_t i) const { return All() + CountBefore(i); }

    /// That of the pair of i and j, two Regions of 1..n in either order; run-time error 9 for any others.
    double operator()(std::ptrdiff_t i, std::ptrdiff_t j) const {
        const std::ptrdiff_t first = std::min(i, j), second = std::max(i, j);
        if (first < 1 || first == second || second > n_)
            RaiseCustomary(SubscriptOutOfRange, "Pairs",
                           "The pair of " + std::to_string(i) + " and " + std::to_string(j) + " of " +
                               std::to_string(n_) + " Regions.");
        return values_(CountBefore(first) + second - first - 1);
    }

private:
    static std::ptrdiff_t CountOf(std::ptrdiff_t n) { return n * (n - 1) / 2; }
    std::ptrdiff_t CountBefore(std::ptrdiff_t i) const { return (i - 1) * (2 * n_ - i) / 2; }

    Array1<double> values_;
    std::ptrdiff_t n_ = 0;
};

} // namespace vastrel
