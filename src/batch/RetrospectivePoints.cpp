#include "batch/Command.h"
#include "batch/Outputs.h"
#include "batch/Pictures.h"
#include "batch/Progress.h"
#include "batch/RetroResults.h"
#include "display/LegendClasses.h"
#include "display/PointMap.h"
#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "platform/TextFile.h"
#include "retrospective/PointDataset.h"
#include "retrospective/ResultLists.h"
#include "retrospective/RetroReport.h"
#include "retrospective/Sweep.h"

#include <memory>

namespace vastrel {

namespace {

struct PointOptions : RetroOptions {
    std::string File;
    std::string Format;
    std::string Surface;
    double Zoom = RetroPointZoom;
    const ProgramOptions* Program = nullptr;
};

/// One call of the command: what the point screen does from Load Data to Save, in its order.
class PointRun {
public:
    explicit PointRun(const PointOptions& options)
        : options_(options), variable_(options.ChosenVariable()), map_(options.Zoom),
          size_(options.Surface.empty() ? RetroPointSurface() : ParseSurface(options.Surface)) {}

    ExitStatus Run() {
        ws.bTextfileData = true;
        ws.AlphaLevel = ToNumber(options_.Alpha);
        if (!Load()) return ExitStatus::Refused;
        map_.TakeCentroids(static_cast<std::ptrdiff_t>(ws.NumTextRegion));
        PlotAllPoints(map_.View, size_, map_.X, map_.Y);
        if (!(options_.IsRange() ? RunRange() : RunSingle())) return ExitStatus::Refused;
        outputs_.Write();
        return ExitStatus::Done;
    }

private:
    bool Load() {
        const auto format = options_.Format == "obs-exp" ? PointFormat::ObsExp : PointFormat::PopCase;
        if (LoadPointDataset(AbsolutePath(options_.File), format)) return true;
        Warn(WrongPointFormat);
        return false;
    }

    bool RunSingle() {
        if (!TakeSingleSigma(options_.Sigma)) return false;
        RunSingleProcedures(variable_);
        const ResultLists lists = FillLists(variable_, PointRules());
        auto json =
            PointJson(); // before the map, whose drawing puts the plotted points in Region order again
        BuildLegend(MapClassValues(variable_), variable_);
        AddMap(MapDrawValues(variable_));
        if (!options_.Json.empty()) {
            AddSingleJson(json, variable_);
            AddLegendJson(json, variable_, PointClassOf, LegendTexts());
        }
        AddTexts(lists,
                 options_.Report.empty() ? std::vector<std::string>() : SingleReport(variable_, PointRules()),
                 json);
        return true;
    }

    bool RunRange() {
        ResultLists lists;
        Progress progress(*options_.Program);
        const auto addRow = [&](const std::string& row) {
            lists.Global.push_back(row);
            progress.Show(row);
        };
        if (!RunSweep(variable_, options_.Range, PointRules(), addRow)) return false;
        if (options_.MapStep > ws.BandwidthCount)
            throw WrongUse("--map-step is beyond the last step, " + std::to_string(ws.BandwidthCount) + ".");
        auto json = PointJson();
        AddSweepJson(json);
        AddChart();
        AddTexts(lists, RangeReport(variable_, PointRules()), json);
        if (!options_.Map.empty()) {
            SelectSweepStep(options_.MapStep - 1);
            BuildLegend(ws.DisplayClassValues, variable_);
            AddMap(ws.DisplayDrawValues);
        }
        return true;
    }

    nlohmann::ordered_json PointJson() const {
        auto json = DatasetJson();
        auto plotted = nlohmann::ordered_json::array();
        for (std::ptrdiff_t i = 1; i <= ws.PlottedPoints.UpperBound(); ++i)
            plotted.push_back({ws.PlottedPoints(i).X, ws.PlottedPoints(i).Y});
        json["PlottedPoints"] = plotted;
        json["ScaleX"] = ws.ScaleX;
        json["ScaleY"] = ws.ScaleY;
        return json;
    }

    std::vector<std::string> LegendTexts() const {
        std::vector<std::string> texts;
        for (int i = 0; MapsScore(variable_) && i <= LegendLimitCount; ++i)
            texts.push_back(RangeText(i));
        return texts;
    }

    void AddMap(const Array1<double>& values) {
        if (options_.Map.empty()) return;
        outputs_.Add(options_.Map, DrawPicture(options_.Map, size_, 1, [&](PlotSurface& surface) {
                         map_.DrawStatisticPointsFrom(surface, values);
                     }));
    }

    void AddChart() {
        if (options_.Chart.empty()) return;
        outputs_.Add(options_.Chart, DrawChart(options_.Chart, {ws.ChartData,
                                                                ws.ChartLabels,
                                                                {SweepStatCaption(variable_),
                                                                 SweepCriticalCaption(variable_)},
                                                                "Bandwidth(Sigma)"}));
    }

    void AddTexts(const ResultLists& lists, const std::vector<std::string>& report,
                  const nlohmann::ordered_json& json) {
        const bool nothingAsked = options_.Lists.empty() && options_.Report.empty() && options_.Map.empty() &&
                                  options_.Chart.empty() && options_.Json.empty();
        if (nothingAsked || !options_.Lists.empty())
            outputs_.Add(nothingAsked ? "-" : options_.Lists, ListsText(lists.Global, lists.Local));
        if (!options_.Report.empty()) outputs_.Add(options_.Report, JoinLines(report));
        if (!options_.Json.empty()) outputs_.Add(options_.Json, JsonText(json));
    }

    const PointOptions& options_;
    RetroVariable variable_;
    PointMap map_;
    SurfaceSize size_;
    Outputs outputs_;
};

} // namespace

void AddRetrospectivePoints(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand("retrospective-points", "Score and M test on a point text file");
    auto options = std::make_shared<PointOptions>();
    options->Program = &programOptions;
    command->add_option("FILE", options->File, "five columns: id, x, y and two counts")->required();
    command->add_option("--format", options->Format, "obs-exp or pop-case")
        ->required()
        ->check(CLI::IsMember({"obs-exp", "pop-case"}));
    options->AddTo(*command);
    command->add_option("--surface", options->Surface, "W,H,SW,SH: sizes of the plot surface")->group("Test");
    command->add_option("--zoom", options->Zoom, "zoom of the map")->capture_default_str()->group("Test");
    command->callback([options, &run] {
        run = [options] {
            options->Check();
            return PointRun(*options).Run();
        };
    });
}

} // namespace vastrel
