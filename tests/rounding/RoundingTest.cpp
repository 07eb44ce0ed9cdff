// Every elementary function against MPFR: not one result may differ in a bit.
#include "core/numeric/Elementary.h"
#include "core/numeric/ElementarySupport.h"
#include "core/numeric/Power.h"
#include "rounding/Arguments.h"
#include "rounding/Mpfr.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace vastrel;

namespace {

/// A number of the environment, for long runs (tests/rounding/long_run).
std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

/// Of all functions together.
std::uint64_t CountOfArguments() {
    return FromEnvironment("ROUNDING_ARGUMENTS", ROUNDING_ARGUMENTS);
}

Arguments ArgumentsOfTheRun() {
    return Arguments(FromEnvironment("ROUNDING_SEED", 1));
}

void ExpectSame(double ours, double exact, double x, double y = 0) {
    if (std::bit_cast<std::uint64_t>(ours) == std::bit_cast<std::uint64_t>(exact)) return;
    ADD_FAILURE() << std::hexfloat << "of " << x << " and " << y << ": " << ours << " in the place of "
                  << exact;
}

class Rounding : public testing::Test {
protected:
    void OfExponential(double x) { ExpectSame(Exponential(x), nearest_.Exponential(x), x); }
    void OfLogarithm(double x) { ExpectSame(Logarithm(x), nearest_.Logarithm(x), x); }
    void OfArcTangent(double x) { ExpectSame(ArcTangent(x), nearest_.ArcTangent(x), x); }
    void OfPower(double x, double y) { ExpectSame(Power(x, y), nearest_.Power(x, y), x, y); }

    /// Calls `test` with share / 1000 of all arguments of the run.
    template <typename Test>
    void Repeat(std::uint64_t share, Test test) {
        for (std::uint64_t i = 0; i < CountOfArguments() * share / 1000; ++i)
            test();
    }

    NearestByMpfr nearest_;
    Arguments random_ = ArgumentsOfTheRun();
};

/// Calls `test` with x and with 200 doubles on either side of it.
template <typename Test>
void Around(double x, Test test) {
    double below = x, above = x;
    test(x);
    for (int i = 0; i < 200; ++i) {
        below = std::nextafter(below, -INFINITY);
        above = std::nextafter(above, INFINITY);
        test(below);
        test(above);
    }
}

} // namespace

// ---- What the program sees: a thousandth here is one of ten thousand arguments

TEST_F(Rounding, OfTheExponentialsOfTheKernel) {
    Repeat(200, [&] { OfExponential(-random_.Between(0, 40)); });
    Repeat(60, [&] { OfExponential(-random_.Between(0, 750)); });
    Repeat(40, [&] { OfExponential(-random_.OfBinades(-40, 10)); });
}

TEST_F(Rounding, OfTheExponentialsOfTheNormalDensity) {
    Repeat(100, [&] {
        const double x = random_.Between(0, 5);
        OfExponential((-x * x) / 2);
    });
}

TEST_F(Rounding, OfLogarithms) {
    Repeat(70, [&] { OfLogarithm(random_.Between(0, 1)); });
    Repeat(70, [&] { OfLogarithm(1 + random_.OfBinades(-30, 40)); });
    Repeat(30, [&] { OfLogarithm(1 - random_.OfBinades(-52, -1)); });
}

TEST_F(Rounding, OfPowersWithTheExponentsOfTheFormulas) {
    const double third = 0.33333;
    Repeat(50, [&] { OfPower(random_.OfBinades(-20, 20), third); });
    Repeat(50, [&] { OfPower(random_.Between(0, 3), 1 / third); });
    Repeat(50, [&] { OfPower(random_.OfBinades(-60, 60), 1.5); });
    Repeat(10, [&] { OfPower(random_.OfBinades(-500, 500), 2); });
    Repeat(10, [&] { OfPower(random_.AnyPositive(), 0.5); });
}

TEST_F(Rounding, OfArcTangentsOfRatios) {
    Repeat(70, [&] { OfArcTangent(random_.OfBinades(-10, 30) / random_.OfBinades(-10, 30)); });
}

// ---- What it does not see

TEST_F(Rounding, OverAllExponents) {
    Repeat(30, [&] { OfExponential(random_.OfBinades(-1074, 11)); });
    Repeat(30, [&] { OfLogarithm(random_.AnyPositive()); });
    Repeat(30, [&] { OfArcTangent(random_.Any()); });
    Repeat(10, [&] { OfPower(random_.AnyPositive(), random_.Any()); });
}

TEST_F(Rounding, OfPowersOfAnyBaseWithResultsOfAnySize) {
    Repeat(50, [&] {
        const double base = random_.AnyPositive();
        OfPower(base, random_.Between(-760, 760) / std::log(base));
    });
    Repeat(30, [&] { // bases near 1
        const double base = 1 + random_.OfBinades(-52, -5);
        OfPower(base, random_.Between(-760, 760) / std::log(base));
    });
}

TEST_F(Rounding, OfSubnormalResults) {
    Repeat(5, [&] { OfExponential(-random_.Between(708, 746)); });
    Repeat(5, [&] {
        const double base = random_.OfBinades(-300, -3);
        OfPower(base, random_.Between(-746, -708) / std::log(base));
    });
}

