#pragma once

#include "core/layer/Layer.h"
#include "core/prospective/PointCusum.h"

namespace vastrel {

/// The Regions 1..Count of a watch as rows tell them, and the results of its run. What is told of a period
/// counts the periods of the results from 1. It lives no longer than the results.
struct WatchRegions {
    std::ptrdiff_t Count = 0;
    std::ptrdiff_t PeriodCount = 0;
    const Table<double>& Cusum; // (Region, period)
    double H = 0;               // a cusum strictly above it is a signal

    Array1<std::string> ID;
    Array1<std::string> ID2; // not allocated where there is none
    std::function<PointXY(std::ptrdiff_t region)> PointOf;
};

/// A row a Region: ID, ID2, X, Y; CUSUM, CLASS (1 to 5, of the map) and SIGNAL (0 or 1) of the last period;
/// FIRST, the first period with a signal, 0 for none; MAX and MAXAT, the largest cusum and its first period.
/// Run-time error 9 without a period.
ResultTable WatchRows(const WatchRegions& watch);

/// In long form, a row a Region and period, Region after Region: ID, ID2, PERIOD, CUSUM, SIGNAL.
ResultTable WatchRowsByPeriod(const WatchRegions& watch);

/// The Regions of a run on the polygons of the store, with the ids of their records; a Region without one has
/// empty ids. Run-time error 94 for a null among the ids.
WatchRegions PolygonWatchRegions();

/// The points of a watch that was run with this start option.
WatchRegions PointWatchRegions(PointCusum& watch, StartOption start);

} // namespace vastrel
