#pragma once

#include "core/platform/RunTimeError.h"

#include <memory>
#include <string>
#include <vector>

namespace vastrel {

/// An ordered collection of objects that are known by reference, counted from 1.
template <typename T>
class Collection {
public:
    std::ptrdiff_t Count() const { return static_cast<std::ptrdiff_t>(items_.size()); }
    void Add(std::shared_ptr<T> item) { items_.push_back(std::move(item)); }
    void Clear() { items_.clear(); }

    /// Run-time error 9 for an index that does not exist.
    const std::shared_ptr<T>& Item(std::ptrdiff_t index) const {
        if (index < 1 || index > Count())
            RaiseCustomary(SubscriptOutOfRange, "Collection",
                           "Item " + std::to_string(index) + " of " + std::to_string(Count()) + ".");
        return items_[static_cast<size_t>(index - 1)];
    }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<std::shared_ptr<T>> items_;
};

} // namespace vastrel
