#include "batch/LayerOptions.h"

#include "batch/Command.h"
#include "core/spatial/ShapefileFiles.h"

#include <filesystem>
#include <iostream>

namespace vastrel {

namespace {

/// Whether two paths are one file, by whatever name; or would be one.
bool SameFile(const std::string& a, const std::string& b) {
    std::error_code ignored;
    return AbsolutePath(a) == AbsolutePath(b) || std::filesystem::equivalent(a, b, ignored);
}

/// An input and, of a shapefile, what goes with it; nothing where none is given.
std::vector<std::string> FilesOfInput(const std::string& input) {
    if (input.empty()) return {};
    if (!IsLayerPath(input)) return {input};
    auto files = FilesOfShapefile(AbsolutePath(input));
    for (const std::string& file : PathsOfLayer(input)) // the projection among them
        files.push_back(file);
    return files;
}

} // namespace

void LayerOptions::AddTo(CLI::App& command) {
    command.add_option("--layer", Layer, "the Regions with their results (.geojson or .shp)")
        ->group("Output");
    command.add_option("--table", Table, "the results as rows (.csv)")->group("Output");
}

void LayerOptions::Check(const std::vector<std::string>& inputs) const {
    if (!Layer.empty() && !IsLayerPath(Layer)) throw WrongUse(Layer + " ends in none of: .geojson .shp");
    auto outputs = Layer.empty() ? std::vector<std::string>() : PathsOfLayer(Layer);
    if (!Table.empty()) outputs.push_back(Table);
    for (const std::string& input : inputs)
        for (const std::string& file : FilesOfInput(input))
            for (const std::string& output : outputs)
                if (SameFile(file, output)) throw WrongUse(output + " is an input.");
}

void LayerOptions::RequireRoomFor(std::ptrdiff_t columns) const {
    if (!Layer.empty() && columns > MostLayerColumns(Layer))
        throw WrongUse(Layer + " would have " + std::to_string(columns) + " columns, more than " +
                       std::to_string(MostLayerColumns(Layer)) + ". Take a .geojson file or fewer steps.");
}

void AddLayer(Outputs& outputs, const std::string& path, const Layer& layer, bool quiet) {
    if (path.empty()) return;
    LayerFiles files = FilesOfLayer(path, layer);
    for (FileBytes& file : files.Files)
        outputs.Add(file.Path, std::move(file.Bytes));
    if (quiet) return;
    for (const std::string& note : files.Notes)
        std::cerr << note << '\n';
}

} // namespace vastrel
