#include "core/numeric/Power.h"

#include "core/numeric/ElementarySupport.h"

namespace vastrel {

namespace {

bool IsWhole(double x) {
    return x == std::floor(x);
}

bool IsOdd(double x) {
    return IsWhole(x) && !IsWhole(x / 2);
}

/// base^exponent where either is zero or infinite, for a positive base.
double PowerOfLimit(double base, double exponent) {
    if (base == 0 && exponent < 0) return exponent == -Infinity ? Infinity : DividedByZero();
    const bool grows = (base > 1) == (exponent > 0);
    return grows ? Infinity : 0;
}

/// The exact value of base^exponent where it has few enough bits to lie half way between two doubles. That
/// takes a whole exponent up to 34, since 3^35 has more bits, once the roots are drawn that it asks for. The
/// base is not 1.
std::optional<WideNumber<3>> ExactPower(Parts base, double exponent) {
    const int zeros = std::countr_zero(base.Mantissa);
    std::uint64_t odd = base.Mantissa >> zeros;
    int binary = base.Exponent + zeros;
    if (exponent < 0) {
        if (odd != 1) return {};
        exponent = -exponent;
        binary = -binary;
    }
    for (; !IsWhole(exponent); exponent *= 2) {
        const auto root = static_cast<std::uint64_t>(std::sqrt(static_cast<double>(odd)));
        if (root * root != odd || binary % 2 != 0) return {};
        odd = root;
        binary /= 2;
    }
    std::uint64_t power = 1;
    if (odd != 1) {
        if (exponent > 34) return {};
        for (int i = 0; i < static_cast<int>(exponent); ++i) {
            power *= odd;
            if (power >= std::uint64_t{1} << 54 || odd >= std::uint64_t{1} << 32) return {};
        }
    }
    return WideNumber<3>{WideFixed<3>::Integer(power), static_cast<int>(binary * exponent), false};
}

template <int Words>
WideNumber<Words> WidePower(Parts base, Parts exponent, bool isNegative) {
    const WideNumber<Words> logarithm = WideLogarithm<Words>(base);
    return WideExponential((logarithm.Magnitude * exponent.Mantissa).Shifted(exponent.Exponent),
                           logarithm.IsNegative != isNegative);
}

/// For a positive base other than 1 and an exponent other than 0, both finite.
double OrdinaryPower(double base, double exponent) {
    const Parts parts = PartsOf(base), power = PartsOf(std::fabs(exponent));
    const WideNumber<3> logarithm = WideLogarithm<3>(parts);
    const bool isNegative = exponent < 0;
    // The size of the result, by an exponent that cannot overflow the product and is large enough all the
    // same.
    const double size = (static_cast<double>(logarithm.Magnitude.IntegerPart()) +
                         static_cast<double>(logarithm.Magnitude.FirstFraction()) * 0x1p-64) *
                        std::min(std::fabs(exponent), 0x1p64);
    if (size > 800) return logarithm.IsNegative != isNegative ? 0 : Overflown();
    if (size < 0x1p-56) return 1;

    // The exponent enlarges the error of the logarithm.
    const int lostBits = std::max(0, power.Exponent + 53) + 3;
    const auto quick = WidePower<3>(parts, power, isNegative);
    if (const auto bits = NearestBitsIfSure(quick, ErrorBits<3> - lostBits)) return DoubleOfBits(*bits);
    if (const auto exact = ExactPower(parts, exponent))
        return DoubleOfBits(NearestBits(exact->Magnitude, exact->Exponent));
    const auto accurate = WidePower<6>(parts, power, isNegative);
    return DoubleOfBits(NearestBits(accurate.Magnitude, accurate.Exponent));
}

double PowerOfMagnitude(double base, double exponent) {
    if (base == 1) return 1;
    if (base == 0 || base == Infinity || std::isinf(exponent)) return PowerOfLimit(base, exponent);
    return exponent == 0.5 ? std::sqrt(base) : OrdinaryPower(base, exponent);
}

} // namespace

double Power(double base, double exponent) {
    if (exponent == 2) return base * base;
    if (exponent == 0 || base == 1) return 1;
    if (std::isnan(base) || std::isnan(exponent)) return base + exponent;
    if (!std::signbit(base)) return PowerOfMagnitude(base, exponent);
    if (base < 0 && std::isfinite(base) && !IsWhole(exponent)) return Invalid();
    const double magnitude = PowerOfMagnitude(-base, exponent);
    return IsOdd(exponent) ? -magnitude : magnitude;
}

} // namespace vastrel
