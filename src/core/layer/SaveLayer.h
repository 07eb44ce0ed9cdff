#pragma once

#include "core/layer/Layer.h"

#include <string>
#include <vector>

namespace vastrel {

constexpr const char* LayerFilter = "GeoJSON (*.geojson)|*.geojson|Shapefile (*.shp)|*.shp";

/// An input and, of a shapefile, all that goes with it, whether or not it is there: table, index, character
/// set and projection. None for an empty path.
std::vector<std::string> FilesOfInput(const std::string& path);

/// The command: asks for a file and writes the layer, whole or not at all. A cancel ends it without a file,
/// and so do, with a message, a name that tells no format, one of the inputs, of which the layer was made,
/// and a format that does not hold all columns. Then it tells what there is to know about the layer. Run-time
/// errors: those of FilesOfLayer and OutputSet::Commit.
void SaveLayerAs(const Layer& layer, const std::vector<std::string>& inputs);

} // namespace vastrel
