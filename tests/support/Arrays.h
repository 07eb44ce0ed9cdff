#pragma once

#include "core/workspace/Arrays.h"

#include <algorithm>
#include <vector>

namespace vastrel {

/// An array counted from 1.
template <typename T>
Array1<T> ArrayFrom1(const std::vector<T>& values) {
    Array1<T> array(static_cast<std::ptrdiff_t>(values.size()));
    std::copy(values.begin(), values.end(), array.data() + 1);
    return array;
}

/// Elements 1 to the bound; none of an array that was never dimensioned.
template <typename T>
std::vector<T> From1(const Array1<T>& array) {
    if (!array.IsAllocated()) return {};
    return {array.data() + 1, array.data() + array.UpperBound() + 1};
}

} // namespace vastrel
