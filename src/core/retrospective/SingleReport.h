#pragma once

#include "core/retrospective/RetroRules.h"

#include <string>
#include <vector>

namespace vastrel {

/// The lines of the report file that Save writes for one bandwidth. They are read from the store at this
/// moment: M* follows the AlphaLevel and CurrentSigma of now, and MCritical may show its message again.
std::vector<std::string> SingleReport(RetroVariable variable, const RetroRules& rules);

} // namespace vastrel
