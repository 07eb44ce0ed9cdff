#include "core/display/LegendClasses.h"

#include "support/Arrays.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using Values = std::vector<double>;

/// Builds a legend of the score and gives limits 1 to 6.
Values ScoreLimits(Values values) {
    ws = Workspace{};
    ws.NumRegion = static_cast<std::int32_t>(values.size());
    auto array = ArrayFrom1(values);
    BuildLegend(array, RetroVariable::Unadjusted);
    return From1(ws.LegendLimits);
}

/// The same of M for 100 Regions, sigma 1 and alpha 0.05: M* is 3.1565.
void BuildMLegend(Array1<double>& values) {
    ws = Workspace{};
    ws.NumRegion = 100;
    ws.CurrentSigma = 1;
    ws.AlphaLevel = 0.05;
    BuildLegend(values, RetroVariable::Rossi);
}

void SetLimits(const Values& limits) {
    ws = Workspace{};
    ws.LegendLimits = ws.LegendWork = ArrayFrom1(limits);
    SetLegendColors();
}

} // namespace

TEST(BuildLegend, SortsTheValuesAndTakesTheirRange) {
    ws = Workspace{};
    ws.NumRegion = 4;
    auto values = ArrayFrom1<double>({3, -1, 2, -7});
    BuildLegend(values, RetroVariable::AdjustedPoisson);
    EXPECT_EQ(From1(values), (Values{-7, -1, 2, 3}));
    EXPECT_EQ(ws.LegendMin, -7);
    EXPECT_EQ(ws.LegendMax, 3);
}

TEST(BuildLegend, TakesTercilesOnBothSidesOfZero) {
    // Negative -6 ... -1: elements 2 and 4. The others 0 1 ... 6: Int(7 / 3) = 2 and Int(14 / 3) = 4.
    EXPECT_EQ(ScoreLimits({6, 5, 4, 3, 2, 1, 0, -1, -2, -3, -4, -5, -6}), (Values{-5, -3, 0, 1, 3, 0}));
    // Three on each side: elements 1 and 2.
    EXPECT_EQ(ScoreLimits({-3, -2, -1, 0.5, 1, 4}), (Values{-3, -2, 0, 0.5, 1, 0}));
}

