#include "core/workspace/Sorting.h"

#include <cmath>
#include <utility>

namespace vastrel {

namespace {

/// Half of n to the nearest whole number, a half to the even neighbour: a gap of 3 is followed by 2, one of
/// 5 by 2, one of 1 by 0.
std::ptrdiff_t HalfToEven(std::ptrdiff_t n) {
    return static_cast<std::ptrdiff_t>(std::nearbyint(static_cast<double>(n) / 2));
}

template <typename T, typename Key>
void ExchangeSort(Array1<T>& array, Key key) {
    const std::ptrdiff_t upper = array.UpperBound();
    if (upper < 2) return;
    T* element = array.data();
    for (std::ptrdiff_t gap = HalfToEven(upper + 1); gap >= 1; gap = HalfToEven(gap)) {
        bool swapped = true;
        while (swapped) {
            swapped = false;
            for (std::ptrdiff_t i = 1; i <= upper - gap; ++i) {
                if (key(element[i]) > key(element[i + gap])) {
                    std::swap(element[i], element[i + gap]);
                    swapped = true;
                }
            }
        }
    }
}

} // namespace

void SortIntegers(Array1<std::int16_t>& array) {
    ExchangeSort(array, [](std::int16_t value) { return value; });
}

void SortValues(Array1<double>& array) {
    ExchangeSort(array, [](double value) { return value; });
}

void SortBySecondField(Array1<KeyedValue>& array) {
    ExchangeSort(array, [](const KeyedValue& pair) { return pair.Second; });
}

} // namespace vastrel
