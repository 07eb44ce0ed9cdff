#include "FiniteStore.h"

#include "core/workspace/Workspace.h"

#include <cmath>
#include <cstdlib>

namespace vastrel {

namespace {

void Require(double value) {
    if (!std::isfinite(value)) std::abort();
}

void Require(const RegionPoint& point) {
    Require(point.X);
    Require(point.Y);
}

template <typename T>
void Require(const Array1<T>& values) {
    for (std::ptrdiff_t i = 0; i <= values.UpperBound(); ++i)
        Require(values(i));
}

void Require(const Table<double>& table) {
    const std::ptrdiff_t count = (table.UpperBound1() + 1) * (table.UpperBound2() + 1);
    for (std::ptrdiff_t k = 0; k < count; ++k)
        Require(table.row(0)[k]);
}

void Require(const KernelWeights& weights) {
    const std::ptrdiff_t n = weights.Length.UpperBound();
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            Require(weights(i, j));
}

} // namespace

void RequireFiniteStore() {
    Require(ws.RegionCentroid);
    for (const double value :
         {ws.TotalShapeArea, ws.TotalPop, ws.TotalObs, ws.ScaleX, ws.ScaleY, ws.GlobalU, ws.GlobalUAdjusted,
          ws.ScoreMean, ws.ScoreVar, ws.ScoreDF, ws.ScoreZ, ws.ScoreChi})
        Require(value);
    for (const auto* values : {&ws.PopBase,
                               &ws.ObsCount,
                               &ws.ExpCount,
                               &ws.ExpRatio,
                               &ws.LocalU,
                               &ws.LocalZ,
                               &ws.LocalUAdjusted,
                               &ws.LocalZAdjusted,
                               &ws.MapClassScore,
                               &ws.MapDrawScore,
                               &ws.DevRaw,
                               &ws.DevPearson,
                               &ws.DevFreemanTukey,
                               &ws.DevRossi,
                               &ws.LocalM,
                               &ws.LocalMSorted,
                               &ws.MapDrawM,
                               &ws.MapClassM,
                               &ws.DisplayClassValues,
                               &ws.DisplayDrawValues,
                               &ws.BandwidthList,
                               &ws.SweepStat,
                               &ws.SweepChi,
                               &ws.SweepChiCritical,
                               &ws.SweepDF,
                               &ws.SweepPValue,
                               &ws.SweepMaxM,
                               &ws.SweepMCritical,
                               &ws.PreviousMaxCusum,
                               &ws.MaxCusum,
                               &ws.ExportObs,
                               &ws.ExportExp,
                               &ws.ExportDeviation,
                               &ws.ExportZ,
                               &ws.LegendLimits,
                               &ws.LegendWork})
        Require(*values);
    for (const auto* table :
         {&ws.WeightUnadjusted, &ws.WeightAdjusted, &ws.StatisticTable, &ws.ChartData, &ws.TextZScore,
          &ws.PreviousCusum, &ws.CusumValue, &ws.CusumChartData, &ws.ExportTable})
        Require(*table);
    for (const auto* weights : {&ws.WeightM, &ws.ExportWeights})
        Require(*weights);
}

} // namespace vastrel
