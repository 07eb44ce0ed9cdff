#pragma once

#include "core/spatial/BoxedItems.h"

namespace vastrel {

/// A shape that is made of items: the common body of CMultiPoint, CPolyLine and CPolygon, which differ in the
/// class of their items and in the texts of their rules.
template <typename T, const ItemRules& Rules>
class CompositeShape : public IShape {
public:
    CompositeShape() { box_.MakeEmpty(); }

    int Count() const { return items_.Count(); }
    auto begin() const { return items_.All().begin(); }
    auto end() const { return items_.All().end(); }

    /// Run-time error 9 for an index that does not exist; indices count from 1.
    T& Item(int index) { return items_.Item(index); }
    const T& Item(int index) const { return items_.Item(index); }

    /// Offset 0x20F for an item of another class. The box grows with what is added.
    void Add(const ShapeObject& item) { items_.Add(item, box_); }
    void Add(T&& item) { items_.Add(std::move(item), box_); }

    /// Removes an item. Unlike a part's, the box stays as it was; meant so.
    void Remove(int index) { items_.Remove(index); }

    /// Makes room for items that are to be added.
    void Reserve(size_t count) { items_.Reserve(count); }

    /// Sets the box that a file tells; the first item added sets it anew.
    void TakeBox(double left, double bottom, double right, double top) {
        box_.TakeEdges(left, right, top, bottom);
    }

    double Bottom() const override { return box_.Bottom(); }
    bool IsNull() const override { return isNull_; }
    double Left() const override { return box_.Left(); }
    void MakeNull(bool isNull) override { isNull_ = isNull; }
    double Right() const override { return box_.Right(); }
    double Top() const override { return box_.Top(); }
    double Distance(const IShape&) const override { return DistanceNotImplemented(); }

private:
    CRect box_;
    BoxedItems<T> items_{Rules};
    bool isNull_ = false;
};

} // namespace vastrel
