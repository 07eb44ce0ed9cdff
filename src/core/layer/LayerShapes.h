#pragma once

#include "core/layer/Layer.h"

#include <string>

namespace vastrel {

/// The bytes of a shapefile pair.
struct ShapeBytes {
    std::string Shp;
    std::string Shx;
};

/// The Regions of a layer as points, or as the polygons that they are, vertex for vertex. A polygon without a
/// part is a record of no parts. Run-time error 6 for more bytes than the format counts.
ShapeBytes BytesOfShapes(const Layer& layer);

} // namespace vastrel
