#include "core/display/MapSizes.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(MapSizes, AreWholePixelsInsideTheFrame) {
    EXPECT_EQ(PolygonMapSurface(), (SurfaceSize{5895, 4095, 389, 269}));
    EXPECT_EQ(RetroPointSurface(), (SurfaceSize{5595, 4275, 369, 281}));
    EXPECT_EQ(ProspectivePointSurface(), (SurfaceSize{6400, 4110, 423, 270})); // 426.67 is 427 pixels
}
