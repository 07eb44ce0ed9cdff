#include "core/retrospective/ScoreStatistic.h"

#include "core/numeric/NeighbourOrder.h"
#include "core/numeric/RowWorkers.h"
#include "core/numeric/RunProcedure.h"
#include "core/numeric/cMathLib.h"
#include "core/retrospective/ScoreArithmetic.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

/// The two variants of the local procedure, side by side.
struct ScoreVariant {
    const char* Name;
    Table<double> Workspace::*Weights;
    Array1<double> Workspace::*U;
    Array1<double> Workspace::*Z;
    double Workspace::*Global;
};

constexpr ScoreVariant Unadjusted{"LocalScoreUnadjusted", &Workspace::WeightUnadjusted, &Workspace::LocalU,
                                  &Workspace::LocalZ, &Workspace::GlobalU};
constexpr ScoreVariant Adjusted{"LocalScoreAdjusted", &Workspace::WeightAdjusted, &Workspace::LocalUAdjusted,
                                &Workspace::LocalZAdjusted, &Workspace::GlobalUAdjusted};

void ResetLocal(const ScoreVariant& variant) {
    for (auto* values : {&(ws.*variant.U), &(ws.*variant.Z), &ws.MapClassScore, &ws.MapDrawScore,
                         &ws.DisplayClassValues, &ws.DisplayDrawValues})
        values->ReDim(ws.NumRegion);
    ws.*variant.Global = 0;
}

void ComputeLocal(const ScoreVariant& variant) {
    constexpr std::ptrdiff_t costOfElement = 20;
    const std::ptrdiff_t n = ws.NumRegion;
    RunRowWorkers(WorkersFor(n * n * costOfElement), n, [&](RowRange rows) {
        for (std::ptrdiff_t i = rows.First + 1; i <= rows.Last; ++i) {
            const auto [u, z] =
                LocalScoreOf((ws.*variant.Weights).row(i), ws.ObsCount, ws.ExpCount, ws.TotalObs, n);
            for (auto* values : {&(ws.*variant.U), &ws.MapClassScore, &ws.MapDrawScore,
                                 &ws.DisplayClassValues, &ws.DisplayDrawValues})
                (*values)(i) = u;
            (ws.*variant.Z)(i) = z;
        }
    });
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        const double u = (ws.*variant.U)(i);
        ws.*variant.Global = ws.*variant.Global + u * u;
    }
}

void LocalScores(const ScoreVariant& variant) {
    ResetLocal(variant);
    RunProcedure(
        variant.Name, [&] { ComputeLocal(variant); }, [&] { ResetLocal(variant); });
}

void StoreMoments(const Moments& moments) {
    ws.ScoreMean = moments.Mean;
    ws.ScoreVar = moments.Variance;
    ws.ScoreDF = moments.DegreesOfFreedom;
}

void FinishScore(const char* name, double global, double scale) {
    RunProcedure(
        name,
        [=] {
            const auto [z, chi] =
                Standardise(DividedBy(global, scale), {ws.ScoreMean, ws.ScoreVar, ws.ScoreDF});
            ws.ScoreZ = z;
            ws.ScoreChi = chi;
        },
        [] { ws.ScoreZ = ws.ScoreChi = 0; });
}

} // namespace

void LocalScoreUnadjusted() {
    LocalScores(Unadjusted);
}
void LocalScoreAdjusted() {
    LocalScores(Adjusted);
}

void ScoreMoments(const Table<double>& P) {
    RunProcedure(
        "ScoreMoments",
        [&P] {
            const std::ptrdiff_t n = ws.NumRegion;
            const VectorOrder order =
                ws.RegionCentroid.UpperBound() < n ? VectorOrder() : NeighbourOrder(ws.RegionCentroid, n);
            const Table<double> A = ProductOfNeighbours(P, ShareCovariance(ws.ExpRatio, n), order);
            const Table<double> B = cMathLib().Multiply(A, A);
            const Table<double> C = ProductDiagonal(B, A);
            StoreMoments(MomentsOf(Trace(A), Trace(B), ColumnSum(C), ws.TotalObs));
        },
        [] { StoreMoments({}); });
}

void ScoreMomentsPlain() {
    ScoreMoments(ws.ScoreGramPlain);
}
void ScoreMomentsAdjusted() {
    ScoreMoments(ws.ScoreGramAdjusted);
}

void FinishScoreUnadjusted() {
    FinishScore("FinishScoreUnadjusted", ws.GlobalU, ws.TotalObs * ws.TotalObs);
}
void FinishScoreAdjusted() {
    FinishScore("FinishScoreAdjusted", ws.GlobalUAdjusted, ws.TotalObs);
}

} // namespace vastrel
