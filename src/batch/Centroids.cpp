#include "core/spatial/Centroids.h"
#include "batch/Command.h"
#include "batch/Outputs.h"
#include "batch/PolygonInput.h"
#include "core/spatial/CentroidFile.h"

#include <memory>

namespace vastrel {

namespace {

ExitStatus RunCentroids(const std::string& file, const std::string& out) {
    if (!OpenPolygonInput(file)) return ExitStatus::Refused;
    ComputeShapeAreas();
    ComputeCentroids();
    Outputs outputs;
    outputs.Add(out, CentroidFileText());
    outputs.Write();
    return ExitStatus::Done;
}

} // namespace

void AddCentroids(CLI::App& program, const ProgramOptions&, RunCommand& run) {
    auto* command = program.add_subcommand("centroids", "The centroids of a polygon shapefile");
    auto file = std::make_shared<std::string>();
    auto out = std::make_shared<std::string>();
    command->add_option("FILE", *file, "a polygon shapefile (.shp)")->required();
    command->add_option("--out", *out, "the centroid file to write; - is standard output")->required();
    command->callback([=, &run] { run = [=] { return RunCentroids(*file, *out); }; });
}

} // namespace vastrel
