#include "batch/LayerOptions.h"

#include "batch/Command.h"
#include "core/layer/SaveLayer.h"

#include <iostream>

namespace vastrel {

void LayerOptions::AddTo(CLI::App& command) {
    command.add_option("--layer", Layer, "the Regions with their results (.geojson or .shp)")
        ->group("Output");
    command.add_option("--table", Table, "the results as rows (.csv)")->group("Output");
}

void LayerOptions::Check(const std::vector<std::string>& inputs) const {
    if (!Layer.empty() && !IsLayerPath(Layer)) throw WrongUse(Layer + " ends in none of: .geojson .shp");
    auto outputs = Layer.empty() ? std::vector<std::string>() : PathsOfLayer(Layer);
    if (!Table.empty()) outputs.push_back(Table);
    const std::string over = OutputOverInput(outputs, inputs);
    if (!over.empty()) throw WrongUse(over + " is an input.");
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
