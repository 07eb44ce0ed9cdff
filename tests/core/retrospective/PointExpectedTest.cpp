#include "core/retrospective/PointExpected.h"

#include "core/workspace/Workspace.h"
#include "support/Arrays.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(PointExpected, SumsInOrder) {
    // 1e16 + 1 + 1 is 1e16 from the left and 1e16 + 2 from the right.
    ws = Workspace{};
    ws.ObsCount = ArrayFrom1<double>({1e16, 1, 1});
    ws.ExpCount = ArrayFrom1<double>({1, 1, 1});
    ws.ExpRatio.ReDim(3);
    SharesOfExpected();
    EXPECT_EQ(ws.TotalObs, 1e16);
    ws.PopBase = ws.ObsCount;
    ws.ObsCount = ws.ExpCount;
    ExpectedFromPopulation();
    EXPECT_EQ(ws.TotalObs, 3);
    EXPECT_EQ(ws.ExpRatio(2), 1e-16);
}
