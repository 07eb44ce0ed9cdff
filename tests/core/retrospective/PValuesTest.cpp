#include "core/retrospective/PValues.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

// Numbers with all their digits come from tests/reference/retrospective.py.

TEST(NormalPValue, IntegratesTheDensityInSteps) {
    EXPECT_EQ(NormalPValue(0), 0.5);
    EXPECT_EQ(NormalPValue(1.96), 0.024958000744359443);
    EXPECT_EQ(NormalPValue(0.5), 0.3084976445353296);
    EXPECT_EQ(NormalPValue(3), 0.0013498977570558512);
    EXPECT_EQ(NormalPValue(0.00005), 0.4999601057719869); // the one interval is not cut at 0
}

TEST(NormalPValue, StaysCloseToTheTail) {
    // The last interval may reach below 0 by a step of 0.0001 under a density of 0.4.
    for (double z = 0.01; z < 4.5; z += 0.37)
        EXPECT_NEAR(NormalPValue(z), std::erfc(z / std::sqrt(2)) / 2, 0.00005) << z;
}

TEST(NormalPValue, FoldsNegativeValues) {
    EXPECT_EQ(NormalPValue(-1.96), NormalPValue(1.96));
    EXPECT_EQ(NormalPValue(-3), NormalPValue(3));
}

TEST(NormalPValue, IsZeroAboveTheLimitOfTheSignedValue) {
    EXPECT_EQ(NormalPValue(4.6), 0);
    EXPECT_EQ(NormalPValue(1e300), 0);
    EXPECT_GT(NormalPValue(4.5), 0);
    EXPECT_EQ(NormalPValue(-5), 2.8636524224134874e-07); // integrated, like 4.5 itself
}

TEST(NormalPValue, EndsEarlyBelowAHundredThousandth) {
    EXPECT_EQ(NormalPValue(4.3), 8.53961862606889e-06);
    // With exponentials of 40 digits (Python's decimal numbers), each rounded to the nearest double: 0.5 less
    // the area leaves few digits, so that a last bit of one shows.
    EXPECT_EQ(NormalPValue(4.4999), 3.3989851180304953e-06);
}

TEST(NormalPValue, SkipsTheFlatTailWithoutADifference) {
    EXPECT_EQ(NormalPValue(-40.00001), 3.989055622433124e-06);
    EXPECT_EQ(NormalPValue(-45.00002), 7.978412207954033e-06);
    EXPECT_EQ(NormalPValue(-64.00001), 3.98873778034714e-06);
    EXPECT_EQ(NormalPValue(-70.000015), 5.983369716966447e-06);
}

TEST(NormalPValue, EndsFarOutToo) {
    EXPECT_LT(NormalPValue(-1e6), 0.00001);
    EXPECT_EQ(ErrorNumberOf([] { NormalPValue(-1e300); }), Overflow);
}

TEST(ChiSquarePValue, IsTheCubeRootTransformation) {
    EXPECT_DOUBLE_EQ(ChiSquarePValue(10, 10), 0.44073723597457604);
    EXPECT_DOUBLE_EQ(ChiSquarePValue(3.841458820694124, 1), 0.04721229036201591);
    EXPECT_DOUBLE_EQ(ChiSquarePValue(18.307, 10), 0.049732279250413236);
    EXPECT_DOUBLE_EQ(ChiSquarePValue(16, 3.5), 0.0020372693557016985);
}

TEST(ChiSquarePValue, IsCloseToAHalfAtItsDegreesOfFreedom) {
    // z is sqrt(9 df / 2) * 2 / (9 df) there.
    for (const double df : {1.0, 10.0, 250.0}) {
        const double z = std::sqrt(9 * df / 2) * (2 / (9 * df));
        EXPECT_NEAR(ChiSquarePValue(df, df), std::erfc(z / std::sqrt(2)) / 2, 0.00005) << df;
    }
}

TEST(ChiSquarePValue, IsNoLowerTail) {
    EXPECT_DOUBLE_EQ(ChiSquarePValue(2, 10), 0.004165042554794607);
    EXPECT_DOUBLE_EQ(ChiSquarePValue(0, 4), 6.1909751576938454e-06);
}

TEST(ChiSquarePValue, StopsWithoutDegreesOfFreedomAndBelowZero) {
    EXPECT_EQ(ErrorNumberOf([] { ChiSquarePValue(3, 0); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { ChiSquarePValue(0, 0); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { ChiSquarePValue(-0.1, 1); }), InvalidProcedureCall);
}

TEST(ChiCritical, ApproximatesTheQuantile) {
    EXPECT_DOUBLE_EQ(ChiCritical(0.05, 1), 4.928098516521507);
    EXPECT_DOUBLE_EQ(ChiCritical(0.05, 10), 20.48191208906718);
    EXPECT_DOUBLE_EQ(ChiCritical(0.01, 10), 25.204251749416137);
    EXPECT_DOUBLE_EQ(ChiCritical(0.05, 3.5), 10.243028349329434); // degrees of freedom are not rounded
}

TEST(ChiCritical, IsZeroForAnyOtherAlpha) {
    EXPECT_EQ(ChiCritical(0.1, 10), 0);
    EXPECT_EQ(ChiCritical(std::nextafter(0.05, 1), 10), 0);
    EXPECT_EQ(ChiCritical(0.1, 0), 0); // at once, before any division
}

TEST(ChiCritical, StopsWithoutDegreesOfFreedom) {
    EXPECT_EQ(ErrorNumberOf([] { ChiCritical(0.05, 0); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { ChiCritical(0.05, -1); }), InvalidProcedureCall);
}
