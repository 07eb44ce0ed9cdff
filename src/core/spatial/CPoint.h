#pragma once

#include "core/spatial/IShape.h"

namespace vastrel {

/// A point; its box is the point itself.
class CPoint : public IShape {
public:
    static constexpr const char* Name = "CPoint";

    CPoint() = default;
    CPoint(double x, double y) : X(x), Y(y) {}

    double X = 0;
    double Y = 0;

    const char* ClassName() const override { return Name; }
    double Top() const override { return Y; }
    double Bottom() const override { return Y; }
    double Left() const override { return X; }
    double Right() const override { return X; }
    bool IsNull() const override { return isNull_; }
    void MakeNull(bool isNull) override { isNull_ = isNull; }

    /// The distance to a point, a polyline or a polygon; 0 for any other shape. A point inside a polygon is
    /// treated like any other.
    ///
    /// For lines and polygons only the segments at the vertex of each part that lies nearest are looked at.
    /// Offset 0x212 where either shape is null; run-time error 9 where a segment's vertex does not exist, 11
    /// for a segment of no length.
    double Distance(const IShape& other) const override;

private:
    bool isNull_ = false;
};

} // namespace vastrel
