#pragma once

#include "core/spatial/CPart.h"
#include "core/spatial/CompositeShape.h"

namespace vastrel {

/// Lines of points.
class CPolyLine : public CompositeShape<CPart, PolyLineItems> {
public:
    static constexpr const char* Name = "CPolyLine";
    const char* ClassName() const override { return Name; }
};

} // namespace vastrel
