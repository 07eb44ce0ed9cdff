#include "core/prospective/CusumChart.h"

#include "core/prospective/CusumTestTables.h"
#include "core/workspace/Workspace.h"
#include "support/Arrays.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

class CusumChart : public testing::Test {
protected:
    CusumChart() { ws = Workspace{}; }

    static Numbers Series(std::ptrdiff_t column) {
        Numbers values;
        for (std::ptrdiff_t row = 0; row <= ws.CusumChartData.UpperBound1(); ++row)
            values.push_back(ws.CusumChartData(row, column));
        return values;
    }
};

} // namespace

TEST_F(CusumChart, StartsAtZeroBelowTheThreshold) {
    ChartSet(3, 9.3);
    EXPECT_EQ(Series(0), (Numbers{0, 0, 0}));
    EXPECT_EQ(Series(1), (Numbers{9.3, 9.3, 9.3}));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3"}));
}

TEST_F(CusumChart, IsFilledPeriodByPeriod) {
    ChartSet(3, 1);
    ChartUpdate(1, 0.5);
    EXPECT_EQ(Series(0), (Numbers{0.5, 0, 0}));
    ChartUpdate(3, 7);
    EXPECT_EQ(Series(0), (Numbers{0.5, 0, 7}));
    EXPECT_EQ(Series(1), (Numbers{1, 1, 1}));
}

TEST_F(CusumChart, OfOnePeriodHasOneRow) {
    ChartSet(1, 2);
    ChartUpdate(1, 5);
    EXPECT_EQ(Series(0), Numbers{5});
    EXPECT_EQ(ws.CusumChartLabels, Texts{"1"});
}

TEST_F(CusumChart, OfAContinuedRunShowsTheSavedMaximaFromTheStart) {
    ChartSetPrev(5, 9.3, ArrayFrom1<double>({3, -1}), 2);
    EXPECT_EQ(Series(0), (Numbers{3, -1, 0, 0, 0}));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"", "", "", "", ""})); // no labels before the first update
    ChartUpdate(3, 4);
    EXPECT_EQ(Series(0), (Numbers{3, -1, 4, 0, 0}));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3", "4", "5"}));
}

TEST_F(CusumChart, OfAContinuedPolygonRunLabelsAsManyRowsAsTheChosenColumnsSay) {
    ws.PreviousPeriodCount = 2;
    EXPECT_EQ(ContinuedLabelCount(PointCusumRules(), 5), 5);
    EXPECT_EQ(ContinuedLabelCount(PolygonCusumRules(), 5), 3); // no columns were ever chosen
    ChartSetPrev(5, 9.3, ArrayFrom1<double>({3, 1}), 2);
    ChartUpdatePrev(3, 4, ContinuedLabelCount(PolygonCusumRules(), 5));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3", "", ""}));

    ws.StartFieldIndex = 4;
    ws.EndFieldIndex = 6;
    EXPECT_EQ(ContinuedLabelCount(PolygonCusumRules(), 5), 5);
    ws.EndFieldIndex = 40;
    ChartUpdatePrev(4, 4, ContinuedLabelCount(PolygonCusumRules(), 5));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3", "4", "5"}));
}

TEST_F(CusumChart, OfARegionIsFilledAtOnce) {
    ChartRegion(TableOf({{1, 2, 3}, {4, 0, 6}}), 2, 3, 5);
    EXPECT_EQ(Series(0), (Numbers{4, 0, 6}));
    EXPECT_EQ(Series(1), (Numbers{5, 5, 5}));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3"}));
}

TEST_F(CusumChart, StopsAtAPeriodBeyondTheTable) {
    EXPECT_EQ(ErrorOf([] { ChartUpdate(1, 1); }), SubscriptOutOfRange); // before any preparation
    ChartSet(2, 1);
    EXPECT_EQ(ErrorOf([] { ChartUpdate(3, 1); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([] { ChartUpdate(0, 1); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([] { ChartSetPrev(1, 1, ArrayFrom1<double>({1, 2}), 2); }), SubscriptOutOfRange);
}
