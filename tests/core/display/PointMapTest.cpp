#include "core/display/PointMap.h"

#include "core/display/MapSizes.h"
#include "core/display/MapZoom.h"
#include "support/Arrays.h"
#include "support/Golden.h"
#include "support/Points.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

// On this surface x = 10 X + 10 and y = 210 - 10 Y for data from 0 to 20.
constexpr SurfaceSize Square{3000, 3000, 220, 220};

const std::vector<MapPosition> SixPoints = {{0, 0}, {20, 20}, {10.25, 5}, {3.125, 8.75}, {1, 1.25}, {5, 5}};

/// Their plot positions: 112.5 is 112, 41.25 is 41, 122.5 is 122 and 197.5 is 198.
const std::vector<PlotPoint> SixPositions = {{10, 210}, {210, 10}, {112, 160},
                                             {41, 122}, {20, 198}, {60, 160}};

PointMap MapOf(const std::vector<MapPosition>& at) {
    FillPoints(at);
    PointMap map(1);
    map.TakeCentroids(static_cast<std::ptrdiff_t>(at.size()));
    return map;
}

} // namespace

TEST(PointMap, TakesThePointsOfTheStore) {
    const auto map = MapOf({{1, 2}, {3, 4}});
    EXPECT_EQ(From1(map.X), (std::vector<double>{1, 3}));
    EXPECT_EQ(From1(map.Y), (std::vector<double>{2, 4}));
    PointMap other(1);
    EXPECT_EQ(ErrorNumberOf([&] { other.TakeCentroids(3); }), SubscriptOutOfRange);
}

TEST(PointMap, DrawsPlainPointsAsBoxes) {
    auto map = MapOf(SixPoints);
    RecorderSurface surface(Square);
    map.DrawPlainPoints(surface);
    EXPECT_EQ(surface.Operations(), Golden("PointMapPlain.txt"));
    EXPECT_EQ(From1(ws.PlottedPoints), SixPositions);
    EXPECT_EQ(ws.ScaleX, 10);
}

TEST(PointMap, DrawsStatisticPointsWithTheirSymbols) {
    auto map = MapOf(SixPoints);
    ws.LegendWork = Array1<double>(6);
    for (int i = 1; i <= 5; ++i)
        ws.LegendWork(i) = i - 3; // -2 -1 0 1 2
    RecorderSurface surface(Square);
    // A value equal to a limit is in the class above it.
    map.DrawStatisticPointsFrom(surface, ArrayFrom1<double>({-3, -1.5, -0.5, 0, 1, 2}));
    EXPECT_EQ(surface.Operations(), Golden("PointMapStatistic.txt"));
    EXPECT_EQ(From1(ws.PlottedPoints), SixPositions);
}

TEST(PointMap, StopsWhereAPointHasNoValue) {
    auto map = MapOf(SixPoints);
    ws.LegendWork = Array1<double>(6);
    RecorderSurface surface(Square);
    EXPECT_EQ(ErrorNumberOf([&] { map.DrawStatisticPointsFrom(surface, Array1<double>(5)); }),
              SubscriptOutOfRange);
}

TEST(PointMap, StaysEmptyWithoutAnArea) {
    auto map = MapOf({{5, 5}});
    ws.PlottedPoints = ArrayFrom1<PlotPoint>({{7, 8}, {9, 10}});
    RecorderSurface surface(Square);
    map.DrawPlainPoints(surface);
    EXPECT_EQ(surface.Operations(), "erase\nwidth 1\npen 0x000000\nrefresh\n");
    EXPECT_EQ(From1(ws.PlottedPoints), (std::vector<PlotPoint>{{7, 8}, {9, 10}})); // what they held
    surface.Forget();
    map.DrawStatisticPointsFrom(surface, Array1<double>(1));
    EXPECT_EQ(surface.Operations(), "erase\nwidth 1\npen 0x000000\nrefresh\n");
    surface.Forget();
    map.MarkPoint(surface, 1);
    EXPECT_EQ(surface.Operations(), "");
}

TEST(PointMap, DrawsNothingBeforeDataAreLoaded) {
    ws = Workspace{};
    PointMap map(RetroPointMapZoom.Start);
    RecorderSurface surface(RetroPointSurface());
    map.DrawPlainPoints(surface);
    EXPECT_EQ(surface.Operations(), "erase\nwidth 1\npen 0x000000\nrefresh\n");
    EXPECT_FALSE(ws.PlottedPoints.IsAllocated());
}

TEST(PointMap, PutsTheGreenMarkOnTop) {
    auto map = MapOf(SixPoints);
    RecorderSurface surface(Square);
    map.DrawPlainPoints(surface);
    surface.Forget();
    map.MarkPoint(surface, 3);
    EXPECT_EQ(surface.Operations(), "width 4\ncircle 112.500 160.000 10.000 0x00FF00\nrefresh\n");
    EXPECT_EQ(ErrorNumberOf([&] { map.MarkPoint(surface, 7); }), SubscriptOutOfRange);
}

TEST(PointMap, ComputesItsViewAtEveryDrawing) {
    auto map = MapOf(SixPoints);
    RecorderSurface surface(Square);
    map.DrawPlainPoints(surface);
    map.View.PointZoom = 2; // 440 pixels drawn round the centre at 110
    map.View.PanSettledX = 5;
    map.DrawPlainPoints(surface);
    // x = 20 (X + 1) + 110 - 220 + 5, y = -20 (Y + 1) + 440 + 110 - 220
    EXPECT_EQ(ws.PlottedPoints(1), (PlotPoint{-85, 310}));
    EXPECT_EQ(ws.PlottedPoints(2), (PlotPoint{315, -90}));
    EXPECT_EQ(ws.ScaleX, 20);
}

TEST(PointMap, PutsThePlottedPointsBackIntoOrder) {
    auto map = MapOf(SixPoints);
    RecorderSurface surface(Square);
    map.DrawPlainPoints(surface);
    std::swap(ws.PlottedPoints(1), ws.PlottedPoints(6)); // as the hull leaves them
    map.DrawPlainPoints(surface);
    EXPECT_EQ(From1(ws.PlottedPoints), SixPositions);
}

TEST(StatisticSymbol, GrowsAwayFromZero) {
    const double radii[] = {6, 4, 2, 2, 4, 6};
    const Colour colours[] = {0xFF0000, 0xFF8080, 0xFFC0C0, 0xC0C0FF, 0x8080FF, 0x0000FF};
    for (int i = 0; i < 6; ++i) {
        ASSERT_TRUE(StatisticSymbol(i + 1));
        EXPECT_EQ(StatisticSymbol(i + 1)->Radius, radii[i]);
        EXPECT_EQ(StatisticSymbol(i + 1)->Outline, colours[i]);
    }
    EXPECT_FALSE(StatisticSymbol(0)); // a box alone
}
