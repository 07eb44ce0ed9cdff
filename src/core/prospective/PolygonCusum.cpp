#include "core/prospective/PolygonCusum.h"

#include "core/workspace/Workspace.h"

namespace vastrel {

CusumOutputs PolygonOutputs() {
    return {ws.CusumValue, ws.MaxCusum, ws.MaxRegion, ws.RegionLabel};
}

namespace {

void TakeCentroids(Array1<double>& x, Array1<double>& y) {
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
        x(i) = ws.RegionCentroid(i).X;
        y(i) = ws.RegionCentroid(i).Y;
    }
}

} // namespace

void RunPolygonCusum(Table<double>& z, StartOption start, const Array1<std::string>& labels) {
    if (!Serves(PolygonCusumRules(), start)) return;
    const std::ptrdiff_t n = ws.NumRegion;
    const auto periods = static_cast<std::ptrdiff_t>(ws.RunPeriodCount);
    const CusumOutputs outputs = PolygonOutputs();
    outputs.ReDim(n, periods);
    Array1<double> x(n), y(n);
    TakeCentroids(x, y);
    z = FilterZScores(BuildCusumWeights(x, y, n, ws.TotalShapeArea, ws.CurrentSigma), z, n, periods);
    if (start == StartOption::Zero)
        RunCusum(z, n, periods, ws.KValue, 0, labels, outputs);
    else
        ContinueCusum(PolygonCusumRules(), z, n, periods, ws.KValue,
                      {ws.PreviousCusum, n, static_cast<std::ptrdiff_t>(ws.PreviousPeriodCount)}, labels,
                      outputs);
}

void findMaxPreviousCusum() {
    ws.PreviousMaxCusum =
        ColumnMaxima(ws.PreviousCusum, ws.NumRegion, static_cast<std::ptrdiff_t>(ws.PreviousPeriodCount));
}

std::string CusumLabel(const std::string& primaryField, const std::string& primary,
                       const std::string& secondaryField, const std::string& secondary) {
    if (primaryField.empty()) return {};
    return secondaryField.empty() ? primary : primary + " (" + secondary + ") ";
}

} // namespace vastrel
