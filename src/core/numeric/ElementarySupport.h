// What the elementary functions share besides the wide numbers.
#pragma once

#include "core/numeric/WideRounding.h"

#include <bit>
#include <cmath>
#include <limits>

namespace vastrel {

constexpr double Infinity = std::numeric_limits<double>::infinity();

/// The parts of a positive finite double.
inline Parts PartsOf(double x) {
    const auto bits = std::bit_cast<std::uint64_t>(x);
    const std::uint64_t fraction = bits & ((std::uint64_t{1} << 52) - 1);
    const int field = static_cast<int>(bits >> 52);
    if (field != 0) return {fraction | std::uint64_t{1} << 52, field - 1075};
    const int shift = std::countl_zero(fraction) - 11;
    return {fraction << shift, -1074 - shift};
}

/// A magnitude below 2^64; bits below the last place are cut off.
template <int Words>
WideFixed<Words> WideOf(Parts x) {
    return WideFixed<Words>::Integer(x.Mantissa).Shifted(x.Exponent);
}

/// Infinity by an overflow that shows in the flags.
inline double Overflown() {
    volatile double huge = 0x1p1023;
    return huge * huge;
}

/// NaN by an invalid operation that shows in the flags.
inline double Invalid() {
    volatile double zero = 0;
    return zero / zero;
}

/// Infinity by a division by zero that shows in the flags.
inline double DividedByZero() {
    volatile double zero = 0;
    return 1 / zero;
}

inline double DoubleOfBits(std::uint64_t bits) {
    const auto result = std::bit_cast<double>(bits);
    return result == Infinity ? Overflown() : result;
}

/// The double nearest to a number that `compute`, a function template, works out in as many words as are
/// asked for: in three, and in six where those leave the rounding in doubt. Of a function that is never
/// rational but at the arguments set apart before no value is a tie, and the hardest known to round are told
/// by some 120 bits.
template <typename Compute>
double Nearest(Compute compute) {
    const auto quick = compute.template operator()<3>();
    if (const auto bits = NearestBitsIfSure(quick, ErrorBits<3>)) return DoubleOfBits(*bits);
    const auto accurate = compute.template operator()<6>();
    return DoubleOfBits(NearestBits(accurate.Magnitude, accurate.Exponent));
}

} // namespace vastrel
