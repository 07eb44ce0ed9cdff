#include "batch/Pictures.h"
#include "batch/RetroRun.h"
#include "core/display/LegendClasses.h"
#include "core/display/MapSizes.h"
#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "core/platform/Platform.h"
#include "core/retrospective/PointDataset.h"

#include <memory>

namespace vastrel {

namespace {

struct PointOptions : RetroOptions {
    std::string File;
    std::string Format;
    std::string Surface = SurfaceText(RetroPointSurface());
    double Zoom = RetroPointMapZoom.Start;
};

/// What the point screen does, from Load Data on.
class PointRun : public RetroRun {
public:
    PointRun(const PointOptions& options, const ProgramOptions& program)
        : RetroRun(options, program, PointRules()), options_(options), map_(options.Zoom),
          size_(ParseSurface(options.Surface)) {}

protected:
    bool Load() override {
        ws.bTextfileData = true;
        const auto format = options_.Format == "obs-exp" ? PointFormat::ObsExp : PointFormat::PopCase;
        const TextFile file(AbsolutePath(options_.File));
        Record().TookText(options_.File, file);
        if (!LoadPointDataset(file, format)) {
            Warn(WrongPointFormat);
            return false;
        }
        map_.TakeCentroids(static_cast<std::ptrdiff_t>(ws.NumTextRegion));
        PlotAllPoints(map_.View, size_, map_.X, map_.Y);
        return true;
    }

    bool LooksLikeDegrees() const override { return HasDegrees(); }

    nlohmann::ordered_json Dataset() const override {
        auto json = DatasetJson();
        auto plotted = nlohmann::ordered_json::array();
        for (std::ptrdiff_t i = 1; i <= ws.PlottedPoints.UpperBound(); ++i)
            plotted.push_back({ws.PlottedPoints(i).X, ws.PlottedPoints(i).Y});
        json["PlottedPoints"] = plotted;
        json["ScaleX"] = ws.ScaleX;
        json["ScaleY"] = ws.ScaleY;
        return json;
    }

    std::string MapPicture(const std::string& path, const Array1<double>& values) override {
        return DrawPicture(path, size_, 1,
                           [&](PlotSurface& surface) { map_.DrawStatisticPointsFrom(surface, values); });
    }

    int ClassOfValue(double value) const override { return PointClassOf(value); }

    std::vector<std::string> LegendTexts() const override {
        return MapsScore(Variable()) ? RangeTexts() : std::vector<std::string>();
    }

private:
    const PointOptions& options_;
    PointMap map_;
    SurfaceSize size_;
};

} // namespace

void AddRetrospectivePoints(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand("retrospective-points", "Score and M test on a point text file");
    auto options = std::make_shared<PointOptions>();
    command->add_option("FILE", options->File, "five columns: id, x, y and two counts")->required();
    command->add_option("--format", options->Format, "obs-exp or pop-case")
        ->required()
        ->check(CLI::IsMember({"obs-exp", "pop-case"}));
    options->AddTo(*command);
    command->add_option("--surface", options->Surface, "W,H,SW,SH: sizes of the plot surface")
        ->capture_default_str()
        ->group("Test");
    command->add_option("--zoom", options->Zoom, "zoom of the map")->capture_default_str()->group("Test");
    command->callback([options, &programOptions, &run] {
        run = [options, &programOptions] {
            options->Check(false);
            return PointRun(*options, programOptions).Run();
        };
    });
}

} // namespace vastrel
