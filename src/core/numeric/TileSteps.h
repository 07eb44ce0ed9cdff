#pragma once

#include "core/numeric/StepSpans.h"
#include "core/numeric/Tiles.h"

#include <cstddef>

namespace vastrel {

/// The longest panels, in steps.
constexpr std::ptrdiff_t DepthAtMost = 512;

/// The two panels of a tile: `Depth` steps, at most DepthAtMost.
struct PanelPair {
    const double *A, *B;
    PanelSpans ASpans, BSpans;
    std::ptrdiff_t Depth;
};

/// Adds the products of the panels to the sums of a tile, step by step and each rounded; steps and products
/// that cannot be felt are left out.
void AddPanels(const Tile& tile, const PanelPair& panels, double* sums, std::ptrdiff_t stride);

} // namespace vastrel
