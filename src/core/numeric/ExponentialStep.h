// The quick step of the exponential, on vectors of doubles. It takes sums and products alone, none fused, so
// that every instruction set gives the same bits; and since a rounding that is not certain is handed back,
// these are the bits of the nearest double.
//
//   x = k ln2 / 128 + r with |r| < 2^-8.5, and e^x = 2^(k / 128) e^r = 2^n (T + T (e^r - 1)), T from 1 to 2
//
// How far it is from the exact value at most, in units of 2^-72:
//
//   x - k LnHigh is exact (18 and 34 bits), and `upper` takes 26 bits of it, so that its product with the 27
//   bits of `high` is exact too. What is left, `rest`, is below 2^-25.6, and its roundings are below 2^-77.
//   e^r - 1 - upper:  the rounding of r        2^-62 r                   2.9
//                     of its square            below 2^-17 / 2           1
//                     of the factor            2^-54 r^2                 2
//                     of the product           below 2^-18               1
//                     of the sum with `rest`   below 2^-18               1
//                     the next term            r^7 / 5040                1
//                                                                        8.9, times high below 2: 17.8
//   small:            five roundings           below 2^-17               10
//
// together 28, which is less than half of 2^-66: `doubt`, the width on either side in which the exact value
// lies.
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

/// 2^(Integer / 128) e^r = 2^(the upper bits of Integer) (Sum + Small); Doubt bounds the error of Small.
template <int Bytes>
struct QuickParts {
    typename VectorOf<Bytes>::Doubles Sum, Small;
    typename VectorOf<Bytes>::Bits Integer; // k in the lower bits
    static constexpr double Doubt = 0x1p-66;
};

/// The parts of e^x for |x| up to 746. Vectors go by reference: as values their way of passing hangs on the
/// instruction set.
template <int Bytes>
[[gnu::always_inline]] inline void TakeQuickParts(const typename VectorOf<Bytes>::Doubles& x,
                                                  QuickParts<Bytes>& parts) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Bits = typename VectorOf<Bytes>::Bits;
    constexpr double integerAtEnd = 0x1.8p52, multipleOf2ToMinus34 = 0x1.8p18;

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
    parts.Sum = sum;
    parts.Small = lost + (low + (low * (upper + tail) + high * tail));
    parts.Integer = integer;
}

template <int Bytes>
struct QuickResult {
    typename VectorOf<Bytes>::Doubles Value;
    typename VectorOf<Bytes>::Bits Doubt; // 0 in the lanes where the rounding is certain
};

/// e^x for |x| up to 708, where it is a normal number.
template <int Bytes>
[[gnu::always_inline]] inline void QuickExponential(const typename VectorOf<Bytes>::Doubles& x,
                                                    QuickResult<Bytes>& result) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Bits = typename VectorOf<Bytes>::Bits;
    QuickParts<Bytes> parts{};
    TakeQuickParts(x, parts);
    const Vector above = parts.Sum + (parts.Small + parts.Doubt);
    const Vector below = parts.Sum + (parts.Small - parts.Doubt);
    const Bits scaled = reinterpret_cast<Bits>(above) + ((parts.Integer >> 7) << 52);
    result.Value = reinterpret_cast<Vector>(scaled);
    result.Doubt = reinterpret_cast<Bits>(above) ^ reinterpret_cast<Bits>(below);
}

} // namespace vastrel
