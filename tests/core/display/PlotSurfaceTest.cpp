#include "core/display/PlotSurface.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(PlotSurface, HasAFrameOfTwoPixelsOnEachSide) {
    EXPECT_EQ(FramedSurface(157.5F, 172.5F), (SurfaceSize{157.5F, 172.5F, 6, 8})); // 10.5 is 10, 11.5 is 12
}
