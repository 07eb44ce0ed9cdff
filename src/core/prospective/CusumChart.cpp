#include "core/prospective/CusumChart.h"

#include "core/workspace/Workspace.h"

#include <algorithm>

namespace vastrel {

namespace {

void Prepare(std::ptrdiff_t periods, double h) {
    ws.CusumChartData.ReDim(periods - 1, 1);
    ws.CusumChartLabels.assign(static_cast<size_t>(periods), "");
    for (std::ptrdiff_t row = 0; row < periods; ++row)
        ws.CusumChartData(row, 1) = h;
}

void LabelRows(std::ptrdiff_t count) {
    auto& labels = ws.CusumChartLabels;
    for (size_t row = 0; row < labels.size() && static_cast<std::ptrdiff_t>(row) < count; ++row)
        labels[row] = std::to_string(row + 1);
}

} // namespace

void ChartSet(std::ptrdiff_t periods, double h) {
    Prepare(periods, h);
    LabelRows(periods);
}

void ChartSetPrev(std::ptrdiff_t periods, double h, const Array1<double>& savedMaxima,
                  std::ptrdiff_t savedPeriods) {
    Prepare(periods, h);
    for (std::ptrdiff_t p = 1; p <= savedPeriods; ++p)
        ws.CusumChartData(p - 1, 0) = savedMaxima(p);
}

void ChartUpdatePrev(std::ptrdiff_t t, double cusum, std::ptrdiff_t labelled) {
    ws.CusumChartData(t - 1, 0) = cusum;
    LabelRows(labelled);
}

void ChartUpdate(std::ptrdiff_t t, double cusum) {
    ChartUpdatePrev(t, cusum, static_cast<std::ptrdiff_t>(ws.CusumChartLabels.size()));
}

std::ptrdiff_t ContinuedLabelCount(const CusumRules& rules, std::ptrdiff_t periods) {
    if (!rules.ChartLabelsStopAtColumns) return periods;
    return static_cast<std::ptrdiff_t>(ws.EndFieldIndex + ws.PreviousPeriodCount - ws.StartFieldIndex + 1);
}

void ChartRegion(const Table<double>& cusum, std::ptrdiff_t i, std::ptrdiff_t periods, double h) {
    ChartSet(periods, h);
    for (std::ptrdiff_t t = 1; t <= periods; ++t)
        ChartUpdate(t, cusum(i, t));
}

} // namespace vastrel
