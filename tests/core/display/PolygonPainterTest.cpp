#include "core/display/PolygonPainter.h"

#include "core/display/LegendClasses.h"
#include "support/Arrays.h"
#include "support/PolygonFile.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

// 10 pixels a map unit, (100, 200) at (50, 75).
const std::string Box = "polygon 50,75 50,55 80,55 80,75\n";
const std::string Outer = "polygon 90,75 90,35 130,35 130,75\n";
const std::string Hole = "polygon 100,65 120,65 120,45 100,45\n";
const std::string Triangle = "polygon 130,45 140,25 150,45\n";

const std::string DrawingState = "width 1\nstyle transparent\nfill 0xFFFFFF\n";

/// The three Regions filled in these colours; both parts of the second have the same.
std::string Filled(const std::string& first, const std::string& second, const std::string& third) {
    return "fill " + first + "\n" + Box + "fill " + second + "\n" + Outer + "fill " + second + "\n" + Hole +
           "fill " + third + "\n" + Triangle;
}

class PolygonPainter : public ::testing::Test {
protected:
    PolygonPainter() { OpenThreeRegions(folder_.Write("map.shp", PolygonFile(ThreeRegions()))); }

    /// Limits -2 -1 0 1 2.
    static void TakeLegend() {
        ws.LegendLimits = ArrayFrom1<double>({-2, -1, 0, 1, 2, 0});
        SetLegendColors();
    }

    static void TakeCusums() {
        ws.bCusumRun = true;
        ws.HValue = 4;
        ws.CusumValue.ReDim(3, 2);
        ws.CusumValue(1, 2) = 1;     // a quarter of h
        ws.CusumValue(2, 2) = 2.5;   // above a half
        ws.CusumValue(3, 2) = 4.001; // above h
    }

    std::string Drawn(const std::function<void(PlotSurface&)>& draw) {
        surface_.Forget();
        draw(surface_);
        return surface_.Operations();
    }

    TemporaryFolder folder_;
    RecorderSurface surface_{ThreeRegionsSurface};
};

} // namespace

TEST_F(PolygonPainter, DrawsTheOutlines) {
    EXPECT_EQ(Drawn(DrawPlainMap), "erase\n" + DrawingState + Box + Outer + Hole + Triangle + "refresh\n");
}

TEST_F(PolygonPainter, TakesTheSettledPanInOrLeavesItOut) {
    ws.PolygonView.PanSettledX = 20;
    ws.PolygonView.PanSettledY = -5;
    EXPECT_NE(Drawn(DrawPlainMap).find("polygon 70,70 70,50 100,50 100,70\n"), std::string::npos);
    EXPECT_EQ(Drawn(DrawPlainMapNoPan),
              "erase\n" + DrawingState + Box + Outer + Hole + Triangle + "refresh\n");
}

TEST_F(PolygonPainter, FillsByTheClassesOfAStatistic) {
    TakeLegend();
    const auto values = ArrayFrom1<double>({-1.5, 0, 7}); // classes 2, 4 and 6
    EXPECT_EQ(Drawn([&](PlotSurface& surface) { DrawStatisticMap(surface, values); }),
              "erase\n" + DrawingState + "style solid\n" + Filled("0xFF8080", "0xC0C0FF", "0x0000FF") +
                  "refresh\n");
}

TEST_F(PolygonPainter, StopsWhereThereAreFewerValuesThanRecords) {
    TakeLegend();
    const auto values = ArrayFrom1<double>({-1.5, 0});
    EXPECT_EQ(ErrorNumberOf([&] { DrawStatisticMap(surface_, values); }), SubscriptOutOfRange);
    EXPECT_EQ(surface_.Operations(), "erase\n" + DrawingState + "style solid\nfill 0xFF8080\n" + Box +
                                         "fill 0xC0C0FF\n" + Outer + "fill 0xC0C0FF\n" + Hole);
}

TEST_F(PolygonPainter, StopsWithoutALegend) {
    EXPECT_EQ(ErrorNumberOf([&] {
                  DrawStatisticMap(surface_, ArrayFrom1<double>({1, 2, 3}));
              }),
              SubscriptOutOfRange);
}

TEST_F(PolygonPainter, FillsByTheClassesOfAPeriod) {
    TakeCusums();
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawCusumMap(surface, 2); }),
              "erase\n" + DrawingState + "style solid\n" + Filled("0xFFFFFF", "0xFF8080", "0x0000FF") +
                  "refresh\n");
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawCusumMap(surface, 1); }),
              "erase\n" + DrawingState + "style solid\n" + Filled("0xFFFFFF", "0xFFFFFF", "0xFFFFFF") +
                  "refresh\n");
    EXPECT_EQ(ErrorNumberOf([&] { DrawCusumMap(surface_, 3); }), SubscriptOutOfRange);
}

