#pragma once

#include "core/numeric/DenseProduct.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

/// An order of the Regions at `at(1..n)`, counted from 0, in which neighbours stand close together: strips
/// from left to right, each from the bottom to the top. Where positions are equal or no numbers, any order of
/// those.
VectorOrder NeighbourOrder(const Array1<RegionPoint>& at, std::ptrdiff_t n);

/// Puts the rows and columns of a table (zero base) that stand in an order back into their own places.
void PutBack(const Table<double>& ordered, const VectorOrder& order, Table<double>& table);

} // namespace vastrel
