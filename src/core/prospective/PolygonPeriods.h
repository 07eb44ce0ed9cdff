#pragma once

#include <cstddef>
#include <string>

namespace vastrel {

// How the periods of a run on polygons come on show, in the chart of the maxima and in lstPeriod. The results
// are those of the store, and hold the new periods alone.

/// Which periods the chart shows. The saved ones get no rows in lstPeriod, but there the new ones are then
/// numbered behind them.
enum class ShownPeriods { New, SavedAndNew };

/// Prepares CusumChartData for RunPeriodCount periods, with the maxima of the saved periods in front where
/// they are on show.
void BeginPolygonChart(ShownPeriods shown);

/// Puts the maximum of new period t into the chart, and gives its row of lstPeriod.
void AddPolygonPeriod(ShownPeriods shown, std::ptrdiff_t t);
std::string PolygonPeriodRow(ShownPeriods shown, std::ptrdiff_t t);

} // namespace vastrel
