#pragma once

#include "core/spatial/CPoint.h"

namespace vastrel {

/// A bounding box: its upper left and its lower right corner, y upward.
class CRect : public IShape {
public:
    static constexpr const char* Name = "CRect";
    const char* ClassName() const override { return Name; }

    double Top() const override { return upperLeft_.Y; }
    double Left() const override { return upperLeft_.X; }
    double Bottom() const override { return lowerRight_.Y; }
    double Right() const override { return lowerRight_.X; }
    void SetTop(double y) { upperLeft_.Y = y; }
    void SetBottom(double y) { lowerRight_.Y = y; }
    void SetLeft(double x) { upperLeft_.X = x; }
    void SetRight(double x) { lowerRight_.X = x; }

    /// All four edges become 0.
    void MakeEmpty();
    void Make(const CPoint& upperLeft, const CPoint& lowerRight);
    /// Leaves the second corner's y as it was: its x is set twice, last to y2. Meant so.
    void MakeXY(double x1, double y1, double x2, double y2);

    /// Takes the edges of a shape, or moves each edge outwards to take it in.
    void TakeEdges(double left, double right, double top, double bottom);
    void MoveOutwards(double left, double right, double top, double bottom);

    bool IsNull() const override { return isNull_; }
    void MakeNull(bool isNull) override { isNull_ = isNull; }
    double Distance(const IShape&) const override { return DistanceNotImplemented(); }

private:
    CPoint upperLeft_;
    CPoint lowerRight_;
    bool isNull_ = false;
};

/// A shape that is a box alone.
class CShape : public ShapeObject {
public:
    const char* ClassName() const override { return "CShape"; }
    double Top() const { return box_.Top(); }
    double Bottom() const { return box_.Bottom(); }
    double Left() const { return box_.Left(); }
    double Right() const { return box_.Right(); }

private:
    CRect box_;
};

/// A shape that holds nothing.
class CNullShape : public ShapeObject {
public:
    const char* ClassName() const override { return "CNullShape"; }
};

} // namespace vastrel
