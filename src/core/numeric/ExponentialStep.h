// The quick step of the exponential, on vectors of doubles. It takes sums and products alone, none fused, so
// that every instruction set gives the same bits; and since a rounding that is not certain is handed back,
// these are the bits of the nearest double.
//
//   x = k ln2 / 128 + r with |r| < 2^-8.5, and e^x = 2^(k / 128) e^r = 2^n (T + T (e^r - 1)), T from 1 to 2
//
// How far it is from the exact value, for T below 2 and in units of 2^-72:
//   r    the part of x that goes with the upper bits of T, `upper`, has 26 bits and so has `table.High`:
//   their
//        product is exact, and so are x - k LnHigh (18 and 34 bits) and what `upper` leaves over of it. The
//        rest of ln 2 / 128 is below 2^-42, and its product with k below 2^-25: three roundings there are
//        below 2^-77
//   e^r  the square of r and its factor are below 2^-17.0 and 0.5 + 2^-10, each rounded once or twice (below
//   8 in
//        all); the term r^7 / 5040 that is left out is below 1
//   T    the product with e^r - 1 - upper and the sums behind it are below 2^-16.9 but the last two, which
//   hold
//        the rounding error of the sum in front (exactly) and are below 2^-52: 24 in all
// together below 33, doubled by T to less than 2^-66: that is the width of doubt on either side.
#pragma once

#include "core/numeric/Vectors.h"

#include <array>

namespace vastrel {

/// 2^(i / 128) in two parts, the first of 26 bits behind the point; the sum is off by less than 2^-79.
struct PowerOfTwo {
    double High, Low;
};
extern const std::array<PowerOfTwo, 128> PowersOfTwo;

/// ln 2 / 128 in two parts, the first with zeros enough for a product with k to be exact; off by 2^-95.
extern const double LnHigh, LnLow;

template <int Bytes>
struct QuickResult {
    typename VectorOf<Bytes>::Doubles Value;
    typename VectorOf<Bytes>::Bits Doubt; // 0 in the lanes where the rounding is certain
};

/// e^x for |x| up to 708.
template <int Bytes>
[[gnu::always_inline]] inline QuickResult<Bytes> QuickExponential(typename VectorOf<Bytes>::Doubles x) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Bits = typename VectorOf<Bytes>::Bits;
    constexpr double integerAtEnd = 0x1.8p52, multipleOf2ToMinus34 = 0x1.8p18, doubt = 0x1p-66;

    const Vector shifted = x * 184.6649652337873 + integerAtEnd; // 128 / ln 2
    const Vector k = shifted - integerAtEnd;
    const Bits integer = reinterpret_cast<Bits>(shifted);
    Vector high, low;
    for (int lane = 0; lane < VectorOf<Bytes>::Lanes; ++lane) {
        const PowerOfTwo& power = PowersOfTwo[static_cast<unsigned long long>(integer[lane]) & 127];
        high[lane] = power.High;
        low[lane] = power.Low;
    }

    const Vector first = x - k * LnHigh;
    const Vector upper = (first + multipleOf2ToMinus34) - multipleOf2ToMinus34;
    const Vector rest = (first - upper) - k * LnLow;
    const Vector r = upper + rest;
    const Vector factor = ((((r * (1.0 / 720) + 1.0 / 120) * r + 1.0 / 24) * r + 1.0 / 6) * r + 0.5);
    const Vector tail = rest + (r * r) * factor;

    const Vector exact = high * upper;
    const Vector sum = high + exact;
    const Vector lost = exact - (sum - high);
    const Vector small = lost + (low + (low * (upper + tail) + high * tail));
    const Vector above = sum + (small + doubt);
    const Vector below = sum + (small - doubt);
    const Bits scaled = reinterpret_cast<Bits>(above) + ((integer >> 7) << 52);
    return {reinterpret_cast<Vector>(scaled), reinterpret_cast<Bits>(above) ^ reinterpret_cast<Bits>(below)};
}

} // namespace vastrel
