#pragma once

#include "core/spatial/CPoint.h"
#include "core/spatial/CompositeShape.h"

namespace vastrel {

/// Points without lines between them.
class CMultiPoint : public CompositeShape<CPoint, MultiPointItems> {
public:
    static constexpr const char* Name = "CMultiPoint";
    const char* ClassName() const override { return Name; }
};

} // namespace vastrel
