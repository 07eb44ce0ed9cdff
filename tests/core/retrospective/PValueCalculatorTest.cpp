#include "core/retrospective/PValueCalculator.h"

#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

// Results come from tests/reference/retrospective.py, rounded to eight decimals.

TEST(PValueCalculator, PrintsEightDecimals) {
    ScriptedPlatform silent;
    EXPECT_EQ(NormalResult("1.96"), "0.02495800");
    EXPECT_EQ(NormalResult(" -1.96\t"), "0.02495800");
    EXPECT_EQ(NormalResult("0"), "0.50000000");
    EXPECT_EQ(NormalResult("4.6"), "0.00000000");
    EXPECT_EQ(ChiSquareResult("18.307", "10"), "0.04973228");
}

TEST(PValueCalculator, RoundsTheDegreesOfFreedomToAnEvenNeighbour) {
    ScriptedPlatform silent;
    EXPECT_EQ(ChiSquareResult("3", "2.5"), ChiSquareResult("3", "2"));
    EXPECT_EQ(ChiSquareResult("3", "3.5"), ChiSquareResult("3", "4"));
    EXPECT_NE(ChiSquareResult("3", "2"), ChiSquareResult("3", "3"));
}

TEST(PValueCalculator, RefusesAZThatIsNoNumber) {
    ScriptedPlatform platform;
    platform.ExpectMessage("Z-score should be specified.");
    EXPECT_FALSE(NormalResult(""));
    platform.ExpectMessage("Z-score should be numeric.");
    EXPECT_FALSE(NormalResult("1,96"));
    platform.ExpectMessage("Z-score should be numeric.");
    EXPECT_FALSE(NormalResult(" ")); // not empty, and no number
    platform.ExpectMessage("Z-score should be numeric.");
    EXPECT_FALSE(NormalResult("nan"));
}

TEST(PValueCalculator, RefusesAnEmptyTextOfTheTwo) {
    ScriptedPlatform platform;
    for (const auto& [chi, df] :
         {std::pair("", "2"), std::pair("3", ""), std::pair("", ""), std::pair("x", "")}) {
        platform.ExpectMessage("Both chi-square statistic and D.F. should be specified.");
        EXPECT_FALSE(ChiSquareResult(chi, df));
    }
}

TEST(PValueCalculator, SaysNothingOfTwoTextsThatAreNotBothNumbers) {
    ScriptedPlatform silent;
    EXPECT_FALSE(ChiSquareResult("x", "2"));
    EXPECT_FALSE(ChiSquareResult("3", "x"));
    EXPECT_EQ(silent.Transcript(), "");
}

TEST(PValueCalculator, StopsWhereTheArithmeticDoes) {
    ScriptedPlatform silent;
    EXPECT_EQ(ErrorNumberOf([] { ChiSquareResult("3", "0.5"); }), DivisionByZero); // 0.5 is rounded to 0
    EXPECT_EQ(ErrorNumberOf([] { ChiSquareResult("-3", "2"); }), InvalidProcedureCall);
    EXPECT_EQ(ErrorNumberOf([] { ChiSquareResult("3", "32768"); }), Overflow);
    EXPECT_EQ(ErrorNumberOf([] { ChiSquareResult("3", "32767.5"); }), Overflow); // the even neighbour
    EXPECT_EQ(ErrorNumberOf([] { ChiSquareResult("3", "32767"); }), 0);
    EXPECT_EQ(ErrorNumberOf([] { NormalResult("1e400"); }), Overflow);
}
