#pragma once

#include <cstddef>
#include <functional>

namespace vastrel {

/// Rows first .. last - 1, counted from 0.
struct RowRange {
    std::ptrdiff_t First = 0;
    std::ptrdiff_t Last = 0;
};

/// The range of the rows that worker `worker` of `workers` takes.
using RowShare = std::function<RowRange(std::ptrdiff_t worker, std::ptrdiff_t workers)>;

/// Equal shares of `rows` rows.
RowShare EvenShares(std::ptrdiff_t rows);

/// Shares of about equal work in the rows of an upper triangle of `rows` rows, diagonal included.
RowShare TriangleShares(std::ptrdiff_t rows);

/// How many workers a computation of `operations` floating-point operations is worth: 1 for a small one, the
/// processor's cores for a large one; always the forced number where one is set.
int WorkersFor(std::ptrdiff_t operations);

/// Sets the number of workers for every computation, small ones too; 0 gives the choice back. For tests and
/// benchmarks.
void ForceWorkers(int workers);

/// Splits rows over `workers` threads and joins them before it returns; the caller is one of the workers.
/// `work` computes the rows of a range and touches nothing that another range's work writes.
///
/// Floating-point flags that a worker raises are raised in the caller; the first exception of a worker is
/// thrown again there once all have ended.
void RunRowWorkers(int workers, const RowShare& share, const std::function<void(RowRange)>& work);

} // namespace vastrel
