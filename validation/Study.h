#pragma once

#include "validation/Cell.h"

#include <string>
#include <vector>

namespace vastrel::validation {

/// All cells of the study, the most informative first. `samples` is the folder of the sample datasets.
std::vector<Cell> WholeStudy(const std::string& samples);

/// One small cell of each kind.
std::vector<Cell> QuickStudy(const std::string& samples);

} // namespace vastrel::validation
