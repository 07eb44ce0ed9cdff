#pragma once

#include "core/workspace/Arrays.h"

#include <cstdint>

namespace vastrel {

/// A value with the key that it is sorted by.
struct KeyedValue {
    double First = 0;
    double Second = 0;
    bool operator==(const KeyedValue&) const = default;
};

// Three ascending sorts in place over elements 1 to the upper bound; element 0 is not touched. All three are
// one diminishing-gap exchange sort. None is stable, but equal keys are never swapped with one another.

void SortIntegers(Array1<std::int16_t>& array);
void SortValues(Array1<double>& array);

/// By the second field; the first travels with it.
void SortBySecondField(Array1<KeyedValue>& array);

} // namespace vastrel
