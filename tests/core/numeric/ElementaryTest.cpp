#include "core/numeric/Elementary.h"

#include "core/numeric/Exponentials.h"
#include "core/numeric/Power.h"
#include "support/ForcedMachine.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <limits>

using namespace vastrel;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double largest = std::numeric_limits<double>::max();

/// Where a result is exact, infinite or no number, and where faults begin.
constexpr double Limits[] = {0.0,       -0.0,     1.0,       -1.0,    0.5,      -0.5, 1.5,   2.0,
                             -2.0,      3.0,      -3.0,      4.0,     0.25,     1e10, -1e10, 1e300,
                             -1e300,    1e-300,   -1e-300,   709.7,   709.9,    1e18, -1e18, infinity,
                             -infinity, smallest, -smallest, largest, -largest, nan};

constexpr int faults = FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID;

struct Outcome {
    double Value = 0;
    int Faults = 0;
};

template <typename Function>
Outcome OutcomeOf(Function function) {
    std::feclearexcept(FE_ALL_EXCEPT);
    const double value = function();
    return {value, std::fetestexcept(faults)};
}

/// As the C library's: the same faults, and the same value as far as it is exact.
void ExpectAsBefore(const Outcome& ours, const Outcome& before, double x, double y = 0) {
    EXPECT_EQ(ours.Faults, before.Faults) << x << " " << y;
    EXPECT_EQ(std::isnan(ours.Value), std::isnan(before.Value)) << x << " " << y;
    if (std::isnan(ours.Value)) return;
    EXPECT_DOUBLE_EQ(ours.Value, before.Value) << x << " " << y;
    EXPECT_EQ(std::signbit(ours.Value), std::signbit(before.Value)) << x << " " << y;
}

} // namespace

TEST(Elementary, ValuesAndFaultsAtTheLimitsAreThoseOfTheCLibrary) {
    // volatile, so that no compiler works them out beforehand
    double (*volatile exponential)(double) = std::exp;
    double (*volatile logarithm)(double) = std::log;
    double (*volatile arcTangent)(double) = std::atan;
    double (*volatile power)(double, double) = std::pow;
    for (const double x : Limits) {
        const auto compare = [&](double (*ours)(double), double (*before)(double)) {
            ExpectAsBefore(OutcomeOf([&] { return ours(x); }), OutcomeOf([&] { return before(x); }), x);
        };
        compare(Exponential, exponential);
        compare(Logarithm, logarithm);
        compare(ArcTangent, arcTangent);
        for (const double y : Limits)
            ExpectAsBefore(OutcomeOf([&] { return Power(x, y); }), OutcomeOf([&] { return power(x, y); }), x,
                           y);
    }
}

TEST(Elementary, AResultTooSmallForANormalNumberIsNoFault) {
    for (const double x : {-708.5, -745.0, -746.0, -1e10}) {
        const Outcome outcome = OutcomeOf([&] { return Exponential(x); });
        EXPECT_EQ(outcome.Faults, 0) << x;
        EXPECT_LT(outcome.Value, 1e-300) << x;
    }
    EXPECT_EQ(OutcomeOf([] { return Power(1e-200, 1.6); }).Faults, 0);
    EXPECT_EQ(OutcomeOf([] { return Power(1e-200, 2); }).Faults, 0);
}

TEST(Elementary, KnownDigits) { // from tables of the constants, to 20 digits
    EXPECT_EQ(Exponential(1), 2.7182818284590452354);
    EXPECT_EQ(Exponential(-1), 0.36787944117144232160);
    EXPECT_EQ(Logarithm(2), 0.69314718055994530942);
    EXPECT_EQ(Logarithm(10), 2.3025850929940456840);
    EXPECT_EQ(4 * ArcTangent(1), 3.1415926535897932385);
    EXPECT_EQ(Power(2, 1 / 2.0), 1.4142135623730950488);
    EXPECT_EQ(Power(2, 1.5), 2.8284271247461900976);
}

namespace {

std::vector<double> ArgumentsOfEveryKind() {
    std::vector<double> arguments(std::begin(Limits), std::end(Limits));
    for (const double limit : {-708.0, 708.0, -745.13, -745.2, 709.78, -1e-17, 0.0})
        for (const double around : {limit, std::nextafter(limit, -infinity), std::nextafter(limit, infinity)})
            arguments.push_back(around);
    for (int i = 0; i < 20000; ++i)
        arguments.push_back(-760 + i * 0.0760123456789);
    return arguments;
}

void ExpectSameBits(const std::vector<double>& ours, const std::vector<double>& expected,
                    const std::vector<double>& arguments) {
    for (std::size_t i = 0; i < ours.size(); ++i)
        if (!std::isnan(expected[i])) {
            EXPECT_EQ(std::bit_cast<std::uint64_t>(ours[i]), std::bit_cast<std::uint64_t>(expected[i]))
                << "of " << arguments[i];
        } else {
            EXPECT_TRUE(std::isnan(ours[i])) << "of " << arguments[i];
        }
}

} // namespace

