#pragma once

#include "core/numeric/FeltSteps.h"
#include "core/numeric/InstructionSet.h"

#include <cstddef>

namespace vastrel {

/// Adds the products of some steps to each sum of a tile, whose rows are `stride` apart. `a` holds an element
/// of each of the tile's rows for every step, `b` one of each of its columns; `felt` tells the steps of
/// `groups` groups that are to be added.
using AddSteps = void (*)(const double* a, const double* b, const StepSet* felt, std::ptrdiff_t groups,
                          double* sums, std::ptrdiff_t stride);

/// The same for one step, whose elements of b have a span.
using AddStep = void (*)(const double* a, const double* b, const Span& spanOfB, double* sums,
                         std::ptrdiff_t stride);

/// A piece of the result whose sums stand in the registers of an instruction set.
struct Tile {
    InstructionSet Set;
    std::ptrdiff_t Rows, Columns;
    AddSteps AddProducts;
    AddStep AddFaintProducts; // gives the same bits, and is quicker where products are subnormal
    SumSpan (*SpanOfSums)(const double* sums, std::ptrdiff_t stride);
    Span (*SpanOfStep)(const double* numbers, std::ptrdiff_t width); // as many as its rows or columns
};

/// The most sums that a tile of any instruction set has.
constexpr std::ptrdiff_t LargestTile = std::ptrdiff_t{8} * 24;

/// The tile of the chosen instruction set.
const Tile& ChosenTile();

} // namespace vastrel
