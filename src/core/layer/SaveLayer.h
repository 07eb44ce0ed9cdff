#pragma once

#include "core/layer/Layer.h"

#include <string>
#include <vector>

namespace vastrel {

constexpr const char* LayerFilter = "GeoJSON (*.geojson)|*.geojson|Shapefile (*.shp)|*.shp";

/// The first of the outputs that is an input, or one of the files that go with an input that is a shapefile;
/// empty where none is. A file is the same under all its names, links among them. Empty inputs are none.
std::string OutputOverInput(const std::vector<std::string>& outputs, const std::vector<std::string>& inputs);

/// The command: asks for a file and writes the layer, whole or not at all. A cancel ends it without a file,
/// and so do, with a message, a name that tells no format and one of the inputs, of which the layer was made.
/// Then it tells what there is to know about the layer. Run-time errors: those of FilesOfLayer and
/// OutputSet::Commit.
void SaveLayerAs(const Layer& layer, const std::vector<std::string>& inputs);

} // namespace vastrel
