// The elementary functions in fixed point, in as many words as the rounding of a result takes. With three
// words an error stays below 2^-112, with six below 2^-300: at most a few dozen steps of a unit in the last
// place each, and some 1100 units from the multiple of the logarithm of 2.
#pragma once

#include "core/numeric/ElementaryTables.h"

namespace vastrel {

template <int Words>
constexpr int ErrorBits = 64 * (Words - 1) - 16; // an error is below 2^-ErrorBits

/// The number Magnitude * 2^Exponent, or its negative.
template <int Words>
struct WideNumber {
    WideFixed<Words> Magnitude;
    int Exponent = 0;
    bool IsNegative = false;
};

/// A positive double: Mantissa * 2^Exponent, the mantissa from 2^52 to below 2^53.
struct Parts {
    std::uint64_t Mantissa;
    int Exponent;
};

/// The terms of a series that count where each is less than half of 2^-bitsOfTerm of the one before.
template <int Words>
constexpr std::size_t TermsOf(int bitsOfTerm) {
    return static_cast<std::size_t>(WideFixed<Words>::FractionBits / bitsOfTerm) + 1;
}

/// e^t or e^-t for t below 1100; the magnitude lies from 1 to 2.01.
template <int Words>
constexpr WideNumber<Words> WideExponential(const WideFixed<Words>& t, bool isNegative) {
    const WideFixed<Words> ln2 = tables::LogarithmOfTwo.CutTo<Words>();
    // The multiple of ln 2 at or below t, and above t where t counts down.
    auto k = static_cast<std::uint64_t>(
        (static_cast<double>(t.IntegerPart()) + static_cast<double>(t.FirstFraction() >> 32) * 0x1p-32) /
        0.6931471805599453);
    while (t < ln2 * k)
        --k;
    while (isNegative && ln2 * k < t)
        ++k;
    const WideFixed<Words> rest = isNegative ? ln2 * k - t : t - ln2 * k;

    const std::uint64_t a = rest.FirstFraction() >> 57; // rest = a / 128 + z
    const WideFixed<Words> z = rest - WideFixed<Words>::Integer(a).Shifted(-7);
    std::size_t n = TermsOf<Words>(10);
    WideFixed<Words> sum = tables::InverseFactorials[n].CutTo<Words>();
    while (n-- > 0)
        sum = sum * z + tables::InverseFactorials[n].CutTo<Words>();
    const int exponent = static_cast<int>(k);
    return {sum * tables::Exponentials[a].CutTo<Words>(), isNegative ? -exponent : exponent, false};
}

/// The natural logarithm of a positive double other than 1. With m = c (1 + s) / (1 - s) for c = 1 + a / 128,
/// ln m = ln c + 2 artanh s.
template <int Words>
WideNumber<Words> WideLogarithm(Parts x) {
    const std::uint64_t a = x.Mantissa >> 45 & 127;
    const std::uint64_t c = (128 + a) << 45;
    const WideFixed<Words> s = WideFixed<Words>::Integer(x.Mantissa - c) / (x.Mantissa + c);
    const WideFixed<Words> square = s * s;
    std::size_t n = TermsOf<Words>(16);
    WideFixed<Words> sum = tables::OddReciprocals[n].CutTo<Words>();
    while (n-- > 0)
        sum = sum * square + tables::OddReciprocals[n].CutTo<Words>();
    const WideFixed<Words> ofMantissa = tables::Logarithms[a].CutTo<Words>() + (sum * s) * 2;

    const WideFixed<Words> ln2 = tables::LogarithmOfTwo.CutTo<Words>();
    const int binade = x.Exponent + 52;
    if (binade >= 0) return {ofMantissa + ln2 * static_cast<std::uint64_t>(binade), 0, false};
    return {ln2 * static_cast<std::uint64_t>(-binade) - ofMantissa, 0, true};
}

/// arctan s for s up to 1/32.
template <int Words>
WideFixed<Words> SmallArcTangent(const WideFixed<Words>& s) {
    const WideFixed<Words> square = s * s;
    std::size_t n = TermsOf<Words>(10);
    WideFixed<Words> sum = tables::OddReciprocals[n].CutTo<Words>();
    while (n-- > 0)
        sum = tables::OddReciprocals[n].CutTo<Words>() - sum * square;
    return sum * s;
}

/// arctan of a double from 2^-30 to 2^60. Below 1 it is arctan c + arctan((x - c) / (1 + c x)) with c = a /
/// 32, from there on a right angle less the arc tangent of 1 / x.
template <int Words>
WideNumber<Words> WideArcTangent(Parts x) {
    using Fixed = WideFixed<Words>;
    const std::uint64_t m = x.Mantissa;
    const auto arc = [](std::uint64_t a) { return tables::ArcTangents[a].CutTo<Words>(); };
    if (x.Exponent < -52) {
        const std::uint64_t a = x.Exponent < -58 ? 0 : m >> (-x.Exponent - 5);
        if (a == 0) return {SmallArcTangent(Fixed::Integer(m).Shifted(x.Exponent))};
        const std::uint64_t one = std::uint64_t{1} << -x.Exponent;
        return {arc(a) + SmallArcTangent(Fixed::Integer(32 * m - a * one) / (32 * one + a * m))};
    }
    const std::uint64_t one = std::uint64_t{1} << (x.Exponent < 0 ? -x.Exponent : 0);
    const std::uint64_t a = x.Exponent < 0 ? 32 * one / m : 0;
    const Fixed s = a == 0 ? (Fixed::Integer(one) / m).Shifted(x.Exponent < 0 ? 0 : -x.Exponent)
                           : Fixed::Integer(32 * one - a * m) / (32 * m + a * one);
    return {arc(32) * 2 - arc(a) - SmallArcTangent(s)};
}

} // namespace vastrel