TEST(BuildLegend, HasTheLimitZeroForASideOfFewValues) {
    EXPECT_EQ(ScoreLimits({1, 2, 3}), (Values{0, 0, 0, 1, 2, 0}));      // none below
    EXPECT_EQ(ScoreLimits({-3, -2, -1}), (Values{-3, -2, 0, 0, 0, 0})); // none above
    EXPECT_EQ(ScoreLimits({4, 9}), (Values{0, 0, 0, 0, 4, 0}));         // Int(2/3) = 0, Int(4/3) = 1
    EXPECT_EQ(ScoreLimits({-9, -4}), (Values{0, -9, 0, 0, 0, 0}));
    EXPECT_EQ(ScoreLimits({4}), (Values{0, 0, 0, 0, 0, 0})); // Int(1/3) = Int(2/3) = 0
    EXPECT_EQ(ScoreLimits({-4}), (Values{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(ScoreLimits({0, -0.0, 0}), (Values{0, 0, 0, 0, 0, 0})); // zeros count as above
}

TEST(BuildLegend, TakesHalfAndWholeOfTheCriticalM) {
    auto values = Array1<double>(100);
    BuildMLegend(values);
    EXPECT_EQ(From1(ws.LegendLimits), (Values{-3.1565, -1.57825, 0, 1.57825, 3.1565, 0}));
    EXPECT_EQ(ws.LegendWork, ws.LegendLimits);
}

TEST(BuildLegend, HasLimitsOfZeroWhereThereIsNoCriticalM) {
    ScriptedPlatform platform;
    platform.ExpectMessage("Error!");
    ws = Workspace{};
    ws.NumRegion = 2; // (100 * 0.81 + 1) * 0.2 / 2 = 8.2, above 1
    ws.CurrentSigma = 10;
    ws.AlphaLevel = 0.05;
    auto values = ArrayFrom1<double>({1, -1});
    BuildLegend(values, RetroVariable::FreemanTukey);
    for (int i = 1; i <= 6; ++i)
        EXPECT_EQ(ws.LegendLimits(i), 0);
    EXPECT_EQ(ClassOf(-0.1), 1);
    EXPECT_EQ(ClassOf(0), 6);
    EXPECT_EQ(ClassOf(0.1), 6);
    EXPECT_EQ(PointClassOf(-0.1), 1);
    EXPECT_EQ(PointClassOf(0.1), 6);
}

TEST(BuildLegend, IsFreshEachTime) {
    ScoreLimits({-3, -2, -1, 0.5, 1, 4});
    ws.LegendLimits(0) = ws.LegendWork(0) = ws.LegendWork(6) = 7;
    ws.NumRegion = 1;
    auto values = ArrayFrom1<double>({2});
    BuildLegend(values, RetroVariable::Unadjusted);
    EXPECT_EQ(ws.LegendLimits, Array1<double>(6));
    EXPECT_EQ(ws.LegendWork, Array1<double>(6));
}

TEST(BuildLegend, NeedsAValueForEachRegion) {
    ws = Workspace{};
    ws.NumRegion = 2;
    auto values = ArrayFrom1<double>({2});
    EXPECT_EQ(ErrorNumberOf([&] { BuildLegend(values, RetroVariable::Unadjusted); }), SubscriptOutOfRange);
}

TEST(SetLegendColors, GoesFromBlueToRed) {
    ws = Workspace{};
    SetLegendColors();
    EXPECT_EQ(From1(ws.LegendColors), (Values{16711680, 16744576, 16761024, 12632319, 8421631, 255}));
}

TEST(ClassOf, PutsAValueEqualToALimitIntoTheClassAbove) {
    SetLimits({-2, -1, 0, 1, 2, 0});
    const std::pair<double, int> classes[] = {{-9, 1},    {-2, 2}, {-1.5, 2},  {-1, 3}, {-0.001, 3}, {0, 4},
                                              {0.999, 4}, {1, 5},  {1.999, 5}, {2, 6},  {9, 6}};
    for (const auto& [value, expected] : classes) {
        EXPECT_EQ(ClassOf(value), expected) << value;
        EXPECT_EQ(PointClassOf(value), expected) << value;
    }
    EXPECT_EQ(ClassOf(-0.0), 4);
}

TEST(ClassOf, HasAnEmptyClassBetweenEqualLimits) {
    SetLimits({0, 0, 0, 1, 2, 0}); // all values above 0
    EXPECT_EQ(ClassOf(-1), 1);
    EXPECT_EQ(ClassOf(0), 4);
    EXPECT_EQ(ClassOf(1), 5);
}

TEST(ClassOf, TestsTheLastClassAgainstZeroOnPolygonsOnly) {
    SetLimits({-5, -4, -3, -2, -1, 0}); // as no builder makes them
    EXPECT_EQ(ClassOf(-0.5), 0);
    EXPECT_EQ(ClassColor(-0.5), 0U); // black
    EXPECT_EQ(PointClassOf(-0.5), 6);
    EXPECT_EQ(ClassOf(0), 6);
}

TEST(ClassColor, IsThatOfTheClass) {
    SetLimits({-2, -1, 0, 1, 2, 0});
    EXPECT_EQ(ClassColor(-3), 0xFF0000U);
    EXPECT_EQ(ClassColor(-2), 0xFF8080U);
    EXPECT_EQ(ClassColor(-1), 0xFFC0C0U);
    EXPECT_EQ(ClassColor(0), 0xC0C0FFU);
    EXPECT_EQ(ClassColor(1), 0x8080FFU);
    EXPECT_EQ(ClassColor(2), 255U);
}

TEST(RangeText, LinesItsColumnsUpAgainstTheMinusSign) {
    ScoreLimits({-3, -2, -1, 0.5, 1, 4});
    EXPECT_EQ(RangeText(0), " -3.0000   -   -3.0000");
    EXPECT_EQ(RangeText(1), " -3.0000   -   -2.0000");
    EXPECT_EQ(RangeText(2), " -2.0000   -    0.0000");
    EXPECT_EQ(RangeText(3), "  0.0000   -    0.5000");
    EXPECT_EQ(RangeText(4), "  0.5000   -    1.0000");
    EXPECT_EQ(RangeText(5), "  1.0000   -    4.0000");
}

TEST(RangeText, HasTheBlanksOfItsRowAndNotOfItsSign) {
    // No value below 0: the first row still has the blanks of negative numbers, and reads to 0.
    ScoreLimits({1, 2, 3});
    EXPECT_EQ(RangeText(0), " 1.0000   -   0.0000");
    EXPECT_EQ(RangeText(1), "  0.0000   -    0.0000");
    EXPECT_EQ(RangeText(5), "  2.0000   -    3.0000");
    // None above: limits 4 and 5 are 0, and the last row reads from 0 to a negative maximum.
    ScoreLimits({-3, -2, -1});
    EXPECT_EQ(RangeText(4), "  0.0000   -    0.0000");
    EXPECT_EQ(RangeText(5), "  0.0000   -    -1.0000");
    // A limit that prints as zero keeps its sign and its row its blanks.
    ScoreLimits({-0.00002, -0.00001, -0.000005});
    EXPECT_EQ(RangeText(1), " -0.0000   -   -0.0000");
}

TEST(MLegendText, IsFixed) {
    const char* texts[] = {"            < -M*", "-M* =<  -  < -0.5M*", "-0.5M* =<  -  < 0",
                           "0 =<  -  < 0.5M*",  "0.5M* =<  -  < M*",   "M* =< "};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(MLegendText(i), texts[i]);
}

TEST(MapValues, AreThoseOfTheVariable) {
    ws = Workspace{};
    EXPECT_EQ(&MapDrawValues(RetroVariable::Unadjusted), &ws.MapDrawScore);
    EXPECT_EQ(&MapDrawValues(RetroVariable::AdjustedPoisson), &ws.MapDrawScore);
    EXPECT_EQ(&MapDrawValues(RetroVariable::FreemanTukey), &ws.MapDrawM);
    EXPECT_EQ(&MapDrawValues(RetroVariable::Rossi), &ws.MapDrawM);
    EXPECT_EQ(&MapClassValues(RetroVariable::Unadjusted), &ws.MapClassScore);
    EXPECT_EQ(&MapClassValues(RetroVariable::Rossi), &ws.MapClassM);
}
