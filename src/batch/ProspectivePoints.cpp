#include "batch/Pictures.h"
#include "batch/WatchCommand.h"
#include "core/display/MapSizes.h"
#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "core/prospective/CusumChart.h"
#include "core/prospective/CusumInput.h"
#include "core/prospective/CusumRows.h"

#include <map>
#include <memory>

namespace vastrel {

namespace {

const std::map<std::string, StartOption> Starts{
    {"zero", StartOption::Zero}, {"fir", StartOption::FIR}, {"previous", StartOption::Previous}};

struct PointWatchOptions : WatchOptions {
    std::string IDs, ZScores, Previous;
    std::string Start;
    std::string Surface = SurfaceText(ProspectivePointSurface());
    double Zoom = ProspectivePointMapZoom.Start;
    const CLI::Option* PreviousOption = nullptr;
    CLI::Option* StartOptionGiven = nullptr;

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

/// What the point screen does, from its file buttons on.
class PointWatchRun : public WatchCommand {
public:
    PointWatchRun(const PointWatchOptions& options, const ProgramOptions& program)
        : WatchCommand(options, program), options_(options), start_(options.ChosenStart()),
          map_(options.Zoom), size_(ParseSurface(options.Surface)) {}

protected:
    bool Load() override {
        ws.bTextfileData = true;
        if (!LoadFiles()) return false;
        map_.X = watch_.RegionX;
        map_.Y = watch_.RegionY;
        PlotAllPoints(map_.View, size_, map_.X, map_.Y);
        return true;
    }

    bool LooksLikeDegrees() const override {
        const std::ptrdiff_t last = watch_.RegionX.UpperBound();
        return AreDegrees(last, [this](std::ptrdiff_t i) {
            return Place{watch_.RegionX(i), watch_.RegionY(i)};
        });
    }

    bool RunTest() override {
        TakeCusumSigma(options_.Parameters.Sigma);
        RunPointCusum(watch_, start_);
        return true;
    }

    CusumOutputs Results() override { return watch_.Outputs(start_); }
    std::ptrdiff_t RegionCount() const override { return watch_.N; }
    std::ptrdiff_t PeriodCount() const override { return watch_.PeriodCount(start_); }
    double StudyArea() const override { return watch_.StudyArea; }
    Array1<std::string> SignalLabels() override { return Results().RegionLabel; }

    void BeginChart() override {
        if (start_ == StartOption::Previous)
            ChartSetPrev(PeriodCount(), ws.HValue,
                         ColumnMaxima(watch_.OldCusum, watch_.OldRowCount, SavedPeriods()), SavedPeriods());
        else
            ChartSet(PeriodCount(), ws.HValue);
    }

    std::string PlayPeriod(std::ptrdiff_t t) override {
        const CusumOutputs results = Results();
        if (t > SavedPeriods()) ChartUpdate(t, results.MaxCusum(t));
        return PeriodRow(t, results.MaxCusum(t), results.MaxRegion(t));
    }

    WatchRegions Regions() override { return PointWatchRegions(watch_, start_); }
    Layer LayerOf(ResultTable rows) const override { return PointLayer(std::move(rows)); }

    std::string PeriodMap(const std::string& path, std::ptrdiff_t t) override {
        return DrawPicture(path, size_, 1, [&](PlotSurface& surface) {
            map_.DrawCusumPoints(surface, Results().Cusum, watch_.N, t, ws.HValue);
        });
    }

private:
    bool LoadFiles() {
        if (!Read(options_.IDs, [this](const auto& file) { return LoadIDXY(watch_, file); })) return false;
        if (options_.GoesOn() &&
            !Read(options_.Previous, [this](const auto& file) { return LoadOldCusum(watch_, file); }))
            return false;
        return Read(options_.ZScores, [this](const auto& file) { return LoadNewZScore(watch_, file); });
    }

    /// An empty path is that of no file, which the load refuses.
    template <typename Load>
    bool Read(const std::string& path, Load load) {
        if (path.empty()) return load(path);
        const TextFile file(AbsolutePath(path));
        Record().TookText(path, file);
        return load(file);
    }

    std::ptrdiff_t SavedPeriods() const { return PeriodCount() - watch_.NewPeriodCount; }

    const PointWatchOptions& options_;
    StartOption start_;
    PointCusum watch_;
    PointMap map_;
    SurfaceSize size_;
};

} // namespace

void AddProspectivePoints(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand("prospective-points", "Cusum test on point text files");
    auto options = std::make_shared<PointWatchOptions>();
    command->add_option("--ids", options->IDs, "three columns: id, x and y")->required();
    command->add_option("--z", options->ZScores, "z-scores: a line for each id, a column a period")
        ->required();
    options->PreviousOption =
        command->add_option("--previous", options->Previous, "saved cusums to continue from, like --z");
    options->StartOptionGiven =
        command->add_option("--start", options->Start, "zero, fir or previous")->check(CLI::IsMember(Starts));
    options->StartOptionGiven->default_str("zero");
    options->AddTo(*command);
    command->add_option("--surface", options->Surface, "W,H,SW,SH: sizes of the plot surface")
        ->capture_default_str()
        ->group("Test");
    command->add_option("--zoom", options->Zoom, "zoom of the map")->capture_default_str()->group("Test");
    command->callback([options, &programOptions, &run] {
        if (options->GoesOn()) options->StartOptionGiven->default_str("previous");
        run = [options, &programOptions] {
            options->CheckAll();
            return PointWatchRun(*options, programOptions).Run();
        };
    });
}

} // namespace vastrel
