#include "core/workspace/Workspace.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(Workspace, IsEmptyAtTheStart) {
    ws = Workspace{};
    EXPECT_EQ(ws.NumRegion, 0);
    EXPECT_EQ(ws.NumTextRegion, 0);
    EXPECT_FALSE(ws.bShapefileData || ws.bTextfileData || ws.bRetroMapping || ws.bCusumMapping ||
                 ws.bUseSecondaryID);
    for (const auto* values : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio, &ws.LocalU, &ws.LocalM,
                               &ws.DisplayClassValues, &ws.LegendLimits})
        EXPECT_FALSE(values->IsAllocated());
    for (const auto* table : {&ws.WeightUnadjusted, &ws.StatisticTable})
        EXPECT_FALSE(table->IsAllocated());
    EXPECT_FALSE(ws.WeightM.IsAllocated());
    EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
    EXPECT_FALSE(ws.PlottedPoints.IsAllocated());
    EXPECT_FALSE(ws.PrimaryIDs.IsAllocated());
    EXPECT_EQ(ws.TotalPop, 0);
    EXPECT_EQ(ws.TotalShapeArea, 0);
}

TEST(Workspace, IsOneStoreThatATestStartsAnew) {
    ws.NumRegion = 3;
    ws.ObsCount.ReDim(3);
    ws.ObsCount(2) = 5;
    ws.ChartLabels = {"1"};
    ws = Workspace{};
    EXPECT_EQ(ws.NumRegion, 0);
    EXPECT_FALSE(ws.ObsCount.IsAllocated());
    EXPECT_TRUE(ws.ChartLabels.empty());
}
