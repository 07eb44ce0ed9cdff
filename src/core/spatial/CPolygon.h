#pragma once

#include "core/spatial/CPart.h"
#include "core/spatial/CompositeShape.h"

namespace vastrel {

/// Rings of points: outer rings run clockwise, holes the other way, and each repeats its first point.
class CPolygon : public CompositeShape<CPart, PolygonItems> {
public:
    static constexpr const char* Name = "CPolygon";
    const char* ClassName() const override { return Name; }
};

} // namespace vastrel
