// Which steps of a tile can be felt. A sum of 53 digits does not change where a number of less than half its
// last place is added; most products of the weights of two distant Regions are such.
#pragma once

#include "core/numeric/StepSpans.h"

#include <algorithm>

namespace vastrel {

/// The smallest normal number is 2^SmallestNormal; what lies below half the smallest number rounds to zero.
constexpr int SmallestNormal = -1022;
constexpr int HalfOfSmallest = -1075;

/// How far below a sum a product is that surely leaves it as it is: half of the last place of a power of two,
/// whose lower neighbour is the nearer one, is 2^-54 of it.
constexpr int FarBelow = 55;

/// What is known of the sums of a tile: 2^Least <= |s| for every one, and which signs there are. One that
/// stands at zero has no sign, and no bound.
struct SumSpan {
    short Least = -Span::Beyond;
    bool Negative = false, Positive = false;
};

/// Whether all products of these factors round to zero, which no sum feels: none stands at -0.
inline bool AreVoid(const Span& a, const Span& b) {
    return a.Most + b.Most <= HalfOfSmallest;
}

/// Whether some products of these factors may lie below the smallest normal number.
inline bool HasFaintProducts(const Span& a, const Span& b) {
    return a.Least + b.Least < SmallestNormal;
}

/// Whether the products are all of about one magnitude and none is faint, so that nothing is to be had by a
/// look at the sums.
inline bool AreAlike(const StepsSpan& a, const StepsSpan& b) {
    return !HasFaintProducts(a.Of, b.Of) && a.Of.Most + b.Of.Most - a.LeastMost - b.LeastMost < FarBelow;
}

/// The steps of a group with products of the other sign than some sum.
inline StepSet AgainstSums(const SumSpan& sums, const GroupSpan& a, const GroupSpan& b) {
    const StepSet plus = (a.Positive & b.Positive) | (a.Negative & b.Negative);
    const StepSet minus = (a.Positive & b.Negative) | (a.Negative & b.Positive);
    return (sums.Positive ? minus : 0) | (sums.Negative ? plus : 0);
}

/// The exponent of a power of two that the magnitude of no sum falls below while steps are added, in any
/// selection, where the products of at most 2^stepsAtMost of them that go against a sum lie below
/// 2^mostAgainst: the others only make it grow.
inline int FloorOfSums(const SumSpan& sums, int mostAgainst, int stepsAtMost) {
    if (mostAgainst <= -Span::Beyond) return sums.Least;
    return mostAgainst + stepsAtMost < sums.Least - 1 ? sums.Least - 1 : -Span::Beyond;
}

/// What may be left out while steps are added to sums that do not fall below a floor.
struct Negligible {
    int Product; // steps whose products lie below 2^Product, at most -1: those with infinities do not
    bool Faint;  // products below the smallest normal number, also those of factors below it
};

inline Negligible BelowFloor(int floor, const Span& a, const Span& b) {
    const int product = std::clamp(floor - FarBelow, HalfOfSmallest, -1);
    return {product, SmallestNormal + std::max({0, +a.Most, +b.Most}) <= floor - FarBelow};
}

} // namespace vastrel
