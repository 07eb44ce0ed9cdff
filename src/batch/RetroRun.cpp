#include "batch/RetroRun.h"

#include "batch/JoinedParts.h"
#include "batch/Pictures.h"
#include "batch/SweepPart.h"
#include "core/display/LegendClasses.h"
#include "core/display/PointMap.h"
#include "core/layer/CsvTable.h"
#include "core/layer/RetroLayer.h"
#include "core/retrospective/RangeReport.h"
#include "core/retrospective/RetroProcedures.h"
#include "core/retrospective/SingleReport.h"
#include "core/text/Numbers.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

RetroRun::RetroRun(const RetroOptions& options, const ProgramOptions& program, const RetroRules& rules)
    : options_(options), program_(program), rules_(rules), variable_(options.ChosenVariable()) {}

ExitStatus RetroRun::Run() {
    if (!Load()) return ExitStatus::Refused;
    ws.AlphaLevel = ToNumber(options_.Alpha);
    if (!(options_.IsRange() ? RunRange() : RunSingle())) return ExitStatus::Refused;
    outputs_.Write();
    return ExitStatus::Done;
}

namespace {

/// What one bandwidth takes, roughly: the fit of the page on speed.
double GuessedSeconds(RetroVariable variable, double n) {
    return MapsScore(variable) ? 0.1329e-9 * n * n * n + 56e-9 * n * n : 17e-9 * n * n;
}

} // namespace

/// All texts have passed, and the work begins.
void RetroRun::BeginSteps(std::ptrdiff_t count) {
    program_.Parts->Require(ws.BandwidthCount, ws.NumRegion);
    if (LooksLikeDegrees()) NoteDegrees(program_);
    progress_.emplace(program_, count,
                      GuessedSeconds(variable_, static_cast<double>(ws.RegionCentroid.UpperBound())));
}

bool RetroRun::RunSingle() {
    if (!TakeSingleSigma(options_.Sigma)) return false;
    BeginSteps(1);
    RunSingleProcedures(variable_);
    progress_.reset();
    const ResultLists lists = FillLists(variable_, rules_);
    auto json = Dataset(); // before the map, whose drawing puts plotted points in Region order again
    BuildLegend(MapClassValues(variable_), variable_);
    AddMap(MapDrawValues(variable_));
    if (!options_.Json.empty()) {
        AddSingleJson(json, variable_);
        AddLegendJson(
            json, MapDrawValues(variable_), [this](double value) { return ClassOfValue(value); },
            LegendTexts());
    }
    AddTexts(lists, json);
    AddRows();
    return true;
}

bool RetroRun::RunRange() {
    ResultLists lists;
    const auto addRow = [&](const std::string& row) {
        lists.Global.push_back(row);
        if (progress_)
            progress_->StepDone();
        else if (std::ssize(lists.Global) == SweepTitleRows)
            BeginSteps(Share().CountOf(ws.BandwidthCount));
    };
    if (!RunSteps(addRow)) return false;
    progress_.reset();
    if (options_.IsPart()) {
        outputs_.Add(options_.State, BytesOfPart(Record().HeaderOfWhole(), Share()));
        return true;
    }
    if (options_.MapStep > ws.BandwidthCount)
        throw WrongUse("--map-step is beyond the last step, " + std::to_string(ws.BandwidthCount) + ".");
    auto json = Dataset();
    AddSweepJson(json);
    AddTexts(lists, json);
    AddRows();
    AddChart();
    if (options_.Map.empty()) return true;
    SelectSweepStep(options_.MapStep - 1);
    BuildLegend(ws.DisplayClassValues, variable_);
    AddMap(ws.DisplayDrawValues);
    return true;
}

SweepShare RetroRun::Share() const {
    return options_.IsPart() ? ParseShare(options_.Part) : SweepShare();
}

bool RetroRun::RunSteps(const std::function<void(const std::string&)>& addRow) {
    const JoinedParts& parts = *program_.Parts;
    if (parts.IsEmpty()) return RunSweepShare(variable_, options_.Range, rules_, Share(), addRow);
    return JoinSweep(
        variable_, options_.Range, rules_,
        [&](std::ptrdiff_t k) -> const SweepStep& { return parts.Step(k); }, addRow);
}

void RetroRun::AddMap(const Array1<double>& values) {
    if (!options_.Map.empty()) outputs_.Add(options_.Map, MapPicture(options_.Map, values));
}

void RetroRun::AddChart() {
    if (options_.Chart.empty()) return;
    const ChartPicture chart{ws.ChartData,
                             ws.ChartLabels,
                             {SweepStatCaption(variable_), SweepCriticalCaption(variable_)},
                             BandwidthAxisTitle};
    outputs_.Add(options_.Chart, DrawChart(options_.Chart, chart));
}

void RetroRun::AddReport() {
    if (options_.Report.empty()) return;
    const auto lines = options_.IsRange() ? RangeReport(variable_, rules_) : SingleReport(variable_, rules_);
    outputs_.Add(options_.Report, JoinLines(lines));
}

void RetroRun::AddRows() {
    const bool range = options_.IsRange();
    const LayerOptions& asked = options_.Layer;
    if (!asked.Layer.empty())
        AddLayer(outputs_, asked.Layer,
                 LayerOfStore(range ? RangeRows(rules_) : SingleRows(variable_, rules_), rules_),
                 program_.Quiet);
    if (!asked.Table.empty())
        outputs_.Add(asked.Table, CsvText(range ? RangeRowsByStep(rules_) : SingleRows(variable_, rules_)));
}

void RetroRun::AddTexts(const ResultLists& lists, const nlohmann::ordered_json& json) {
    const bool nothingAsked = options_.AsksForNothing();
    if (nothingAsked || !options_.Lists.empty())
        outputs_.Add(nothingAsked ? "-" : options_.Lists, ListsText(lists.Global, lists.Local));
    AddReport();
    if (!options_.Json.empty()) outputs_.Add(options_.Json, JsonText(Record().Header(), json));
}

std::vector<std::string> RangeTexts() {
    std::vector<std::string> texts;
    for (int i = 0; i <= LegendLimitCount; ++i)
        texts.push_back(RangeText(i));
    return texts;
}

} // namespace vastrel
