// The drawings of the prospective point map.
#include "core/display/PointMap.h"

#include "core/display/MapZoom.h"
#include "core/platform/RunTimeError.h"
#include "core/workspace/Workspace.h"
#include "support/RecorderSurface.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// Points on a surface that gives whole pixels: a range of 100 with its margins of 5 makes a view of 110 by
/// 110, drawn on 110 by 110 pixels. So x = X + 5 and y = 110 - (Y + 5) = 105 - Y.
class CusumPoints : public testing::Test {
protected:
    CusumPoints() {
        ws = Workspace{};
        Place({{0, 0}, {100, 100}, {20, 40}, {0, 100}, {50, 50}});
    }

    void Place(const std::vector<std::pair<double, double>>& points) {
        map_.X.ReDim(static_cast<std::ptrdiff_t>(points.size()));
        map_.Y.ReDim(static_cast<std::ptrdiff_t>(points.size()));
        std::ptrdiff_t i = 0;
        for (const auto& [x, y] : points) {
            map_.X(++i) = x;
            map_.Y(i) = y;
        }
    }

    RecorderSurface surface_{SurfaceSize{1000, 1000, 110, 110}};
    PointMap map_{ProspectivePointMapZoom.Start};
};

constexpr const char* Start = "erase\nwidth 1\npen 0x000000\n";

} // namespace

TEST_F(CusumPoints, AreDrawnInRegionOrderWithCircleAndBox) {
    Table<double> cusum(5, 2);
    const double second[] = {2, 2.5, 4.5, 8, 8.5}; // of h = 8: the five classes in turn
    for (std::ptrdiff_t i = 1; i <= 5; ++i)
        cusum(i, 2) = second[i - 1];
    map_.DrawCusumPoints(surface_, cusum, 5, 2, 8);
    EXPECT_EQ(surface_.Operations(), std::string(Start) + "circle 5.000 105.000 2.000 0xFFFFFF\nwidth 1\n"
                                                          "polygon 4,104 6,104 6,106 4,106\n"
                                                          "circle 105.000 5.000 2.000 0xFFFF00\nwidth 1\n"
                                                          "polygon 104,4 106,4 106,6 104,6\n"
                                                          "circle 25.000 65.000 2.000 0xFF8080\nwidth 1\n"
                                                          "polygon 24,64 26,64 26,66 24,66\n"
                                                          "circle 5.000 5.000 4.000 0xC00000\nwidth 1\n"
                                                          "polygon 4,4 6,4 6,6 4,6\n"
                                                          "circle 55.000 55.000 6.000 0x0000FF\nwidth 1\n"
                                                          "polygon 54,54 56,54 56,56 54,56\n"
                                                          "refresh\n");
}

TEST_F(CusumPoints, LeaveThePlottedPositionsAlone) {
    ws.PlottedPoints.ReDim(1);
    ws.PlottedPoints(1) = {7, 9};
    map_.DrawCusumPoints(surface_, Table<double>(5, 1), 5, 1, 8);
    EXPECT_EQ(ws.PlottedPoints.UpperBound(), 1);
    EXPECT_EQ(ws.PlottedPoints(1), (PlotPoint{7, 9}));
    map_.DrawPlainPoints(surface_);
    EXPECT_EQ(ws.PlottedPoints.UpperBound(), 5);
    EXPECT_EQ(ws.PlottedPoints(3), (PlotPoint{25, 65}));
}

TEST_F(CusumPoints, AreAsManyAsTheRegionsOfTheRunInTheViewOfAllPoints) {
    map_.DrawCusumPoints(surface_, Table<double>(1, 1), 1, 1, 8);
    EXPECT_EQ(surface_.Operations(), std::string(Start) + "circle 5.000 105.000 2.000 0xFFFFFF\nwidth 1\n"
                                                          "polygon 4,104 6,104 6,106 4,106\nrefresh\n");
    EXPECT_THROW(map_.DrawCusumPoints(surface_, Table<double>(6, 1), 6, 1, 8), RunTimeError);
    EXPECT_THROW(map_.DrawCusumPoints(surface_, Table<double>(5, 1), 5, 2, 8), RunTimeError);
}

TEST_F(CusumPoints, AreNotDrawnInAViewWithoutAnArea) {
    Place({{1, 1}, {2, 1}});
    map_.DrawCusumPoints(surface_, Table<double>(2, 1), 2, 1, 8);
    EXPECT_EQ(surface_.Operations(), std::string(Start) + "refresh\n");
}

TEST_F(CusumPoints, MarkASelectionInYellowOnTopOfTheMap) {
    Place({{0, 0}, {100, 100}, {50, 50}});
    Array1<KeyedValue> selection(3);
    selection(1) = {1, 0};
    selection(2) = {2, 1};
    selection(3) = {3, 0.5}; // not exactly 1
    map_.DrawSelectedPoints(surface_, selection);
    const std::string after = "style transparent\nfill 0xFFFFFF\npen 0x000000\n";
    EXPECT_EQ(surface_.Operations(), "width 1\npen 0x000000\n" + after +
                                         "style solid\nfill 0x00FFFF\npen 0x000000\n"
                                         "polygon 103,3 107,3 107,7 103,7\n" +
                                         after + after + "refresh\n");
}
