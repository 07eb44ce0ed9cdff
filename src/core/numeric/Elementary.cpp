#include "core/numeric/Elementary.h"

#include "core/numeric/ElementarySupport.h"
#include "core/numeric/ExponentialStep.h"

namespace vastrel {

namespace {

/// e^x from -745.2 to -708, where it has fewer bits, if its rounding is certain: in whole numbers of 2^-61
/// times its power of two.
std::optional<double> QuickSubnormalExponential(double x) {
    QuickParts<16> parts{};
    TakeQuickParts(VectorOf<16>::Doubles{x, x}, parts);
    constexpr std::int64_t doubt = 2; // 2^-66 is less than a unit, and another is cut off
    const auto value = (static_cast<std::int64_t>(parts.Sum[0] * 0x1p52) << 9) +
                       static_cast<std::int64_t>(parts.Small[0] * 0x1p61);
    // The exponent stands above the seven bits of the table, beside bits that are the same for all.
    const auto exponent = static_cast<int>(static_cast<std::int64_t>(parts.Integer[0] << 12) >> 19);
    const int cutOff = 61 - 1074 - exponent;
    const std::int64_t half = std::int64_t{1} << (cutOff - 1);
    const std::int64_t low = (value - doubt + half) >> cutOff, high = (value + doubt + half) >> cutOff;
    if (low != high) return {};
    return std::bit_cast<double>(low);
}

std::optional<double> QuickScalarExponential(double x) {
    if (x < -708) return QuickSubnormalExponential(x);
    if (x > 708) return {};
    QuickResult<16> quick{};
    QuickExponential(VectorOf<16>::Doubles{x, x}, quick);
    if (quick.Doubt[0] != 0) return {};
    return double{quick.Value[0]};
}

} // namespace

double Exponential(double x) {
    if (std::isnan(x)) return x + x;
    if (x == Infinity) return x;
    if (x > 709.8) return Overflown();
    if (x < -745.2) return 0;
    const double magnitude = std::fabs(x);
    if (magnitude < 0x1p-60) return 1;
    if (const auto quick = QuickScalarExponential(x)) return *quick;
    return Nearest([parts = PartsOf(magnitude), isNegative = x < 0]<int Words> {
        return WideExponential(WideOf<Words>(parts), isNegative);
    });
}

double Logarithm(double x) {
    if (std::isnan(x)) return x + x;
    if (x == 0) return -DividedByZero();
    if (x < 0) return Invalid();
    if (x == Infinity) return x;
    if (x == 1) return 0;
    const double magnitude = Nearest([parts = PartsOf(x)]<int Words> { return WideLogarithm<Words>(parts); });
    return x < 1 ? -magnitude : magnitude;
}

double ArcTangent(double x) {
    if (std::isnan(x)) return x + x;
    const double magnitude = std::fabs(x);
    if (magnitude < 0x1p-28) return x; // the next term of the series is below half a unit of the last place
    const double angle =
        magnitude >= 0x1p60
            ? Nearest([]<int Words> { return WideNumber<Words>{tables::ArcTangents[32].CutTo<Words>() * 2}; })
            : Nearest([parts = PartsOf(magnitude)]<int Words> { return WideArcTangent<Words>(parts); });
    return std::copysign(angle, x);
}

} // namespace vastrel
