#include "core/prospective/PolygonCusum.h"

#include "core/prospective/CusumTestTables.h"
#include "core/workspace/Workspace.h"
#include "support/Arrays.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

class PolygonCusum : public testing::Test {
protected:
    /// Two Regions, of which each weighs half as much on the other as on itself with sigma 1: see the test of
    /// the weights.
    PolygonCusum() {
        ws = Workspace{};
        ws.NumRegion = 2;
        ws.RegionCentroid.ReDim(2);
        ws.RegionCentroid(2).X = 1;
        ws.TotalShapeArea = 1 / std::log(2.0);
        ws.KValue = 0.5;
        ws.HValue = 9.3;
        ws.CurrentSigma = CusumSigmaForZero;
        ws.RunPeriodCount = 3;
        ws.TextZScore = TableOf({{1, -4, 2}, {0.5, 0.5, 5}});
    }

    void Run(StartOption start) { RunPolygonCusum(ws.TextZScore, start, labels_); }

    Array1<std::string> labels_ = ArrayFrom1<std::string>({"A", "B"});
};

} // namespace

TEST_F(PolygonCusum, RunsFromZero) {
    Run(StartOption::Zero);
    EXPECT_EQ(ws.CusumValue, TableOf({{0.5, 0, 1.5}, {0, 0, 4.5}}));
    EXPECT_EQ(FromOne(ws.MaxCusum), (Numbers{0.5, 0, 4.5}));
    EXPECT_EQ(FromOne(ws.MaxRegion), (Texts{"A", "", "B"}));
    EXPECT_EQ(FromOne(ws.RegionLabel), (Texts{"A", "B"}));
}

TEST_F(PolygonCusum, LeavesTheFilteredScoresInTheTable) {
    const auto z = ws.TextZScore;
    ws.CurrentSigma = 1;
    Run(StartOption::Zero);
    const double length = std::sqrt(5.0); // of (2, 1)
    for (std::ptrdiff_t t = 1; t <= 3; ++t) {
        EXPECT_NEAR(ws.TextZScore(1, t), (2 * z(1, t) + z(2, t)) / length, 1e-14);
        EXPECT_NEAR(ws.TextZScore(2, t), (z(1, t) + 2 * z(2, t)) / length, 1e-14);
    }
    EXPECT_NEAR(ws.CusumValue(1, 1), 2.5 / length - 0.5, 1e-14);
}

TEST_F(PolygonCusum, ContinuesFromTheLastSavedColumn) {
    ws.PreviousCusum = TableOf({{9, 8, 7, 6, 3}, {0, 0, 0, 0, 1.25}});
    ws.PreviousPeriodCount = 5;
    Run(StartOption::Previous);
    EXPECT_EQ(ws.CusumValue, TableOf({{3.5, 0, 1.5}, {1.25, 1.25, 5.75}}));
    EXPECT_EQ(ws.RunPeriodCount, 3);
    EXPECT_EQ(ws.PreviousCusum(1, 1), 9);
}

TEST_F(PolygonCusum, StopsWithoutASavedTable) {
    EXPECT_EQ(ErrorOf([&] { Run(StartOption::Previous); }), SubscriptOutOfRange);
    EXPECT_EQ(ws.CusumValue, Table<double>(2, 3));
}

TEST_F(PolygonCusum, DoesNothingForFIR) {
    Run(StartOption::FIR);
    Run(StartOption::None);
    EXPECT_FALSE(ws.CusumValue.IsAllocated());
}

TEST_F(PolygonCusum, LeavesNothingOfAnEarlierRunAfterAFault) {
    Run(StartOption::Zero);
    ws.TotalShapeArea = 0;
    EXPECT_EQ(ErrorOf([&] { Run(StartOption::Zero); }), DivisionByZero);
    EXPECT_EQ(ws.CusumValue, Table<double>(2, 3));
    EXPECT_EQ(FromOne(ws.MaxRegion), (Texts{"", "", ""}));
}

TEST_F(PolygonCusum, TakesTheMaximaOfTheSavedPeriods) {
    ws.PreviousCusum = TableOf({{1, -3, 0}, {2, -5, 0}});
    ws.PreviousPeriodCount = 3;
    findMaxPreviousCusum();
    EXPECT_EQ(FromOne(ws.PreviousMaxCusum), (Numbers{2, -3, 0}));
}

TEST(CusumLabel, IsBuiltFromTheColumnsChosen) {
    EXPECT_EQ(CusumLabel("ID", "A12", "NAME", "Alb"), "A12 (Alb) ");
    EXPECT_EQ(CusumLabel("ID", "A12", "", "Alb"), "A12");
    EXPECT_EQ(CusumLabel("", "A12", "NAME", "Alb"), "");
    EXPECT_EQ(CusumLabel("", "A12", "", "Alb"), "");
    EXPECT_EQ(CusumLabel("ID", "A12", "NAME", ""), "A12 () ");
}
