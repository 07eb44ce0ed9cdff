#include "core/retrospective/Sweep.h"

#include "core/platform/Platform.h"
#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/ResultLists.h"
#include "core/retrospective/Weights.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

constexpr int DashCount = 50;
constexpr std::ptrdiff_t TitleRows = 2;

double BytesOfStatisticTable() {
    return (ws.NumRegion + 1.0) * (ws.BandwidthCount + 1.0) * sizeof(double);
}

void Allocate() {
    const std::ptrdiff_t steps = ws.BandwidthCount;
    for (auto* values : {&ws.BandwidthList, &ws.SweepStat, &ws.SweepChi, &ws.SweepChiCritical, &ws.SweepDF,
                         &ws.SweepPValue, &ws.SweepMaxM, &ws.SweepMCritical})
        values->ReDim(steps);
    ws.StatisticTable.ReDim(ws.NumRegion, steps);
}

const Array1<double>& LocalValues(RetroVariable variable) {
    switch (variable) {
    case RetroVariable::Unadjusted:
        return ws.LocalU;
    case RetroVariable::AdjustedPoisson:
        return ws.LocalUAdjusted;
    default:
        return ws.LocalM;
    }
}

/// The values of one step, taken at the bandwidth of its computation.
RowValues StepValues(RetroVariable variable) {
    RowValues values;
    if (MapsScore(variable)) {
        values.Stat = variable == RetroVariable::Unadjusted ? ws.GlobalU : ws.GlobalUAdjusted;
        values.Chi = ws.ScoreChi;
        values.DF = ws.ScoreDF;
        values.P = ChiSquarePValue(ws.ScoreChi, ws.ScoreDF);
    }
    if (HasM(variable)) {
        values.M = MaxLocalM();
        values.MCritical = MCritical();
    }
    return values;
}

void StoreStep(RetroVariable variable, std::ptrdiff_t k, const RowValues& values) {
    ws.BandwidthList(k) = values.Sigma;
    ws.SweepStat(k) = MapsScore(variable) ? values.Stat : values.M;
    ws.SweepMCritical(k) = values.MCritical;
    if (MapsScore(variable)) {
        ws.SweepChi(k) = values.Chi;
        ws.SweepChiCritical(k) = ChiCritical(ws.AlphaLevel, values.DF);
        ws.SweepDF(k) = values.DF;
        ws.SweepPValue(k) = values.P;
        ws.SweepMaxM(k) = values.M; // beside the score only: the adjusted variable
    }
    const Array1<double>& local = LocalValues(variable);
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        ws.StatisticTable(i, k) = local(i);
}

std::string StepRow(RetroVariable variable, const SweepLayout& layout, const RowValues& values) {
    const bool small = MapsScore(variable) && values.P < SmallP;
    return RowText(small ? layout.SmallPRow : layout.Row, values);
}

void BuildChart(RetroVariable variable, const SweepRange& range, const char* labelPattern) {
    const std::ptrdiff_t steps = ws.BandwidthCount;
    ws.ChartData.ReDim(steps - 1, 1);
    ws.ChartLabels.clear();
    double x = range.From; // from the typed value, 0 included
    for (std::ptrdiff_t k = 0; k < steps; ++k) {
        ws.ChartData(k, 0) = MapsScore(variable) ? ws.SweepChi(k) : ws.SweepStat(k);
        ws.ChartData(k, 1) = MapsScore(variable) ? ws.SweepChiCritical(k) : ws.SweepMCritical(k);
        ws.ChartLabels.push_back(Num(x, labelPattern));
        x = x + range.Step;
    }
}

} // namespace

bool RunSweep(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules,
              const std::function<void(const std::string&)>& addRow) {
    SweepRange range;
    if (!TakeSweepRange(texts, range)) return false;
    ws.BandwidthCount = SweepStepCount(range);
    if (ws.CurrentSigma == 0) ws.CurrentSigma = SigmaForZero;
    if (rules.TakesNumTextRegion) ws.NumRegion = RoundToInt32(ws.NumTextRegion);
    ws.StatisticTable.Clear();
    PrepareRun(variable);
    RequireMemoryForTables(TablesOfRun(MapsScore(variable)), BytesOfStatisticTable());
    Allocate();
    platform().SetBusyPointer(true);

    const SweepLayout& layout = rules.SweepOf(variable);
    addRow(RowText(layout.Heading, {}));
    addRow(Dashes(DashCount));
    for (std::ptrdiff_t k = 0; k < ws.BandwidthCount; ++k) {
        RunSweepProcedures(variable);
        RowValues values = StepValues(variable);
        // The clamp comes after the computation: what overshoots is printed and stored as the end.
        if (ws.CurrentSigma > ws.SigmaTo) ws.CurrentSigma = ws.SigmaTo;
        values.Sigma = ws.CurrentSigma;
        addRow(StepRow(variable, layout, values));
        StoreStep(variable, k, values);
        ws.CurrentSigma = ws.CurrentSigma + range.Step;
    }
    addRow(Dashes(DashCount));
    BuildChart(variable, range, rules.ChartLabelPattern);
    return true;
}

std::ptrdiff_t SweepStepOfRow(std::ptrdiff_t row) {
    const std::ptrdiff_t step = row - TitleRows;
    return step >= 0 && step < ws.BandwidthCount ? step : -1;
}

void TakeSweepValues(std::ptrdiff_t k) {
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        ws.DisplayClassValues(i) = ws.DisplayDrawValues(i) = ws.StatisticTable(i, k);
}

void SelectSweepStep(std::ptrdiff_t k) {
    TakeSweepValues(k);
    ws.CurrentSigma = ws.BandwidthList(k);
}

const char* SweepStatCaption(RetroVariable variable) {
    return MapsScore(variable) ? "Chi" : "M";
}
const char* SweepCriticalCaption(RetroVariable variable) {
    return MapsScore(variable) ? "Chi*" : "M*";
}

} // namespace vastrel
