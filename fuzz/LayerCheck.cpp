#include "LayerCheck.h"

#include "core/layer/CsvTable.h"

#include <nlohmann/json.hpp>

#include <cstdlib>

namespace vastrel {

void CheckLayer(const Layer& layer) {
    for (const auto& file : FilesOfLayer("layer.geojson", layer).Files)
        if (!nlohmann::json::accept(file.Bytes)) std::abort();
    FilesOfLayer("layer.shp", layer);
    CsvText(layer.Rows);
}

} // namespace vastrel
