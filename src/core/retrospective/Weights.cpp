#include "core/retrospective/Weights.h"

#include "core/numeric/GaussianKernel.h"
#include "core/numeric/KernelRows.h"
#include "core/numeric/Memory.h"
#include "core/numeric/NeighbourOrder.h"
#include "core/numeric/RunProcedure.h"
#include "core/spatial/StudyArea.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

#include <array>

namespace vastrel {

void TakePointCount() {
    if (ws.bTextfileData && !ws.bShapefileData) ws.NumRegion = RoundToInt32(ws.NumTextRegion);
}

void TakePointDataset() {
    TakePointCount();
    if (!ws.bTextfileData || ws.bShapefileData) return;
    ws.TotalShapeArea = 0; // an area that cannot be had leaves none of an earlier map
    ws.TotalShapeArea = PointStudyArea();
}

void RequireMemoryForTables(int tables, double further) {
    const double n = Counter16(ws.NumRegion);
    const auto held = static_cast<double>(ws.Distances.Squared.Count());
    RequireMemory(((n + 1) * (n + 1) * tables - held) * sizeof(double) + further, "cmdRun");
}

namespace {

/// The tables of BuildScoreWeights, those that count the Regions from 1 and those with a zero base.
auto WeightTables() {
    return std::array{&ws.WeightUnadjusted, &ws.WeightAdjusted};
}
auto GramTables() {
    return std::array{&ws.ScoreGramPlain, &ws.ScoreGramAdjusted};
}

/// A fault of the kernel itself is told before its values go any further: a sigma whose square overflows
/// would only end as a row of length 0.
void BuildKernel(KernelWeights& kernel, std::ptrdiff_t n) {
    CheckFirstWeights(ws.RegionCentroid, n, ws.TotalShapeArea, ws.CurrentSigma);
    RunProcedure(
        "GaussianKernel",
        [&] {
            TakeDistances(ws.RegionCentroid, n, ws.Distances);
            GaussianKernel(ws.Distances.Squared, ws.TotalShapeArea, ws.CurrentSigma, kernel);
        },
        [] { ws.Distances = {}; });
    RowNormalise(kernel);
}

void BuildWeightUnadjusted(std::ptrdiff_t n) {
    KernelWeights kernel; // gone before the other tables come
    BuildKernel(kernel, n);
    ws.WeightUnadjusted.ReDimUnset(n, n);
    PutWeights(kernel, ws.WeightUnadjusted);
}

void ComputeScoreWeights(std::ptrdiff_t n) {
    BuildWeightUnadjusted(n);
    ws.WeightAdjusted.ReDimUnset(n, n);
    for (auto* table : GramTables())
        table->ReDimUnset(n - 1, n - 1);
    const VectorOrder order = NeighbourOrder(ws.RegionCentroid, n);
    Table<double>& ordered = ws.ScoreGramAdjusted; // filled afterwards, lends its room
    const Table<double>& w = ws.WeightUnadjusted;
    DenseGram({w.row(1) + 1, n, n, w.stride()}, order, ordered.row(0), ordered.stride());
    PutBack(ordered, order, ws.ScoreGramPlain);
    ScaleGramByShares(ws.ScoreGramPlain, ws.ExpRatio, n, ws.ScoreGramAdjusted);
    ScaleColumnsByExpected(ws.WeightUnadjusted, ws.ExpCount, n, ws.WeightAdjusted);
}

void ClearScoreWeights() {
    for (auto* table : WeightTables())
        table->Clear();
    for (auto* table : GramTables())
        table->Clear();
}

void ZeroScoreWeights(std::ptrdiff_t n) {
    for (auto* table : WeightTables())
        table->ReDim(n, n);
    for (auto* table : GramTables())
        table->ReDim(n - 1, n - 1);
}

} // namespace

void BuildScoreWeights() {
    ClearScoreWeights();
    TakePointDataset();
    const std::ptrdiff_t n = Counter16(ws.NumRegion);
    if (n == 0) return;
    RunProcedure(
        "BuildScoreWeights", [n] { ComputeScoreWeights(n); }, [n] { ZeroScoreWeights(n); });
}

void BuildMWeights() {
    ws.WeightM.Clear();
    TakePointDataset();
    const std::ptrdiff_t n = Counter16(ws.NumRegion);
    if (n == 0) return;
    RunProcedure(
        "BuildMWeights", [n] { BuildKernel(ws.WeightM, n); }, [n] { ws.WeightM.SetZero(n); });
}

} // namespace vastrel
