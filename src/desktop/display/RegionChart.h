#pragma once

#include <cstdint>

namespace vastrel {

/// Shows the window with the cusum chart of a Region, counted from 0.
void ShowRegionChartFor(std::int32_t region);

} // namespace vastrel
