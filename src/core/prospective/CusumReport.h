#pragma once

#include "core/prospective/CusumTables.h"

#include <string>
#include <vector>

namespace vastrel {

/// The lines of the report file that Save Result writes, for the Regions 1..n and the periods 1..periods: the
/// maxima of the periods, and the cusums of the Regions. Nothing is cut; a wide text widens its cell. The
/// rules do not grow with the number of periods, which is meant.
std::vector<std::string> CusumReport(const CusumOutputs& run, std::ptrdiff_t n, std::ptrdiff_t periods);

} // namespace vastrel
