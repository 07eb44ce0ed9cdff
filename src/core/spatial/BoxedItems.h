#pragma once

#include "core/platform/RunTimeError.h"
#include "core/spatial/CRect.h"
#include "core/spatial/ShapeErrors.h"

#include <string>
#include <vector>

namespace vastrel {

/// The texts in which the classes that hold an ordered collection differ.
struct ItemRules {
    const char* ItemClass; // the only class that Add takes
    const char* Refusal;   // what it says to any other
    const char* AddSource;
    const char* RemoveSource;
};

inline constexpr ItemRules PartItems = {"CPoint", "CPart can only accept objects of type CPoint",
                                        "CPart::Add", "CPart::Remove"};
inline constexpr ItemRules MultiPointItems = {"CPoint",
                                              "CMultiPoint Add can only accept objects of type CPoints",
                                              "CMultiPoint::Add", "CMultiPoint::Remove"};
inline constexpr ItemRules PolyLineItems = {"CPart", "CPolyLine Add can only accept objects of type CPart",
                                            "CPolyLine::Add", "CPolyLine::Remove"};
inline constexpr ItemRules PolygonItems = {"CPart", "CPolygon Add can only accept objects of type CPart",
                                           "CPolygon::Add", "C_Polygon::Remove"};

/// An ordered collection of points or parts, counted from 1, and the box around what was added to it. The
/// items are values: what is added is copied, and Item gives the collection's own.
template <typename T>
class BoxedItems {
public:
    explicit BoxedItems(const ItemRules& rules) : rules_(&rules) {}

    int Count() const { return static_cast<int>(items_.size()); }
    void Reserve(size_t count) { items_.reserve(count); }
    const std::vector<T>& All() const { return items_; }

    T& Item(int index) { return items_[Checked(index, rules_->ItemClass)]; }
    const T& Item(int index) const { return items_[Checked(index, rules_->ItemClass)]; }

    /// Raises offset 0x20F for an object of another class, and then nothing has changed.
    void Add(const ShapeObject& object, CRect& box) {
        if (!IsOfClass(object, rules_->ItemClass))
            throw RunTimeError(WrongItemClass, rules_->AddSource, rules_->Refusal);
        Add(T(static_cast<const T&>(object)), box);
    }

    void Add(T&& item, CRect& box) {
        Enclose(item, items_.empty(), box);
        items_.push_back(std::move(item));
    }

    /// Run-time error 9 for an index that does not exist. The box is not looked at.
    void Remove(int index) {
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(Checked(index, rules_->RemoveSource)));
    }

    static void Enclose(const T& item, bool isFirst, CRect& box) {
        if (isFirst)
            box.TakeEdges(item.Left(), item.Right(), item.Top(), item.Bottom());
        else
            box.MoveOutwards(item.Left(), item.Right(), item.Top(), item.Bottom());
    }

private:
    size_t Checked(int index, const char* source) const {
        if (index < 1 || index > Count())
            RaiseCustomary(SubscriptOutOfRange, source,
                           "Item " + std::to_string(index) + " of " + std::to_string(Count()) + ".");
        return static_cast<size_t>(index - 1);
    }

    const ItemRules* rules_;
    std::vector<T> items_;
};

} // namespace vastrel
