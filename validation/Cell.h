#pragma once

#include "validation/Results.h"

#include <functional>
#include <string>

namespace vastrel::validation {

/// A part of the study that is computed as a whole. Its name is the seed of its random numbers.
struct Cell {
    std::string Name;
    long MostReplications; // of a cell that takes long, fewer than the others have
    std::function<void(const Cell& cell, long replications, Results& results)> Run;
};

} // namespace vastrel::validation
