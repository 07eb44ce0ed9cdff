#include "core/prospective/PolygonPeriods.h"

#include "core/prospective/CusumTestTables.h"
#include "core/prospective/PolygonCusum.h"
#include "core/workspace/Workspace.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// A run of three periods behind two saved ones; the columns chosen are the same three.
class PolygonDisplay : public testing::Test {
protected:
    PolygonDisplay() {
        ws = Workspace{};
        ws.NumRegion = 2;
        ws.HValue = 9.3;
        ws.StartFieldIndex = 4;
        ws.EndFieldIndex = 6;
        ws.RunPeriodCount = 3;
        ws.PreviousPeriodCount = 2;
        ws.PreviousCusum = TableOf({{1, -2}, {3, -4}});
        PolygonOutputs().ReDim(2, 3);
        ws.MaxCusum(1) = 4.125;
        ws.MaxCusum(3) = 12;
        ws.MaxRegion(1) = "A";
        ws.MaxRegion(3) = "B";
    }

    static Numbers Line(std::ptrdiff_t column = 0) {
        Numbers values;
        for (std::ptrdiff_t row = 0; row <= ws.CusumChartData.UpperBound1(); ++row)
            values.push_back(ws.CusumChartData(row, column));
        return values;
    }
};

} // namespace

TEST_F(PolygonDisplay, ShowsTheNewPeriodsAlone) {
    BeginPolygonChart(ShownPeriods::New);
    EXPECT_EQ(Line(), (Numbers{0, 0, 0}));
    EXPECT_EQ(Line(1), (Numbers{9.3, 9.3, 9.3}));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3"}));
    AddPolygonPeriod(ShownPeriods::New, 1);
    EXPECT_EQ(Line(), (Numbers{4.125, 0, 0}));
    AddPolygonPeriod(ShownPeriods::New, 3);
    EXPECT_EQ(Line(), (Numbers{4.125, 0, 12}));
    EXPECT_EQ(PolygonPeriodRow(ShownPeriods::New, 1), "    1     4.13                    A");
    EXPECT_EQ(PolygonPeriodRow(ShownPeriods::New, 2), "    2     0.00                     ");
    EXPECT_FALSE(ws.PreviousMaxCusum.IsAllocated());
}

TEST_F(PolygonDisplay, ShowsTheMaximaOfTheSavedPeriodsInFrontFromTheStart) {
    BeginPolygonChart(ShownPeriods::SavedAndNew);
    EXPECT_EQ(FromOne(ws.PreviousMaxCusum), (Numbers{3, -2}));
    EXPECT_EQ(Line(), (Numbers{3, -2, 0, 0, 0}));
    EXPECT_EQ(Line(1), Numbers(5, 9.3));
    EXPECT_EQ(ws.CusumChartLabels, Texts(5, "")); // none before the first update
    AddPolygonPeriod(ShownPeriods::SavedAndNew, 1);
    EXPECT_EQ(Line(), (Numbers{3, -2, 4.125, 0, 0}));
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3", "4", "5"}));
    AddPolygonPeriod(ShownPeriods::SavedAndNew, 3);
    EXPECT_EQ(Line(), (Numbers{3, -2, 4.125, 0, 12}));
    EXPECT_EQ(PolygonPeriodRow(ShownPeriods::SavedAndNew, 3), "    5    12.00                    B");
}

TEST_F(PolygonDisplay, StopsTheLabelsWhereTheChosenColumnsSayWithATextFileToo) {
    ws.StartFieldIndex = ws.EndFieldIndex = 0; // none was ever chosen
    BeginPolygonChart(ShownPeriods::SavedAndNew);
    AddPolygonPeriod(ShownPeriods::SavedAndNew, 2);
    EXPECT_EQ(ws.CusumChartLabels, (Texts{"1", "2", "3", "", ""}));
}

TEST_F(PolygonDisplay, NumbersFromOneBehindASavedTableWithoutAPeriod) {
    ws.PreviousPeriodCount = 0;
    ws.PreviousCusum.ReDim(2, 0);
    BeginPolygonChart(ShownPeriods::SavedAndNew);
    EXPECT_EQ(Line(), (Numbers{0, 0, 0}));
    EXPECT_EQ(PolygonPeriodRow(ShownPeriods::SavedAndNew, 3), "    3    12.00                    B");
}

TEST_F(PolygonDisplay, ShowsARunOfOnePeriodAsOneRow) {
    ws.RunPeriodCount = 1;
    BeginPolygonChart(ShownPeriods::New);
    AddPolygonPeriod(ShownPeriods::New, 1);
    EXPECT_EQ(Line(), Numbers{4.125});
    EXPECT_EQ(ErrorOf([] { AddPolygonPeriod(ShownPeriods::New, 2); }), SubscriptOutOfRange);
}

TEST_F(PolygonDisplay, NeedsTheSavedTableOfItsRegions) {
    ws.PreviousCusum.Clear();
    EXPECT_EQ(ErrorOf([] { BeginPolygonChart(ShownPeriods::SavedAndNew); }), SubscriptOutOfRange);
}
