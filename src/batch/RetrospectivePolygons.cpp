#include "batch/Pictures.h"
#include "batch/PolygonInput.h"
#include "batch/RetroRun.h"
#include "core/display/LegendClasses.h"
#include "core/display/MapSizes.h"
#include "core/display/PolygonPainter.h"

#include <memory>

namespace vastrel {

namespace {

struct PolygonOptions : RetroOptions {
    std::string File;
    CountOptions Columns;
};

/// What the polygon screen does, from the choice of the shapefile on.
class PolygonRun : public RetroRun {
public:
    PolygonRun(const PolygonOptions& options, const ProgramOptions& program)
        : RetroRun(options, program, PolygonRules()), options_(options) {}

protected:
    bool Load() override {
        if (!OpenForRetrospective(options_.File, options_.Columns)) return false;
        Record().TookShapefile(options_.File);
        return true;
    }

    bool LooksLikeDegrees() const override { return HasDegrees(AbsolutePath(options_.File)); }

    std::string MapPicture(const std::string& path, const Array1<double>& values) override {
        return DrawPicture(path, PolygonMapSurface(), PolygonPictureScale,
                           [&](PlotSurface& surface) { DrawStatisticMap(surface, values); });
    }

    int ClassOfValue(double value) const override { return ClassOf(value); }

    std::vector<std::string> LegendTexts() const override {
        if (MapsScore(Variable())) return RangeTexts();
        std::vector<std::string> texts;
        for (int i = 0; i <= LegendLimitCount; ++i)
            texts.push_back(MLegendText(i));
        return texts;
    }

private:
    const PolygonOptions& options_;
};

} // namespace

void AddRetrospectivePolygons(CLI::App& program, const ProgramOptions& programOptions, RunCommand& run) {
    auto* command = program.add_subcommand("retrospective-polygons", "Score and M test on a shapefile");
    auto options = std::make_shared<PolygonOptions>();
    command->add_option("FILE", options->File, "a polygon shapefile (.shp) with its table")->required();
    options->Columns.AddTo(*command);
    options->AddTo(*command);
    command->callback([options, &programOptions, &run] {
        run = [options, &programOptions] {
            options->Columns.Check();
            options->Check(!options->Columns.IDs.ID2.empty());
            return PolygonRun(*options, programOptions).Run();
        };
    });
}

} // namespace vastrel
