#pragma once

#include "core/numeric/RowWorkers.h"
#include "core/workspace/Arrays.h"

#include <array>
#include <cstddef>

namespace vastrel {

/// Sums along rows of a table: `term(row, j)` for j = 1..n, ascending, where `row` points to the row's
/// element 0. `take(i, sum)` gets the sum of each row i of `rows`, counted from 1, so that the range's own
/// count is one less.
///
/// An addition waits for the one before it; those of other rows need not. So some rows advance together.
template <typename Term, typename Take>
void SumAlongRows(const Table<double>& table, RowRange rows, std::ptrdiff_t n, Term term, Take take) {
    constexpr std::size_t together = 8;
    std::ptrdiff_t i = rows.First + 1;
    for (; i + static_cast<std::ptrdiff_t>(together) <= rows.Last + 1; i += together) {
        std::array<const double*, together> row{};
        for (std::size_t r = 0; r < together; ++r)
            row[r] = table.row(i + static_cast<std::ptrdiff_t>(r));
        std::array<double, together> sums{};
        for (std::ptrdiff_t j = 1; j <= n; ++j)
#pragma GCC unroll 8
            for (std::size_t r = 0; r < together; ++r)
                sums[r] = sums[r] + term(row[r], j);
        for (std::size_t r = 0; r < together; ++r)
            take(i + static_cast<std::ptrdiff_t>(r), sums[r]);
    }
    for (; i <= rows.Last; ++i) {
        const double* row = table.row(i);
        double sum = 0;
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            sum = sum + term(row, j);
        take(i, sum);
    }
}

} // namespace vastrel
