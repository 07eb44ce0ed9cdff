#pragma once

#include "core/numeric/InstructionSet.h"

#include <cstddef>

namespace vastrel {

/// Adds `depth` products to each sum of a tile, whose rows are `stride` apart. `a` holds an element of each
/// of the tile's rows for every k, `b` one of each of its columns.
using AddSteps = void (*)(const double* a, const double* b, std::ptrdiff_t depth, double* result,
                          std::ptrdiff_t stride);

/// A piece of the result whose sums stand in the registers of an instruction set.
struct Tile {
    InstructionSet Set;
    std::ptrdiff_t Rows, Columns;
    AddSteps AddProducts;
    AddSteps AddFaintProducts; // gives the same bits, and is quicker where products are subnormal
};

/// The most sums that a tile of any instruction set has.
constexpr std::ptrdiff_t LargestTile = std::ptrdiff_t{8} * 24;

/// The tile of the chosen instruction set.
const Tile& ChosenTile();

} // namespace vastrel
