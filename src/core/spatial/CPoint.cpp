#include "core/spatial/CPoint.h"

#include "core/numeric/RunProcedure.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/PointDistance.h"
#include "core/spatial/ShapeErrors.h"

namespace vastrel {

double CPoint::Distance(const IShape& other) const {
    constexpr const char* source = "CPoint::IShape_Distance";
    if (other.IsNull() || isNull_)
        throw RunTimeError(DistanceToNullShape, source, "Cannot compute distance to a null shape");
    return RunFunction(source, [&]() -> double {
        if (IsOfClass(other, CPoint::Name)) return DistanceToPoint(*this, static_cast<const CPoint&>(other));
        if (IsOfClass(other, CPolyLine::Name))
            return DistanceToPolyLine(*this, static_cast<const CPolyLine&>(other));
        if (IsOfClass(other, CPolygon::Name))
            return DistanceToPolygon(*this, static_cast<const CPolygon&>(other));
        return 0;
    });
}

} // namespace vastrel
