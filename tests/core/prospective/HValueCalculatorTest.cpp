#include "core/prospective/HValueCalculator.h"

#include "core/prospective/CusumTestTables.h"
#include "core/text/Numbers.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

constexpr const char* NotPositive = "k-value and ARL0 should be positive numerical values";

std::string Result(HValueOption option, HValueTexts texts) {
    return HValueResult(option, texts).value_or("nothing");
}

/// The average run length in control of a threshold by Siegmund's approximation, of which the calculator is
/// the inversion: (exp(2 k b) - 2 k b - 1) / (2 k^2) with b = h + 1.166.
double RunLength(double k, double h) {
    const double b = h + 1.166;
    return (std::exp(2 * k * b) - 2 * k * b - 1) / (2 * k * k);
}

} // namespace

TEST(HValueResult, OfOneSeries) {
    EXPECT_EQ(Result(HValueOption::Overall, {"0.5", "100", "", ""}), "2.844");
}

TEST(HValueResult, OfAsManySeriesAsRegions) {
    EXPECT_EQ(Result(HValueOption::Bonferroni, {"0.5", "100", "100", ""}), "7.354");
}

TEST(HValueResult, OfFewerSeriesBySigma) {
    EXPECT_EQ(Result(HValueOption::Spatial, {"0.5", "100", "100", "1"}), "6.764");
}

TEST(HValueResult, OfSigmaZeroIsThatOfAllRegions) {
    EXPECT_EQ(Result(HValueOption::Spatial, {"0.5", "100", "100", "0"}), "7.354");
}

TEST(HValueResult, FallsLinearlyWithSigma) {
    // Sigma 2: m = 100 / 2.62, A = 50 m, ln(A + 1) = 7.55454, g = 7.55850 (worked out with Python): 7.56.
    EXPECT_EQ(Result(HValueOption::Spatial, {"0.5", "100", "100", "2"}), "6.394");
}

TEST(HValueResult, IsRoundedBeforeTheShift) {
    // A = 86.1: ln 87.1 = 4.46706, times 88.1 / 87.1 is 4.51834, rounded 4.52.
    EXPECT_EQ(Result(HValueOption::Overall, {"0.5", "172.2", "", ""}), "3.354");
}

TEST(HValueResult, AgreesWithKnownRunLengths) {
    // Tables of the one-sided cusum with k = 0.5 give h = 4.39 for a run length of 500 and 5.07 for 1000; the
    // closed formula comes within 0.02 of them.
    EXPECT_NEAR(ToNumber(Result(HValueOption::Overall, {"0.5", "500", "", ""})), 4.39, 0.02);
    EXPECT_NEAR(ToNumber(Result(HValueOption::Overall, {"0.5", "1000", "", ""})), 5.07, 0.02);
}

TEST(HValueResult, InvertsTheRunLengthOfAThreshold) {
    for (const double k : {0.25, 0.5, 0.75})
        for (const double h : {3.0, 4.0, 5.0, 6.0})
            EXPECT_NEAR(ToNumber(Result(HValueOption::Overall,
                                        {GeneralText(k), GeneralText(RunLength(k, h)), "", ""})),
                        h, 0.06);
}

TEST(HValueResult, IsSilentWhereATestedBoxIsNotNumeric) {
    const ScriptedPlatform noMessages;
    for (HValueTexts texts : {HValueTexts{"x", "100", "100", "1"}, HValueTexts{"0.5", "", "100", "1"},
                              HValueTexts{"0.5", "100", "many", "1"}, HValueTexts{"-1", "100", "100", "x"}}) {
        const HValueTexts before = texts;
        EXPECT_FALSE(HValueResult(HValueOption::Spatial, texts));
        EXPECT_EQ(texts.K + texts.ARL0 + texts.NumRegion + texts.Sigma,
                  before.K + before.ARL0 + before.NumRegion + before.Sigma);
    }
}

TEST(HValueResult, LooksAtNoBoxThatItsOptionDoesNotUse) {
    EXPECT_EQ(Result(HValueOption::Overall, {"0.5", "100", "x", "x"}), "2.844");
    EXPECT_EQ(Result(HValueOption::Overall, {"0.5", "100", "-1", "-1"}), "2.844");
    EXPECT_EQ(Result(HValueOption::Bonferroni, {"0.5", "100", "100", "-1"}), "7.354");
}

TEST(HValueResult, EmptiesTheFirstBoxAtFault) {
    ScriptedPlatform platform;
    const auto refused = [&](HValueOption option, HValueTexts texts) {
        platform.ExpectMessage(NotPositive);
        EXPECT_FALSE(HValueResult(option, texts));
        return texts.K + "|" + texts.ARL0 + "|" + texts.NumRegion + "|" + texts.Sigma;
    };
    EXPECT_EQ(refused(HValueOption::Overall, {"0", "0", "100", "1"}), "|0|100|1");
    EXPECT_EQ(refused(HValueOption::Overall, {"0.5", "-1", "-1", "-1"}), "0.5||-1|-1");
    EXPECT_EQ(refused(HValueOption::Bonferroni, {"0.5", "100", "0", "-1"}), "0.5|100||-1");
    EXPECT_EQ(refused(HValueOption::Spatial, {"0.5", "100", "100", "-0.1"}), "0.5|100|100|");
    EXPECT_EQ(refused(HValueOption::Spatial, {"0.5", "0", "0", "-1"}), "0.5||0|-1");
}

TEST(HValueResult, StopsAtInputsThatAreTooLarge) {
    EXPECT_EQ(ErrorOf([] { Result(HValueOption::Overall, {"1e200", "1", "", ""}); }), Overflow);
    EXPECT_EQ(ErrorOf([] { Result(HValueOption::Bonferroni, {"1", "1e300", "1e300", ""}); }), Overflow);
    EXPECT_EQ(ErrorOf([] { Result(HValueOption::Overall, {"0.5", "1e999", "", ""}); }), Overflow);
}

TEST(HValueResult, MayBeNegative) {
    // A tiny run length: g is about 2 * A / (2 k) = 2 k ARL0, 0.001 here, which rounds to 0.
    EXPECT_EQ(Result(HValueOption::Overall, {"0.5", "0.001", "", ""}), "-1.166");
}
