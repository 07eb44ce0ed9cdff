#pragma once

#include "core/layer/Layer.h"

#include <string>

namespace vastrel {

/// Whether a layer names its coordinate system: its projection is there, and is no geographic one.
bool HasOwnCrs(const Layer& layer);

/// The layer as one FeatureCollection, a Feature a line. A Feature's id is the Region's number from 1, its
/// coordinates are those of the dataset. Polygons are MultiPolygons with holes inside their outer rings,
/// which run counter-clockwise, and holes clockwise; a Region in which nothing is enclosed has no geometry.
/// Numbers read back to the same 64-bit value. With HasOwnCrs there is a member "crs" that names the system.
std::string GeoJsonText(const Layer& layer);

} // namespace vastrel
