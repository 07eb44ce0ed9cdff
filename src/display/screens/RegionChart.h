#pragma once

#include <cstddef>

namespace vastrel {

/// Shows the window with the cusum chart of a Region, counted from 0.
void ShowRegionChartFor(std::ptrdiff_t region);

} // namespace vastrel