TEST(Exponentials, AreThoseOfTheScalarFunctionOnEveryInstructionSet) {
    const std::vector<double> arguments = ArgumentsOfEveryKind();
    std::vector<double> expected;
    for (const double x : arguments)
        expected.push_back(Exponential(x));
    OnEveryMachine([&] {
        std::vector<double> result(arguments.size());
        Exponentials(arguments.data(), static_cast<std::ptrdiff_t>(arguments.size()), result.data());
        ExpectSameBits(result, expected, arguments);
    });
}

TEST(Exponentials, OfAnyCountInPlaceLeaveTheNeighboursAlone) {
    OnEveryMachine([&] {
        for (std::ptrdiff_t n = 0; n < 40; ++n) {
            std::vector<double> values(static_cast<std::size_t>(n) + 2, 7.0);
            for (std::size_t i = 1; i + 1 < values.size(); ++i)
                values[i] = i % 5 == 4 ? -800.0 : -0.3 * static_cast<double>(i);
            const std::vector<double> arguments = values;
            Exponentials(values.data() + 1, n, values.data() + 1);
            EXPECT_EQ(values.front(), 7);
            EXPECT_EQ(values.back(), 7);
            for (std::size_t i = 1; i + 1 < values.size(); ++i)
                EXPECT_EQ(values[i], Exponential(arguments[i]));
        }
    });
}

TEST(Exponentials, FaultsAreThoseOfTheScalarFunction) {
    OnEveryMachine([&] {
        for (const double x : Limits) {
            std::vector<double> values(16, -1.0), results(16);
            values[5] = x;
            const int raised = OutcomeOf([&] {
                                   Exponentials(values.data(), 16, results.data());
                                   return results[5];
                               }).Faults;
            EXPECT_EQ(raised, OutcomeOf([&] { return Exponential(x); }).Faults) << x;
        }
    });
}

TEST(GaussianValues, AreThoseOfTheScalarFunctionOnEveryInstructionSet) {
    constexpr double spread = 1.7, peak = 0.3;
    std::vector<double> squares, expected;
    for (const double x : ArgumentsOfEveryKind()) {
        squares.push_back(-x * spread);
        expected.push_back(peak * Exponential(-squares.back() / spread));
    }
    OnEveryMachine([&] {
        std::vector<double> result = squares;
        GaussianValues(result.data(), static_cast<std::ptrdiff_t>(result.size()), spread, peak,
                       result.data());
        ExpectSameBits(result, expected, squares);
    });
}

TEST(GaussianValues, RaiseNoFaultForAVectorThatIsNotFull) {
    // 4 / 0 is a division by zero, and e to the power of minus infinity is 0; only 0 / 0 would be invalid.
    OnEveryMachine([&] {
        for (std::ptrdiff_t n = 1; n < 20; ++n) {
            std::vector<double> values(static_cast<std::size_t>(n), 4.0);
            const int raised = OutcomeOf([&] {
                                   GaussianValues(values.data(), n, 0, 1, values.data());
                                   return values.back();
                               }).Faults;
            EXPECT_EQ(raised, FE_DIVBYZERO) << n;
            EXPECT_EQ(values.back(), 0) << n;
        }
    });
}

TEST(GaussianValues, RaiseNoFaultsOfTheirOwn) {
    // Where the exponential is worked out anew: it is subnormal, no number, or hard to round beside a peak
    // that the next larger one would lift over the largest number.
    const std::pair<double, double> squareAndPeak[] = {
        {720, infinity}, {std::nan(""), infinity}, {-0x1.0f171fffffffdp-1, 0x1.2d86468fdbab5p+1023}};
    OnEveryMachine([&] {
        for (const auto& [square, peak] : squareAndPeak) {
            std::vector<double> values(16, square);
            const int raised = OutcomeOf([&, peak = peak] {
                                   GaussianValues(values.data(), 16, 1, peak, values.data());
                                   return values[3];
                               }).Faults;
            EXPECT_EQ(raised, 0) << square;
        }
    });
}
