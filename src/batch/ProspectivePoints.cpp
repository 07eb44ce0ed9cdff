#include "batch/Pictures.h"
#include "batch/Progress.h"
#include "batch/WatchResults.h"
#include "display/PointMap.h"
#include "platform/TextFile.h"
#include "prospective/CusumChart.h"
#include "prospective/CusumFile.h"
#include "prospective/CusumInput.h"
#include "prospective/CusumRows.h"

#include <map>
#include <memory>

namespace vastrel {

namespace {

const std::map<std::string, StartOption> Starts{
    {"zero", StartOption::Zero}, {"fir", StartOption::FIR}, {"previous", StartOption::Previous}};

struct PointWatchOptions : WatchOptions {
    std::string IDs, ZScores, Previous;
    std::string Start;
    std::string Surface;
    double Zoom = ProspectivePointZoom;
    const ProgramOptions* Program = nullptr;
    const CLI::Option* PreviousOption = nullptr;
    const CLI::Option* StartOptionGiven = nullptr;

    bool GoesOn() const { return PreviousOption->count() > 0; }

    StartOption ChosenStart() const {
        if (StartOptionGiven->count() == 0) return GoesOn() ? StartOption::Previous : StartOption::Zero;
        return Starts.at(Start);
    }

    void CheckAll() const {
        Check();
        const bool previous = ChosenStart() == StartOption::Previous;
        if (previous && !GoesOn()) throw WrongUse("--start previous needs --previous.");
        if (!previous && GoesOn()) throw WrongUse("--previous goes with --start previous.");
    }
};

/// One call of the command: what the point screen does from its file buttons to Save, in its order.
class PointWatchRun {
public:
    explicit PointWatchRun(const PointWatchOptions& options)
        : options_(options), start_(options.ChosenStart()), map_(options.Zoom),
          size_(options.Surface.empty() ? ProspectivePointSurface() : ParseSurface(options.Surface)) {}

    ExitStatus Run() {
        ws.bTextfileData = true;
        if (!Load()) return ExitStatus::Refused;
        map_.X = watch_.RegionX;
        map_.Y = watch_.RegionY;
        PlotAllPoints(map_.View, size_, map_.X, map_.Y);
        if (!TakeCusumParameters(options_.Parameters)) return ExitStatus::Refused;
        TakeCusumSigma(options_.Parameters.Sigma);
        RunPointCusum(watch_, start_);
        AddOutputs();
        outputs_.Write();
        return ExitStatus::Done;
    }

private:
    bool Load() {
        if (!LoadIDXY(watch_, AbsolutePath(options_.IDs))) return false;
        if (options_.GoesOn() && !LoadOldCusum(watch_, AbsolutePath(options_.Previous))) return false;
        return LoadNewZScore(watch_, AbsolutePath(options_.ZScores));
    }

    void AddOutputs() {
        const CusumOutputs run = watch_.Outputs(start_);
        const std::ptrdiff_t periods = watch_.PeriodCount(start_);
        AddWatchTexts(outputs_, options_,
                      {run, run.RegionLabel, watch_.N, periods, watch_.StudyArea, PlayPeriods(run, periods)});
        if (!options_.Cusum.empty())
            outputs_.Add(options_.Cusum, JoinLines(CusumFileLines(run.Cusum, watch_.N, periods)));
        AddWatchChart(outputs_, options_.Chart);
        AddMaps(run, periods);
    }

    /// The rows of the period list, with the chart filled beside them.
    std::vector<std::string> PlayPeriods(const CusumOutputs& run, std::ptrdiff_t periods) const {
        const std::ptrdiff_t saved = periods - watch_.NewPeriodCount;
        if (start_ == StartOption::Previous)
            ChartSetPrev(periods, ws.HValue, ColumnMaxima(watch_.OldCusum, watch_.OldRowCount, saved), saved);
        else
            ChartSet(periods, ws.HValue);
        const Progress progress(*options_.Program);
        auto rows = PeriodTitleRows();
        for (std::ptrdiff_t t = 1; t <= periods; ++t) {
            if (t > saved) ChartUpdate(t, run.MaxCusum(t));
            rows.push_back(PeriodRow(t, run.MaxCusum(t), run.MaxRegion(t)));
            progress.Show(rows.back());
        }
        rows.push_back(CusumDashes());
        return rows;
    }

    void AddMaps(const CusumOutputs& run, std::ptrdiff_t periods) {
        if (options_.Maps.empty()) return;
        outputs_.AddFolder(options_.Maps);
        for (std::ptrdiff_t t = 1; t <= periods; ++t) {
            const std::string path = PeriodPicture(options_.Maps, t, periods);
            outputs_.Add(path, DrawPicture(path, size_, 1, [&](PlotSurface& surface) {
                             map_.DrawCusumPoints(surface, run.Cusum, watch_.N, t, ws.HValue);
                         }));
        }
    }

    const PointWatchOptions& options_;
    StartOption start_;
    PointCusum watch_;
    PointMap map_;
    SurfaceSize size_;
    Outputs outputs_;
};

} // namespace

void AddProspectivePoints(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand("prospective-points", "Cusum test on point text files");
    auto options = std::make_shared<PointWatchOptions>();
    options->Program = &programOptions;
    command->add_option("--ids", options->IDs, "three columns: id, x and y")->required();
    command->add_option("--z", options->ZScores, "z-scores: a line for each id, a column a period")
        ->required();
    options->PreviousOption =
        command->add_option("--previous", options->Previous, "saved cusums to continue from, like --z");
    options->StartOptionGiven =
        command->add_option("--start", options->Start, "zero, fir or previous")->check(CLI::IsMember(Starts));
    options->AddTo(*command);
    command->add_option("--surface", options->Surface, "W,H,SW,SH: sizes of the plot surface")->group("Test");
    command->add_option("--zoom", options->Zoom, "zoom of the map")->capture_default_str()->group("Test");
    command->callback([options, &run] {
        run = [options] {
            options->CheckAll();
            return PointWatchRun(*options).Run();
        };
    });
}

} // namespace vastrel
