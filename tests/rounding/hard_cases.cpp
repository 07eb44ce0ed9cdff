// Looks for the arguments whose results lie nearest to the middle between two doubles: those that are hardest
// to round. RoundingTest.cpp holds what it found.
//
//     vastrel_hard_cases FUNCTION START MILLIONS
//
// goes over MILLIONS million neighbouring arguments from START on (FUNCTION: exp, log, atan or pow:Y) and
// prints each that is harder than all before, with its distance in bits: -log2 of the distance to the middle
// in units of the last place. Over a stretch of 4096 arguments a function is so nearly a parabola that two
// sums a step give its place between two doubles, in fractions of 2^-64: a thousand million arguments take
// some seconds.
#include "core/numeric/ElementarySupport.h"

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace vastrel;

namespace {

constexpr std::int64_t Stretch = 4096;

WideNumber<6> Value(const std::string& function, double x) {
    const Parts parts = PartsOf(std::fabs(x));
    if (function == "exp") return WideExponential(WideOf<6>(parts), x < 0);
    if (function == "log") return WideLogarithm<6>(parts);
    if (function == "atan") return WideArcTangent<6>(parts);
    const double y = std::strtod(function.c_str() + 4, nullptr);
    const Parts exponent = PartsOf(std::fabs(y));
    const auto logarithm = WideLogarithm<6>(parts);
    return WideExponential((logarithm.Magnitude * exponent.Mantissa).Shifted(exponent.Exponent),
                           logarithm.IsNegative != (y < 0));
}

/// The power of two of the last place of a value.
int LastPlace(const WideNumber<6>& value) {
    return value.Magnitude.Length() - WidestFixed::FractionBits + value.Exponent - 53;
}

/// The value behind the last place, in 2^-64 of its unit.
std::uint64_t Behind(const WideNumber<6>& value, int lastPlace) {
    return value.Magnitude.Shifted(value.Exponent - lastPlace).FirstFraction();
}

std::uint64_t DistanceToTheMiddle(std::uint64_t behind) {
    const std::uint64_t middle = std::uint64_t{1} << 63;
    return behind > middle ? behind - middle : middle - behind;
}

double Neighbour(double x, std::int64_t steps) {
    return std::bit_cast<double>(std::bit_cast<std::int64_t>(x) + steps);
}

} // namespace

int main(int count, char** words) {
    if (count != 4) return 2;
    const std::string function = words[1];
    double x = std::strtod(words[2], nullptr);
    std::uint64_t nearest = std::uint64_t{1} << 40;
    for (long long i = std::atoll(words[3]) * 1000000 / Stretch; i > 0; --i, x = Neighbour(x, Stretch)) {
        const int lastPlace = LastPlace(Value(function, x));
        if (LastPlace(Value(function, Neighbour(x, Stretch))) != lastPlace) continue;
        const auto behind = [&](std::int64_t steps) {
            return Behind(Value(function, Neighbour(x, steps)), lastPlace);
        };
        std::uint64_t at = behind(0), step = behind(1) - at;
        const std::uint64_t bend = behind(2) - at - 2 * step;
        for (std::int64_t j = 0; j < Stretch; ++j, at += step, step += bend) {
            if (DistanceToTheMiddle(at) >= nearest) continue;
            const std::uint64_t exact = DistanceToTheMiddle(behind(j));
            if (exact >= nearest) continue;
            nearest = exact;
            std::printf("%s %a: %.1f bits\n", function.c_str(), Neighbour(x, j),
                        64 - std::log2(static_cast<double>(exact) + 1));
        }
    }
}