TEST_F(Rounding, AtTheLimits) {
    const auto exponential = [&](double x) { OfExponential(x); };
    // where results overflow, become subnormal, and round to 0; 0x1p-53 apart from 1, and none
    for (const double x :
         {0x1.62e42fefa39efp+9, -0x1.6232bdd7abcd2p+9, -0x1.74910d52d3051p+9, -0x1.74385446d71c3p+9, 0x1p-53,
          -0x1p-54, 0x1p-60, -0x1p-60, 0.0, 1.0, -1.0, 708.0, -708.0, -745.2, 709.8})
        Around(x, exponential);
    for (const double x : {1.0, 0x1p-1074, 0x1p-1022, 0.5, 2.0, std::numeric_limits<double>::max()})
        Around(x, [&](double at) {
            if (at > 0 && std::isfinite(at)) OfLogarithm(at);
        });
    for (const double x : {1.0, 0x1p-28, 0x1p-27, 0x1p-30, 1 / 32.0, 32.0, 0x1p60, 0x1p53, 0x1p-1022})
        Around(x, [&](double at) { OfArcTangent(at), OfArcTangent(-at); });
    for (int a = 1; a < 33; ++a)
        Around(a / 32.0, [&](double at) { OfArcTangent(at), OfArcTangent(1 / at); });
    for (int a = 0; a < 128; ++a)
        Around(1 + a / 128.0, [&](double at) { OfLogarithm(at), OfLogarithm(0x1p-1030 * at); });
    for (const double y : {1.5, 1 / 3.0, 0.33333, 3.0, -1.0, 1e10, 0x1p52, 1e-3})
        for (const double size :
             {709.782712893384, -745.133219101941, -708.3964185322641, 0.6931471805599453})
            Around(std::exp(size / y), [&](double base) { OfPower(base, y); });
}

TEST_F(Rounding, OfPowersThatLieHalfWayBetweenTwoDoubles) {
    // Odd bases up to 18 bits to the third, and roots of squares, have up to 54 bits: the last is half a
    // unit.
    for (std::uint64_t odd = 3; odd < std::uint64_t{1} << 18; odd += 2) {
        const auto base = static_cast<double>(odd);
        OfPower(base, 3);
        OfPower(base * base, 1.5);
        OfPower(base * base / 4, 1.5);
    }
    for (int n = 2; n <= 40; ++n)
        for (std::uint64_t odd = 3; odd < 4000; odd += 2)
            for (const double scale : {1.0, 0x1p-10, 0x1p25})
                OfPower(scale * static_cast<double>(odd), n);
    // The same below the normal numbers, where fewer bits stand.
    for (int i = 0; i < 20000; ++i) {
        const auto odd = static_cast<double>(2 * random_.Whole(1 << 17) + 1);
        const int exponent = -340 - static_cast<int>(random_.Whole(18));
        OfPower(std::ldexp(odd, exponent), 3);
        OfPower(std::ldexp(odd * odd, 2 * exponent), 1.5);
        OfPower(2, -1074 - random_.Between(-2, 2));
    }
    for (int root = 1; root <= 5; ++root) { // 2^-root roots of whole powers
        const double y = std::ldexp(3, -root);
        for (const double base : {3.0, 5.0, 7.0, 9.0, 2.0})
            OfPower(std::pow(base, std::ldexp(1, root)), y);
    }
}

/// Arguments whose results lie nearer to the middle between two doubles than 2^-29 of their distance, found
/// by tests/rounding/hard_cases.cpp; and the first, known as the hardest of all exponentials, nearer than
/// 2^-58.
TEST_F(Rounding, OfTheHardestArguments) {
    const auto isHard = [](double x, int bits) {
        const auto value = WideExponential(WideOf<6>(PartsOf(std::fabs(x))), x < 0);
        return !NearestBitsIfSure(value, 52 + bits);
    };
    EXPECT_TRUE(isHard(0x1.9e9cbbfd6080bp-31, 58));
    for (const double x :
         {0x1.9e9cbbfd6080bp-31, -0x1.0000008a69615p+0, -0x1.000001e92ef0cp+0, -0x1.800000bb2fcf4p+2}) {
        EXPECT_TRUE(isHard(x, 29)) << x;
        Around(x, [&](double at) { OfExponential(at); });
    }
    for (const double x : {0x1.800003080ad7dp-3, 0x1.200001373c422p+4})
        Around(x, [&](double at) { OfLogarithm(at); });
    for (const double x : {0x1.000001b5b9907p-2, 0x1.800000d1d8cf7p+1})
        Around(x, [&](double at) { OfArcTangent(at); });
}

/// With the exponents of the formulas. The squares are ties; the roots lie as near to a middle as roots can.
TEST_F(Rounding, OfTheHardestPowers) {
    struct Hard {
        double Base, Exponent;
    };
    for (const auto [base, exponent] : {Hard{0x1.4ccccd88da67cp+0, 1.5},
                                        {0x1.4cccd0082bbaep+0, 0.33333},
                                        {0x1.4ccccfb78ce9p+0, 1 / 0.33333},
                                        {0x6000001p+0, 2},
                                        {0x6000001p-60, 2},
                                        {1 + 0x1p-52, 0.5},
                                        {4 - 0x1p-51, 0.5}})
        Around(base, [&, y = exponent](double at) { OfPower(at, y); });
}
