#include "core/retrospective/Sweep.h"

#include "core/platform/Platform.h"
#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/ResultLists.h"
#include "core/retrospective/RetroProcedures.h"
#include "core/retrospective/Weights.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

#include <optional>

namespace vastrel {

namespace {

constexpr int DashCount = 50;

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

/// The step at CurrentSigma.
SweepStep ComputedStep(RetroVariable variable) {
    RunSweepProcedures(variable);
    SweepStep step;
    if (MapsScore(variable)) {
        step.Stat = variable == RetroVariable::Unadjusted ? ws.GlobalU : ws.GlobalUAdjusted;
        step.Chi = ws.ScoreChi;
        step.DF = ws.ScoreDF;
    }
    if (HasM(variable)) (MapsScore(variable) ? step.MaxM : step.Stat) = MaxLocalM();
    step.Local = LocalValues(variable);
    return step;
}

/// The values of a step's row, taken at the bandwidth of its computation.
RowValues StepValues(RetroVariable variable, const SweepStep& step) {
    RowValues values;
    if (MapsScore(variable)) {
        values.Stat = step.Stat;
        values.Chi = step.Chi;
        values.DF = step.DF;
        values.P = ChiSquarePValue(step.Chi, step.DF);
    }
    if (HasM(variable)) {
        values.M = MapsScore(variable) ? step.MaxM : step.Stat;
        values.MCritical = MCritical();
    }
    return values;
}

void StoreStep(RetroVariable variable, std::ptrdiff_t k, const SweepStep& step, const RowValues& values) {
    ws.BandwidthList(k) = values.Sigma;
    ws.SweepStat(k) = step.Stat;
    ws.SweepMCritical(k) = values.MCritical;
    if (MapsScore(variable)) {
        ws.SweepChi(k) = step.Chi;
        ws.SweepChiCritical(k) = ChiCritical(ws.AlphaLevel, step.DF);
        ws.SweepDF(k) = step.DF;
        ws.SweepPValue(k) = values.P;
        ws.SweepMaxM(k) = step.MaxM;
    }
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        ws.StatisticTable(i, k) = step.Local(i);
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

/// Where the steps come from.
struct StepSource {
    bool Computes;                                                  // and needs the tables of the weights
    std::function<std::optional<SweepStep>(std::ptrdiff_t k)> Step; // none where another share holds it
};

void MakeRoom(RetroVariable variable, bool computes) {
    ws.StatisticTable.Clear();
    if (computes)
        PrepareRun(variable);
    else
        TakePointDataset();
    RequireMemoryForTables(computes ? TablesOfRun(MapsScore(variable)) : 0, BytesOfStatisticTable());
    Allocate();
}

bool Sweep(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules, const StepSource& source,
           const std::function<void(const std::string&)>& addRow) {
    SweepRange range;
    if (!TakeSweepRange(texts, range)) return false;
    ws.BandwidthCount = SweepStepCount(range);
    if (ws.CurrentSigma == 0) ws.CurrentSigma = SigmaForZero;
    if (rules.TakesNumTextRegion) ws.NumRegion = RoundToInt32(ws.NumTextRegion);
    MakeRoom(variable, source.Computes);
    const TableMemoryScope scope;
    platform().SetBusyPointer(true);

    const SweepLayout& layout = rules.SweepOf(variable);
    addRow(RowText(layout.Heading, {}));
    addRow(Dashes(DashCount));
    for (std::ptrdiff_t k = 0; k < ws.BandwidthCount; ++k) {
        const auto step = source.Step(k);
        RowValues values = step ? StepValues(variable, *step) : RowValues();
        // The clamp comes after the computation: what overshoots is printed and stored as the end.
        if (ws.CurrentSigma > ws.SigmaTo) ws.CurrentSigma = ws.SigmaTo;
        values.Sigma = ws.CurrentSigma;
        if (step) {
            addRow(StepRow(variable, layout, values));
            StoreStep(variable, k, *step, values);
        }
        ws.CurrentSigma = ws.CurrentSigma + range.Step;
    }
    addRow(Dashes(DashCount));
    BuildChart(variable, range, rules.ChartLabelPattern);
    return true;
}

} // namespace

bool RunSweep(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules,
              const std::function<void(const std::string&)>& addRow) {
    return RunSweepShare(variable, texts, rules, {}, addRow);
}

bool RunSweepShare(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules,
                   const SweepShare& share, const std::function<void(const std::string&)>& addRow) {
    const auto step = [&](std::ptrdiff_t k) -> std::optional<SweepStep> {
        return share.Holds(k) ? std::optional(ComputedStep(variable)) : std::nullopt;
    };
    return Sweep(variable, texts, rules, {true, step}, addRow);
}

bool JoinSweep(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules,
               const std::function<const SweepStep&(std::ptrdiff_t)>& step,
               const std::function<void(const std::string&)>& addRow) {
    const auto given = [&](std::ptrdiff_t k) { return std::optional(step(k)); };
    if (!Sweep(variable, texts, rules, {false, given}, addRow)) return false;
    for (auto* values : {&ws.DisplayClassValues, &ws.DisplayDrawValues})
        values->ReDim(ws.NumRegion);
    return true;
}

SweepStep StepOfSweep(std::ptrdiff_t k) {
    SweepStep step{ws.SweepStat(k), ws.SweepChi(k), ws.SweepDF(k), ws.SweepMaxM(k), {}};
    step.Local.ReDim(ws.NumRegion);
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        step.Local(i) = ws.StatisticTable(i, k);
    return step;
}

std::ptrdiff_t SweepStepOfRow(std::ptrdiff_t row) {
    const std::ptrdiff_t step = row - SweepTitleRows;
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
