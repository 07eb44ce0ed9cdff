#pragma once

#include "core/workspace/Workspace.h"

#include <vector>

namespace vastrel {

/// An order of the Regions at `at(1..n)` in which neighbours stand close together: strips from left to right,
/// each from the bottom to the top. Gives the n numbers of the Regions; where positions are equal or no
/// numbers, any order of those.
std::vector<std::ptrdiff_t> NeighbourOrder(const Array1<RegionPoint>& at, std::ptrdiff_t n);

/// The Gram matrix of w (1..n, 1..n), zero base: what DenseGram gives, in every bit, and quicker for a
/// kernel. Its columns are taken in an order of neighbours, so that the blocks of the dense product hold
/// either near or distant Regions, and those of distant ones cost little. `columns` (1..n, 1..n) and
/// `ordered` (zero base) are room to work in.
void GramOfNeighbours(const Table<double>& w, const std::vector<std::ptrdiff_t>& order,
                      Table<double>& columns, Table<double>& ordered, Table<double>& gram);

} // namespace vastrel
