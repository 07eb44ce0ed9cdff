#include "RetroFlow.h"

#include "LayerCheck.h"
#include "core/display/LegendClasses.h"
#include "core/display/PointMap.h"
#include "core/layer/CsvTable.h"
#include "core/layer/RetroLayer.h"
#include "core/retrospective/RangeReport.h"
#include "core/retrospective/ResultLists.h"
#include "core/retrospective/RetroProcedures.h"
#include "core/retrospective/SingleReport.h"
#include "core/retrospective/Sweep.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

bool IsShort(const SweepTexts& texts) {
    if (!IsNumeric(texts.From) || !IsNumeric(texts.To) || !IsNumeric(texts.Step)) return true; // refused
    return SweepStepCount({ToNumber(texts.From), ToNumber(texts.To), ToNumber(texts.Step)}) <= MostSteps;
}

} // namespace

RetroChoice::RetroChoice(InputParts& parts)
    : Variable(static_cast<RetroVariable>(parts.TakeChoice(4))),
      Alpha(parts.TakeChoice(2) == 0 ? 0.05 : 0.01), Sigma(parts.TakeLine()) {
    Range.From = parts.TakeLine();
    Range.To = parts.TakeLine();
    Range.Step = parts.TakeLine();
}

void RunOneBandwidth(const RetroChoice& choice, const RetroRules& rules, const DrawValues& draw) {
    ws.AlphaLevel = choice.Alpha;
    if (!TakeSingleSigma(choice.Sigma)) return;
    RunSingleProcedures(choice.Variable);
    FillLists(choice.Variable, rules);
    BuildLegend(MapClassValues(choice.Variable), choice.Variable);
    draw(MapDrawValues(choice.Variable));
    SingleReport(choice.Variable, rules);
    CheckLayer(LayerOfStore(SingleRows(choice.Variable, rules), rules));
}

void RunRange(const RetroChoice& choice, const RetroRules& rules, const DrawValues& draw) {
    ws.AlphaLevel = choice.Alpha;
    if (!IsShort(choice.Range)) return;
    if (!RunSweep(choice.Variable, choice.Range, rules, [](const std::string&) {})) return;
    RangeReport(choice.Variable, rules);
    CheckLayer(LayerOfStore(RangeRows(rules), rules));
    CsvText(RangeRowsByStep(rules));
    for (std::ptrdiff_t k = 0; k < ws.BandwidthCount; ++k) {
        SelectSweepStep(k);
        BuildLegend(ws.DisplayClassValues, choice.Variable);
        draw(ws.DisplayDrawValues);
    }
}

} // namespace vastrel
