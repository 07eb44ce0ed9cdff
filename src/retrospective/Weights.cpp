#include "retrospective/Weights.h"

#include "platform/ArithmeticScope.h"
#include "platform/Memory.h"
#include "platform/Numbers.h"
#include "retrospective/DenseKernel.h"
#include "retrospective/Kernel.h"
#include "retrospective/StudyArea.h"
#include "workspace/Workspace.h"

#include <algorithm>

namespace vastrel {

void TakePointDataset() {
    if (!ws.bTextfileData || ws.bShapefileData) return;
    ws.NumRegion = RoundToInt32(ws.NumTextRegion);
    ws.TotalShapeArea = 0;
    ws.TotalShapeArea = PointStudyArea();
}

namespace {

/// N for a build of `tables` tables of N x N, after the checks that come before memory is taken.
std::ptrdiff_t CheckedSize(int tables, const char* source) {
    const std::ptrdiff_t n = Counter16(ws.NumRegion);
    const double bytes = static_cast<double>(n + 1) * static_cast<double>(n + 1) * sizeof(double);
    RequireMemory(bytes * tables, source);
    return n;
}

MatrixView Used(const Table<double>& table, std::ptrdiff_t n) {
    return {table.row(1) + 1, n, n, table.stride()};
}

/// A fault of the kernel itself is told before its values go any further: a sigma whose square overflows
/// would only end as a row of length 0.
void NormalisedKernel(Table<double>& weights, std::ptrdiff_t n) {
    RunProcedure(
        "GaussianKernel",
        [&] { GaussianKernel(ws.RegionCentroid, n, ws.TotalShapeArea, ws.CurrentSigma, weights); }, [] {});
    RowNormalise(weights, n);
}

void ComputeScoreWeights(std::ptrdiff_t n) {
    NormalisedKernel(ws.WeightScore, n);
    DenseGram(Used(ws.WeightScore, n), ws.ScoreGram.row(1) + 1, ws.ScoreGram.stride());
    ScaleGramByShares(ws.ScoreGram, ws.ExpRatio, n, ws.ScoreGramAdjusted);
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        std::copy_n(ws.ScoreGram.row(i) + 1, n, ws.ScoreGramPlain.row(i - 1));
    ScaleColumnsByExpected(ws.WeightScore, ws.ExpCount, n, ws.WeightAdjusted);
    ws.WeightUnadjusted = ws.WeightScore;
}

} // namespace

void BuildScoreWeights() {
    constexpr int tables = 11; // six here, and five that the moments need beside them
    for (auto* table : {&ws.WeightScore, &ws.ScoreGram, &ws.ScoreGramPlain, &ws.ScoreGramAdjusted,
                        &ws.WeightUnadjusted, &ws.WeightAdjusted})
        table->Clear();
    TakePointDataset();
    const std::ptrdiff_t n = CheckedSize(tables, "BuildScoreWeights");
    for (auto* table : {&ws.WeightScore, &ws.ScoreGram, &ws.WeightUnadjusted, &ws.WeightAdjusted})
        table->ReDim(n, n);
    for (auto* table : {&ws.ScoreGramPlain, &ws.ScoreGramAdjusted})
        table->ReDim(n - 1, n - 1);
    if (n == 0) return;
    RunProcedure(
        "BuildScoreWeights", [n] { ComputeScoreWeights(n); },
        [] {
            for (auto* table : {&ws.WeightScore, &ws.ScoreGram, &ws.ScoreGramPlain, &ws.ScoreGramAdjusted,
                                &ws.WeightUnadjusted, &ws.WeightAdjusted})
                table->SetZero();
        });
}

void BuildMWeights() {
    ws.WeightM.Clear();
    TakePointDataset();
    const std::ptrdiff_t n = CheckedSize(1, "BuildMWeights");
    ws.WeightM.ReDim(n, n);
    if (n == 0) return;
    RunProcedure(
        "BuildMWeights", [n] { NormalisedKernel(ws.WeightM, n); }, [] { ws.WeightM.SetZero(); });
}

} // namespace vastrel
