#pragma once

#include "core/platform/RunTimeError.h"
#include "core/workspace/TableMemory.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vastrel {

/// The memory of tables for a container.
template <typename T>
struct AlignedAllocator {
    using value_type = T;

    AlignedAllocator() = default;
    template <typename U>
    AlignedAllocator(const AlignedAllocator<U>&) {}

    T* allocate(size_t n) {
        if (n > static_cast<size_t>(-1) / sizeof(T)) throw std::bad_array_new_length();
        return static_cast<T*>(TakeTableMemory(n * sizeof(T)));
    }
    void deallocate(T* memory, size_t n) { GiveTableMemory(memory, n * sizeof(T)); }

    /// An element that is given no value is left as it is.
    template <typename U>
    void construct(U* element) {
        ::new (static_cast<void*>(element)) U;
    }
    template <typename U, typename... Values>
    void construct(U* element, Values&&... values) {
        ::new (static_cast<void*>(element)) U(std::forward<Values>(values)...);
    }

    bool operator==(const AlignedAllocator&) const { return true; }
};

/// Run-time error 9 for an upper bound below -1, which stands for no element at all.
inline void RequireBound(std::ptrdiff_t n) {
    if (n < -1)
        RaiseCustomary(SubscriptOutOfRange, "ReDim", "An array of " + std::to_string(n) + " elements.");
}

/// An array whose legal indices are 0 to n. What follows the Regions counts from 1; element 0 starts at zero.
/// It is re-dimensioned whole, never grown. An array that was never dimensioned has no legal index.
template <typename T>
class Array1 {
public:
    Array1() = default;
    explicit Array1(std::ptrdiff_t n) { ReDim(n); }

    /// Drops the contents; the new elements are zero.
    void ReDim(std::ptrdiff_t n) {
        RequireBound(n);
        values_.assign(static_cast<size_t>(n + 1), T{});
    }
    /// The same for a kernel that sets every element itself.
    void ReDimUnset(std::ptrdiff_t n) {
        RequireBound(n);
        values_.clear();
        values_.resize(static_cast<size_t>(n + 1));
    }
    void Clear() { values_.clear(); }
    void SetZero() { std::fill(values_.begin(), values_.end(), T{}); }

    bool IsAllocated() const { return !values_.empty(); }

    /// The upper bound n; -1 for an array that was never dimensioned.
    std::ptrdiff_t UpperBound() const { return static_cast<std::ptrdiff_t>(values_.size()) - 1; }

    /// Run-time error 9 outside 0 to n.
    T& operator()(std::ptrdiff_t i) { return values_[Checked(i)]; }
    const T& operator()(std::ptrdiff_t i) const { return values_[Checked(i)]; }

    /// The raw elements, element 0 first, for a kernel's inner loop.
    T* data() { return values_.data(); }
    const T* data() const { return values_.data(); }

    bool operator==(const Array1&) const = default;

private:
    size_t Checked(std::ptrdiff_t i) const {
        if (i < 0 || i > UpperBound())
            RaiseCustomary(SubscriptOutOfRange, "Array1",
                           "Element " + std::to_string(i) + " of an array of " +
                               std::to_string(UpperBound()) + ".");
        return static_cast<size_t>(i);
    }

    std::vector<T, std::conditional_t<std::is_arithmetic_v<T>, AlignedAllocator<T>, std::allocator<T>>>
        values_;
};

/// A table whose legal indices are 0 to n and 0 to m; contiguous, row after row, aligned to 64 bytes.
template <typename T>
class Table {
public:
    Table() = default;
    Table(std::ptrdiff_t n, std::ptrdiff_t m) { ReDim(n, m); }

    /// Drops the contents; the new elements are zero.
    void ReDim(std::ptrdiff_t n, std::ptrdiff_t m) {
        RequireBound(n);
        RequireBound(m);
        values_.clear();
        rows_ = columns_ = 0; // where the memory is refused there is no table
        values_.assign(static_cast<size_t>(n + 1) * static_cast<size_t>(m + 1), T{});
        rows_ = n + 1;
        columns_ = m + 1;
    }
    /// The same for a kernel that sets every element from index 1 on itself: only those of index 0 are zero.
    void ReDimUnset(std::ptrdiff_t n, std::ptrdiff_t m) {
        ReDim(-1, -1);
        RequireBound(n);
        RequireBound(m);
        values_.resize(static_cast<size_t>(n + 1) * static_cast<size_t>(m + 1));
        rows_ = n + 1;
        columns_ = m + 1;
        if (m < 0) return;
        for (std::ptrdiff_t i = 0; i <= n; ++i)
            values_[static_cast<size_t>(i * columns_)] = T{};
        if (n >= 0) std::fill_n(values_.begin(), columns_, T{});
    }
    void Clear() {
        std::vector<T, AlignedAllocator<T>>().swap(values_);
        rows_ = columns_ = 0;
    }
    void SetZero() { std::fill(values_.begin(), values_.end(), T{}); }

    bool IsAllocated() const { return rows_ > 0; }
    std::ptrdiff_t UpperBound1() const { return rows_ - 1; }
    std::ptrdiff_t UpperBound2() const { return columns_ - 1; }

    /// Run-time error 9 outside the bounds.
    T& operator()(std::ptrdiff_t i, std::ptrdiff_t j) { return values_[Checked(i, j)]; }
    const T& operator()(std::ptrdiff_t i, std::ptrdiff_t j) const { return values_[Checked(i, j)]; }

    /// The raw elements of row i, column 0 first; taken once, outside a kernel's inner loop.
    T* row(std::ptrdiff_t i) { return &values_[Checked(i, 0)]; }
    const T* row(std::ptrdiff_t i) const { return &values_[Checked(i, 0)]; }

    /// How far row i + 1 lies behind row i.
    std::ptrdiff_t stride() const { return columns_; }

    bool operator==(const Table&) const = default;

private:
    size_t Checked(std::ptrdiff_t i, std::ptrdiff_t j) const {
        if (i < 0 || i >= rows_ || j < 0 || j >= columns_)
            RaiseCustomary(SubscriptOutOfRange, "Table",
                           "Element (" + std::to_string(i) + ", " + std::to_string(j) + ") of a table of " +
                               std::to_string(UpperBound1()) + " by " + std::to_string(UpperBound2()) + ".");
        return static_cast<size_t>(i) * static_cast<size_t>(columns_) + static_cast<size_t>(j);
    }

    std::vector<T, AlignedAllocator<T>> values_;
    std::ptrdiff_t rows_ = 0;
    std::ptrdiff_t columns_ = 0;
};

} // namespace vastrel
