#include "core/prospective/PolygonPeriods.h"

#include "core/prospective/CusumChart.h"
#include "core/prospective/CusumRows.h"
#include "core/prospective/PolygonCusum.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

std::ptrdiff_t SavedShown(ShownPeriods shown) {
    return shown == ShownPeriods::SavedAndNew ? static_cast<std::ptrdiff_t>(ws.PreviousPeriodCount) : 0;
}

std::ptrdiff_t RowsOf(ShownPeriods shown) {
    return SavedShown(shown) + static_cast<std::ptrdiff_t>(ws.RunPeriodCount);
}

} // namespace

void BeginPolygonChart(ShownPeriods shown) {
    if (shown == ShownPeriods::New) return ChartSet(RowsOf(shown), ws.HValue);
    findMaxPreviousCusum();
    ChartSetPrev(RowsOf(shown), ws.HValue, ws.PreviousMaxCusum, SavedShown(shown));
}

void AddPolygonPeriod(ShownPeriods shown, std::ptrdiff_t t) {
    if (shown == ShownPeriods::New)
        ChartUpdate(t, ws.MaxCusum(t));
    else
        ChartUpdatePrev(t + SavedShown(shown), ws.MaxCusum(t),
                        ContinuedLabelCount(PolygonCusumRules(), RowsOf(shown)));
}

std::string PolygonPeriodRow(ShownPeriods shown, std::ptrdiff_t t) {
    return PeriodRow(t + SavedShown(shown), ws.MaxCusum(t), ws.MaxRegion(t));
}

} // namespace vastrel
