#include "core/layer/WatchLayer.h"

#include "core/display/CusumClasses.h"
#include "core/spatial/AttributeRows.h"

namespace vastrel {

namespace {

using RegionOf = std::function<std::ptrdiff_t(std::ptrdiff_t row)>;

std::ptrdiff_t SameRegion(std::ptrdiff_t row) {
    return row;
}

void AddIDs(ResultTable& table, const WatchRegions& watch, const RegionOf& region) {
    table.AddTexts("ID", [&watch, region](std::ptrdiff_t row) { return watch.ID(region(row)); });
    if (watch.ID2.IsAllocated())
        table.AddTexts("ID2", [&watch, region](std::ptrdiff_t row) { return watch.ID2(region(row)); });
}

/// The first period with a signal; 0 for none.
std::ptrdiff_t FirstSignal(const WatchRegions& watch, std::ptrdiff_t region) {
    for (std::ptrdiff_t t = 1; t <= watch.PeriodCount; ++t)
        if (watch.Cusum(region, t) > watch.H) return t;
    return 0;
}

/// The first period of the largest cusum.
std::ptrdiff_t LargestAt(const WatchRegions& watch, std::ptrdiff_t region) {
    std::ptrdiff_t at = 1;
    for (std::ptrdiff_t t = 2; t <= watch.PeriodCount; ++t)
        if (watch.Cusum(region, t) > watch.Cusum(region, at)) at = t;
    return at;
}

} // namespace

ResultTable WatchRows(const WatchRegions& watch) {
    if (watch.PeriodCount < 1) RaiseCustomary(SubscriptOutOfRange, "WatchRows", "The run has no period.");
    const auto last = [&watch](std::ptrdiff_t region) { return watch.Cusum(region, watch.PeriodCount); };
    ResultTable table;
    table.RowCount = watch.Count;
    AddIDs(table, watch, SameRegion);
    table.AddNumbers("X", [&watch](std::ptrdiff_t row) { return watch.PointOf(row).X; });
    table.AddNumbers("Y", [&watch](std::ptrdiff_t row) { return watch.PointOf(row).Y; });
    table.AddNumbers("CUSUM", last);
    table.AddWholes("CLASS",
                    [&watch, last](std::ptrdiff_t row) { return CusumClassOf(last(row), watch.H) + 1; });
    table.AddWholes("SIGNAL", [&watch, last](std::ptrdiff_t row) { return last(row) > watch.H ? 1 : 0; });
    table.AddWholes("FIRST", [&watch](std::ptrdiff_t row) { return FirstSignal(watch, row); });
    table.AddNumbers("MAX", [&watch](std::ptrdiff_t row) { return watch.Cusum(row, LargestAt(watch, row)); });
    table.AddWholes("MAXAT", [&watch](std::ptrdiff_t row) { return LargestAt(watch, row); });
    return table;
}

ResultTable WatchRowsByPeriod(const WatchRegions& watch) {
    const std::ptrdiff_t periods = watch.PeriodCount;
    const auto region = [periods](std::ptrdiff_t row) { return (row - 1) / periods + 1; };
    const auto period = [periods](std::ptrdiff_t row) { return (row - 1) % periods + 1; };
    const auto cusum = [&watch, region, period](std::ptrdiff_t row) {
        return watch.Cusum(region(row), period(row));
    };
    ResultTable table;
    table.RowCount = watch.Count * periods;
    AddIDs(table, watch, region);
    table.AddWholes("PERIOD", period);
    table.AddNumbers("CUSUM", cusum);
    table.AddWholes("SIGNAL", [&watch, cusum](std::ptrdiff_t row) { return cusum(row) > watch.H ? 1 : 0; });
    return table;
}

WatchRegions PolygonWatchRegions() {
    WatchRegions watch{.Count = ws.NumRegion,
                       .PeriodCount = static_cast<std::ptrdiff_t>(ws.RunPeriodCount),
                       .Cusum = ws.CusumValue,
                       .H = ws.HValue,
                       .ID = ws.CusumRegionIDs,
                       .ID2 = {},
                       .PointOf = [](std::ptrdiff_t region) {
                           return PointXY{ws.RegionCentroid(region).X, ws.RegionCentroid(region).Y};
                       }};
    if (!ws.CusumSecondaryField.empty()) ReadTexts(ws.CusumSecondaryField, watch.ID2);
    return watch;
}

WatchRegions PointWatchRegions(PointCusum& watch, StartOption start) {
    return {.Count = watch.N,
            .PeriodCount = watch.PeriodCount(start),
            .Cusum = watch.Outputs(start).Cusum,
            .H = ws.HValue,
            .ID = watch.RegionIDs,
            .ID2 = {},
            .PointOf = [&watch](std::ptrdiff_t region) {
                return PointXY{watch.RegionX(region), watch.RegionY(region)};
            }};
}

} // namespace vastrel
