#pragma once

#include "core/spatial/BoxedItems.h"

namespace vastrel {

/// A ring or line of points, counted from 1, with the box around them.
class CPart : public ShapeObject {
public:
    static constexpr const char* Name = "CPart";
    const char* ClassName() const override { return Name; }

    double Left() const { return box_.Left(); }
    void SetLeft(double x) { box_.SetLeft(x); }
    double Right() const { return box_.Right(); }
    void SetRight(double x) { box_.SetRight(x); }
    double Top() const { return box_.Top(); }
    void SetTop(double y) { box_.SetTop(y); }
    double Bottom() const { return box_.Bottom(); }
    void SetBottom(double y) { box_.SetBottom(y); }

    int Count() const { return points_.Count(); }
    CPoint& Item(int index) { return points_.Item(index); }
    const CPoint& Item(int index) const { return points_.Item(index); }
    auto begin() const { return points_.All().begin(); }
    auto end() const { return points_.All().end(); }

    /// Removes a point and rebuilds the box from the others; the box of an emptied part stays as it was.
    /// Run-time error 9 for an index that does not exist.
    void Remove(int index);

    /// Offset 0x20F for anything but a CPoint.
    void Add(const ShapeObject& point) { points_.Add(point, box_); }

    /// Makes room for points that are to be added.
    void Reserve(size_t count) { points_.Reserve(count); }

private:
    CRect box_;
    BoxedItems<CPoint> points_{PartItems};
};

} // namespace vastrel
