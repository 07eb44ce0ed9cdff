#pragma once

#include "core/numeric/RowSums.h"

namespace vastrel {

/// The sum over j = 1..n of scores(j) * weights(i, j) for each i = 1..n; `take(i, sum)` gets it, as of
/// SumAlongRows.
template <typename Take>
void WeightedSums(const Table<double>& weights, const Array1<double>& scores, std::ptrdiff_t n, Take take) {
    if (n > 0) (void)scores(n); // as many as there are Regions
    const auto weighted = [score = scores.data()](const double* row, std::ptrdiff_t j) {
        return score[j] * row[j];
    };
    SumAlongRows(weights, n, 2, weighted, take);
}

} // namespace vastrel
