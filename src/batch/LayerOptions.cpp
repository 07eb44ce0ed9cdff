#include "batch/LayerOptions.h"

#include "batch/Command.h"

#include <iostream>

namespace vastrel {

void LayerOptions::AddTo(CLI::App& command) {
    command.add_option("--layer", Layer, "the Regions with their results (.geojson or .shp)")
        ->group("Output");
    command.add_option("--table", Table, "the results as rows (.csv)")->group("Output");
}

void LayerOptions::Check() const {
    if (!Layer.empty() && !IsLayerPath(Layer)) throw WrongUse(Layer + " ends in none of: .geojson .shp");
}

void LayerOptions::RequireRoomFor(std::ptrdiff_t columns) const {
    const std::string message = TooManyLayerColumns(Layer, columns);
    if (!message.empty()) throw WrongUse(message);
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
