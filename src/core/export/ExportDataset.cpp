#include "core/export/ExportDataset.h"

#include "core/numeric/KernelRows.h"
#include "core/numeric/Memory.h"
#include "core/numeric/RunProcedure.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/AttributeRows.h"
#include "core/text/Numbers.h"

namespace vastrel {

namespace {

/// Below 1 where a range was turned round after its check.
std::ptrdiff_t PeriodCount() {
    return static_cast<std::ptrdiff_t>(ws.ObsToIndex - ws.ObsFromIndex) + 1;
}

void RequireTable(std::ptrdiff_t n, std::ptrdiff_t m) {
    RequireMemory(static_cast<double>(n + 1) * static_cast<double>(m + 1) * sizeof(double), "ExportDataset");
}

void DimensionTables(std::ptrdiff_t periods) {
    if (periods < 0) RaiseCustomary(SubscriptOutOfRange, "ExportDataset");
    RequireTable(ws.NumRegion, periods);
    ws.ExportTable.ReDim(ws.NumRegion, periods);
    ws.ExportObs.ReDim(ws.NumRegion);
    ws.ExportExp.ReDim(ws.NumRegion);
}

/// Reads the counts of period t, from 1.
void ReadPeriod(std::ptrdiff_t t) {
    Recordset& table = AttributeTable();
    const Field& observed = table.Fields(static_cast<int>(ws.ObsFromIndex) + static_cast<int>(t) - 1);
    const Field& expected = table.Fields(static_cast<int>(ws.ExpFromIndex) + static_cast<int>(t) - 1);
    table.MoveFirst();
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
        ws.ExportObs(i) = observed.Value().Number();
        ws.ExportExp(i) = expected.Value().Number();
        table.MoveNext();
    }
}

} // namespace

void BuildExportWeights() {
    const std::ptrdiff_t n = ws.NumRegion;
    if (ws.ExportSigma == 0) ws.ExportSigma = ExportSigmaForZero;
    ws.ExportWeights.Clear();
    RequireMemory(static_cast<double>(n) * static_cast<double>(n) / 2 * sizeof(double), "ExportDataset");
    RunProcedure(
        "BuildExportWeights",
        [n] { ws.ExportWeights = GaussianWeights(ws.RegionCentroid, n, ws.TotalShapeArea, ws.ExportSigma); },
        [n] { ws.ExportWeights.SetZero(n); });
}

void ComputeExportZ(ExportOption option) {
    const std::ptrdiff_t n = ws.NumRegion;
    ws.ExportDeviation.ReDim(n);
    ws.ExportZ.ReDim(n);
    RunProcedure(
        "ComputeExportZ",
        [=] {
            for (std::ptrdiff_t i = 1; i <= n; ++i)
                ws.ExportDeviation(i) = ExportScore(option, ws.ExportObs(i), ws.ExportExp(i));
            WeightedSums(ws.ExportWeights, ws.ExportDeviation, n, ws.ExportZ);
        },
        [] {
            ws.ExportDeviation.SetZero();
            ws.ExportZ.SetZero();
        });
}

bool ComputeExport(ExportOption option) {
    const std::ptrdiff_t periods = PeriodCount();
    DimensionTables(periods);
    if (option == ExportOption::None) return false;
    for (std::ptrdiff_t t = 1; t <= periods; ++t) {
        ReadPeriod(t);
        if (t == 1) BuildExportWeights(); // the same for all periods
        ComputeExportZ(option);
        for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
            ws.ExportTable(i, t) = ws.ExportZ(i);
    }
    return true;
}

std::vector<std::string> ExportLines() {
    std::vector<std::string> lines;
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
        std::string line;
        for (std::ptrdiff_t t = 1; t <= ws.ExportTable.UpperBound2(); ++t)
            line += (t > 1 ? "," : "") + Num(ws.ExportTable(i, t), "0.0000");
        lines.push_back(line);
    }
    return lines;
}

} // namespace vastrel
