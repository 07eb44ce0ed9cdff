#include "batch/Pictures.h"
#include "batch/PolygonInput.h"
#include "batch/WatchCommand.h"
#include "core/display/MapSizes.h"
#include "core/display/PolygonPainter.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumInput.h"
#include "core/prospective/PolygonCusum.h"
#include "core/prospective/PolygonPeriods.h"
#include "core/prospective/PolygonSource.h"
#include "core/workspace/Workspace.h"

#include <filesystem>
#include <map>
#include <memory>

namespace vastrel {

namespace {

const std::map<std::string, ShownPeriods> Shows{{"current", ShownPeriods::New},
                                                {"both", ShownPeriods::SavedAndNew}};

struct PolygonWatchOptions : WatchOptions {
    std::string File;
    std::vector<std::string> Fields;
    std::string ZScores, Previous;
    std::string Show = "current";
    IDColumns IDs;
    CLI::Option* FieldsOption = nullptr;
    CLI::Option* ZOption = nullptr;
    CLI::Option* PreviousOption = nullptr;

    ZSource Source() const { return FieldsOption->count() > 0 ? ZSource::Fields : ZSource::Text; }
    bool GoesOn() const { return PreviousOption->count() > 0; }
    StartOption Start() const { return GoesOn() ? StartOption::Previous : StartOption::Zero; }

    void CheckAll() const {
        Check();
        if (FieldsOption->count() == 0 && ZOption->count() == 0) throw WrongUse("Give --fields or --z.");
    }
};

/// What the polygon screen does, from the choice of the shapefile on.
class PolygonWatchRun : public WatchCommand {
public:
    PolygonWatchRun(const PolygonWatchOptions& options, const ProgramOptions& program)
        : WatchCommand(options, program), options_(options), shown_(Shows.at(options.Show)) {}

protected:
    bool Load() override {
        if (!OpenForProspective(options_.File, options_.IDs)) return false;
        Record().TookShapefile(options_.File);
        if (options_.Source() == ZSource::Text) return true;
        const int first = ColumnNumber(options_.Fields.front()), last = ColumnNumber(options_.Fields.back());
        return TakeStartField(first, options_.Fields.front()) && TakeEndField(last, options_.Fields.back());
    }

    bool LooksLikeDegrees() const override { return HasDegrees(AbsolutePath(options_.File)); }

    bool RunTest() override {
        if (options_.GoesOn() && !options_.Previous.empty()) {
            const TextFile file(AbsolutePath(options_.Previous));
            Record().TookText(options_.Previous, file);
            ReadCusumFile(file);
        }
        ws.bCusumRun = true;
        const bool fields = options_.Source() == ZSource::Fields;
        if (!fields && !ReadText()) return false;
        Table<double> z;
        if (fields) ReadFieldZScores(z);
        TakeCusumSigma(options_.Parameters.Sigma);
        RunPolygonCusum(fields ? z : ws.TextZScore, options_.Start(), RunLabels(options_.Source()));
        return true;
    }

    CusumOutputs Results() override { return PolygonOutputs(); }
    std::ptrdiff_t RegionCount() const override { return ws.NumRegion; }
    std::ptrdiff_t PeriodCount() const override { return static_cast<std::ptrdiff_t>(ws.RunPeriodCount); }
    double StudyArea() const override { return ws.TotalShapeArea; }
    Array1<std::string> SignalLabels() override { return RecordLabels(); }

    void BeginChart() override { BeginPolygonChart(shown_); }

    std::string PlayPeriod(std::ptrdiff_t t) override {
        AddPolygonPeriod(shown_, t);
        return PolygonPeriodRow(shown_, t);
    }

    WatchRegions Regions() override { return PolygonWatchRegions(); }
    Layer LayerOf(ResultTable rows) const override { return PolygonLayer(std::move(rows)); }

    std::string PeriodMap(const std::string& path, std::ptrdiff_t t) override {
        return DrawPicture(path, PolygonMapSurface(), PolygonPictureScale,
                           [t](PlotSurface& surface) { DrawCusumMap(surface, t); });
    }

private:
    /// Without a file a run from zero ends quietly; a continued one does not look and opens the folder.
    bool ReadText() const {
        if (options_.ZScores.empty() && !options_.GoesOn()) return false;
        const TextFile file(options_.ZScores.empty() ? std::filesystem::current_path().string()
                                                     : AbsolutePath(options_.ZScores));
        Record().TookText(options_.ZScores, file);
        ReadTextZScores(file);
        return true;
    }

    const PolygonWatchOptions& options_;
    ShownPeriods shown_;
};

} // namespace

void AddProspectivePolygons(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand("prospective-polygons", "Cusum test on a shapefile");
    auto options = std::make_shared<PolygonWatchOptions>();
    command->add_option("FILE", options->File, "a polygon shapefile (.shp) with its table")->required();
    options->FieldsOption =
        command->add_option("--fields", options->Fields, "first and last column of the z-scores")
            ->expected(2);
    options->ZOption = command->add_option(
        "--z", options->ZScores, "z-scores: a line for each record of the table, a column a period");
    options->ZOption->excludes(options->FieldsOption);
    options->IDs.AddTo(*command);
    options->PreviousOption =
        command->add_option("--previous", options->Previous, "cusum file to continue from (.csm)");
    command->add_option("--show", options->Show, "current or both")
        ->check(CLI::IsMember(Shows))
        ->capture_default_str()
        ->needs(options->PreviousOption);
    options->AddTo(*command);
    if (!PolygonCusumRules().SavesContinuedRun) options->PreviousOption->excludes("--cusum");
    command->callback([options, &programOptions, &run] {
        run = [options, &programOptions] {
            options->CheckAll();
            return PolygonWatchRun(*options, programOptions).Run();
        };
    });
}

} // namespace vastrel