TEST_F(PolygonPainter, FillsWhiteBeforeAnyRun) {
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawCusumMap(surface, 9); }),
              "erase\n" + DrawingState + "style solid\n" + Filled("0xFFFFFF", "0xFFFFFF", "0xFFFFFF") +
                  "refresh\n");
}

TEST_F(PolygonPainter, HighlightsOneRegionAndWhitensTheOthers) {
    TakeCusums();
    ws.bCusumMapping = true; // the cusums are no more painted than on a plain map
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawHighlight(surface, 1); }),
              DrawingState + "pen 0x000000\nstyle solid\n" + Filled("0xFFFFFF", "0x00FFFF", "0xFFFFFF") +
                  "refresh\n");
}

TEST_F(PolygonPainter, HighlightsOverTheWholeStatisticMap) {
    TakeLegend();
    ws.bRetroMapping = true;
    ws.DisplayDrawValues = ArrayFrom1<double>({-1.5, 0, 7});
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawHighlight(surface, 0); }),
              DrawingState + "pen 0x000000\nstyle solid\n" + Filled("0xFF8080", "0xC0C0FF", "0x0000FF") +
                  Filled("0x00FFFF", "0xFFFFFF", "0xFFFFFF") + "refresh\n");
}

// As behind a range of which no step was picked.
TEST_F(PolygonPainter, HighlightsAloneWhereAStatisticHasNoLegend) {
    ws.bRetroMapping = true;
    ws.DisplayDrawValues = ArrayFrom1<double>({-1.5, 0, 7});
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawHighlight(surface, 1); }),
              DrawingState + "pen 0x000000\nstyle solid\n" + Filled("0xFFFFFF", "0x00FFFF", "0xFFFFFF") +
                  "refresh\n");
}

TEST_F(PolygonPainter, WhitensAllForARegionThatDoesNotExist) {
    for (const std::ptrdiff_t region : {-3, 3})
        EXPECT_EQ(Drawn([=](PlotSurface& surface) { DrawHighlight(surface, region); }),
                  DrawingState + "pen 0x000000\nstyle solid\n" + Filled("0xFFFFFF", "0xFFFFFF", "0xFFFFFF") +
                      "refresh\n");
}

TEST_F(PolygonPainter, MarksTheCentroidsUnrounded) {
    DrawPlainMap(surface_);
    ws.RegionCentroid = ArrayFrom1<RegionPoint>({{"1", 101.5, 201}, {"2", 106.03, 202.02}, {"3", 109, 203}});
    EXPECT_EQ(Drawn(DrawCentroidPoints), "width 3\npoint 65.000 65.000 0x0000FF\n"
                                         "point 110.300 54.800 0x0000FF\npoint 140.000 45.000 0x0000FF\n"
                                         "refresh\n");
    EXPECT_EQ(Drawn(DrawPlainMap).substr(0, 14), "erase\nwidth 1\n");
}

// Every picture is of the file as it is on the disk by then.
TEST_F(PolygonPainter, ReadsTheFileAnewForEveryPicture) {
    DrawPlainMap(surface_);
    folder_.Write("map.shp", PolygonFile({ThreeRegions()[2]}));
    EXPECT_EQ(Drawn(DrawPlainMap), "erase\n" + DrawingState + Triangle + "refresh\n");
    std::filesystem::remove(folder_ / "map.shp");
    EXPECT_EQ(ErrorNumberOf([&] { DrawPlainMap(surface_); }), FileNotFound);
}

TEST_F(PolygonPainter, DrawsNothingWithoutAShapefile) {
    ws = Workspace{};
    ws.bRetroMapping = true;
    EXPECT_EQ(Drawn(DrawPlainMap), "");
    EXPECT_EQ(Drawn(DrawPlainMapNoPan), "");
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawCusumMap(surface, 1); }), "");
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawHighlight(surface, 0); }), "");
    EXPECT_EQ(Drawn([](PlotSurface& surface) { DrawStatisticMap(surface, {}); }), "");
}

TEST_F(PolygonPainter, OverflowsWhereAPositionDoesNotFitIn32Bits) {
    folder_.Write("map.shp", PolygonFile({PolygonRecord(1, {{{1e9, 200}, {1, 1}, {1e9, 200}}})}));
    EXPECT_EQ(ErrorNumberOf([&] { DrawPlainMap(surface_); }), Overflow);
}
