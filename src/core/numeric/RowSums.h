#pragma once

#include "core/numeric/RowWorkers.h"
#include "core/workspace/Arrays.h"

#include <array>
#include <cstddef>

namespace vastrel {

/// Sums along rows 1..n of a table, on all workers: `term(row, j)` for j = 1..n, ascending, where `row`
/// points to the row's element 0. `take(i, sum)` gets the sum of each row i, and touches nothing of another
/// row. A term costs about as many operations as are given.
///
/// An addition waits for the one before it; those of other rows need not. So some rows advance together.
template <typename Term, typename Take>
void SumAlongRows(const Table<double>& table, std::ptrdiff_t n, std::ptrdiff_t operations, Term term,
                  Take take) {
    constexpr std::ptrdiff_t together = 8;
    const auto sumOne = [&](std::ptrdiff_t i) {
        const double* row = table.row(i);
        double sum = 0;
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            sum = sum + term(row, j);
        take(i, sum);
    };
    const auto sumTogether = [&](std::ptrdiff_t i) {
        std::array<const double*, together> rows{};
        for (std::size_t r = 0; r < together; ++r)
            rows[r] = table.row(i + static_cast<std::ptrdiff_t>(r));
        std::array<double, together> sums{};
        for (std::ptrdiff_t j = 1; j <= n; ++j)
#pragma GCC unroll 8
            for (std::size_t r = 0; r < together; ++r)
                sums[r] = sums[r] + term(rows[r], j);
        for (std::size_t r = 0; r < together; ++r)
            take(i + static_cast<std::ptrdiff_t>(r), sums[r]);
    };
    const auto sumRange = [&](RowRange range) {
        std::ptrdiff_t i = range.First + 1;
        for (; i + together - 1 <= range.Last; i += together)
            sumTogether(i);
        for (; i <= range.Last; ++i)
            sumOne(i);
    };
    RunRowWorkers(WorkersFor(n * n * operations), n, sumRange, together);
}

} // namespace vastrel
