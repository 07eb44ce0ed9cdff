#include "core/binding/Deviations.h"

#include "core/platform/RunTimeError.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

using namespace vastrel;

// By hand for o = 9, e = 4: o - e = 5; 5 / 2; 3 + sqrt(10) - sqrt(17); (9 - 12 + 2 * 6) / (2 * 2).
TEST(Deviations, FromAnExpectedCount) {
    const Deviations of = DeviationsFromExpected(9, 4);
    EXPECT_EQ(of.Raw, 5);
    EXPECT_EQ(of.Pearson, 2.5);
    EXPECT_DOUBLE_EQ(of.FreemanTukey, 3 + std::sqrt(10.0) - std::sqrt(17.0));
    EXPECT_EQ(of.Rossi, 2.25);
}

// The same expectation as a rate of 1/2 over a population of 8.
TEST(Deviations, FromARateAndAPopulation) {
    const Deviations of = DeviationsFromRate(9, 0.5, 8);
    EXPECT_EQ(of.Raw, 5);
    EXPECT_EQ(of.Pearson, 2.5);
    EXPECT_DOUBLE_EQ(of.FreemanTukey, 3 + std::sqrt(10.0) - std::sqrt(17.0));
    EXPECT_EQ(of.Rossi, 2.25);
}

TEST(Deviations, OfACountOfZero) {
    const Deviations of = DeviationsFromExpected(0, 4); // Rossi (0 - 12 + 0) / 4
    EXPECT_EQ(of.Raw, -4);
    EXPECT_EQ(of.Pearson, -2);
    EXPECT_DOUBLE_EQ(of.FreemanTukey, 1 - std::sqrt(17.0));
    EXPECT_EQ(of.Rossi, -3);
}

// 667 cases in a population of 329962, of which 1 in 1091: every value worked out in Python with the same
// order of operations. Product first and quotient first end in different last bits.
TEST(Deviations, KeepTheirOrderOfOperationsToTheLastBit) {
    const double rate = 667.0 / 329962.0;
    EXPECT_EQ(ExpectedCases(667, 1091, 329962), 0x1.1a4a6db536225p+1);
    EXPECT_NE(ExpectedCases(667, 1091, 329962), rate * 1091);

    const Deviations ofRate = DeviationsFromRate(1, rate, 1091);
    EXPECT_EQ(ofRate.Raw, -0x1.3494db6a6c448p+0);
    EXPECT_EQ(ofRate.Pearson, -0x1.9f94f08998a78p-1);
    EXPECT_EQ(ofRate.FreemanTukey, -0x1.708019bf6e648p-1);
    EXPECT_EQ(ofRate.Rossi, -0x1.c823f3f45eb9ap-1);

    const Deviations ofExpected = DeviationsFromExpected(1, 0x1.1a4a6db536225p+1);
    EXPECT_EQ(ofExpected.Raw, -0x1.3494db6a6c44ap+0);
    EXPECT_EQ(ofExpected.Pearson, -0x1.9f94f08998a7ap-1);
    EXPECT_EQ(ofExpected.FreemanTukey, -0x1.708019bf6e64cp-1);
    EXPECT_EQ(ofExpected.Rossi, -0x1.c823f3f45eb9ap-1);
}

TEST(Deviations, FromNothingAreADivisionByZero) {
    EXPECT_EQ(ErrorNumberOf([] { DeviationsFromExpected(0, 0); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { DeviationsFromExpected(3, 0); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { DeviationsFromRate(0, 0, 5); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { DeviationsFromRate(3, 0.5, 0); }), DivisionByZero);
}

TEST(Deviations, SumsThatNoDoubleHoldsAreAnOverflow) {
    EXPECT_EQ(AddedTo(1.5, 2), 3.5);
    EXPECT_EQ(AddedTo(DBL_MAX, 0), DBL_MAX);
    EXPECT_EQ(ErrorNumberOf([] { AddedTo(DBL_MAX, DBL_MAX); }), Overflow);
}
