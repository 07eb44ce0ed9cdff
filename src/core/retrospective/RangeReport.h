#pragma once

#include "core/retrospective/RetroRules.h"

#include <string>
#include <vector>

namespace vastrel {

/// The lines of the report file for a range of bandwidths, from the tables of the last sweep.
std::vector<std::string> RangeReport(RetroVariable variable, const RetroRules& rules);

} // namespace vastrel
