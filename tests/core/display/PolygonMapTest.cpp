#include "core/display/PolygonMap.h"

#include "core/display/Pan.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/Centroids.h"
#include "support/Arrays.h"
#include "support/PolygonFile.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

enum class Mode { Plain, Statistic, Cusum };

/// How often an operation stands in a list.
int Times(const std::string& operations, const std::string& operation) {
    int times = 0;
    for (size_t at = operations.find(operation); at != std::string::npos;
         at = operations.find(operation, at + 1))
        ++times;
    return times;
}

class PolygonMapTest : public ::testing::Test {
protected:
    PolygonMapTest() { OpenThreeRegions(folder_.Write("map.shp", PolygonFile(ThreeRegions()))); }

    static void Show(Mode mode) {
        ws.bRetroMapping = mode == Mode::Statistic;
        ws.bCusumMapping = mode == Mode::Cusum;
        ws.bCusumRun = true;
        ws.SelectedPeriod = 1;
        ws.HValue = 1;
        ws.CusumValue.ReDim(3, 1);
        ws.CusumValue(2, 1) = 2; // the one signal
        ws.DisplayClassValues = ws.DisplayDrawValues = ArrayFrom1<double>({2, -1, 0});
    }

    /// Which picture stands on the map last: by its fills.
    std::string Picture() const {
        const std::string all = picSHP_.Operations();
        const std::string last = all.substr(all.rfind("erase"));
        if (Times(last, "style solid") == 0) return "plain";
        return Times(last, "fill 0xFF0000") > 0 ? "statistic" : "cusum";
    }

    /// Where the lower left corner of the extent was drawn last: the first corner of the first Region.
    std::string Corner() const {
        const std::string all = picSHP_.Operations();
        const size_t at = all.find("polygon ", all.rfind("erase")) + 8;
        return all.substr(at, all.find(' ', at) - at);
    }

    void Forget() {
        form_.Forget();
        picSHP_.Forget();
    }

    TemporaryFolder folder_;
    ScriptedPlatform platform_;
    RecorderSurface form_{FramedSurface(2500, 4000)};
    RecorderSurface picSHP_{ThreeRegionsSurface};
    PolygonMap map_{form_, picSHP_, RetroVariable::Unadjusted};
};

} // namespace

// Sorted -1 0 2: one value below 0 and two others, so all limits but the fifth are 0, and that is the smaller
// of the two, 0 as well. Then -1 is in class 1 and the others are in class 6.
TEST_F(PolygonMapTest, ClearsTheFormBuildsTheLegendAndPaints) {
    auto classValues = ArrayFrom1<double>({2, -1, 0});
    const auto drawValues = classValues;
    ShowRetroMap(map_, classValues, drawValues);
    EXPECT_EQ(form_.Operations().rfind("erase\nstyle solid\nfill 0xFF0000\nbox 6.667 53.333", 0), 0);
    EXPECT_EQ(Times(form_.Operations(), "text "), 6);
    EXPECT_EQ(Times(form_.Operations(), "| -1.0000   -   0.0000|"), 1);
    EXPECT_EQ(Times(form_.Operations(), "|  0.0000   -    0.0000|"), 4);
    EXPECT_EQ(Times(form_.Operations(), "|  0.0000   -    2.0000|"), 1);
    EXPECT_EQ(From1(classValues), (std::vector<double>{-1, 0, 2}));
    EXPECT_EQ(picSHP_.Operations(), "erase\nwidth 1\nstyle transparent\nfill 0xFFFFFF\nstyle solid\n"
                                    "fill 0x0000FF\npolygon 50,75 50,55 80,55 80,75\n"
                                    "fill 0xFF0000\npolygon 90,75 90,35 130,35 130,75\n"
                                    "fill 0xFF0000\npolygon 100,65 120,65 120,45 100,45\n"
                                    "fill 0x0000FF\npolygon 130,45 140,25 150,45\nrefresh\n");
}

TEST_F(PolygonMapTest, HasTwoClassesWhereTheCriticalValueOfMDoesNotExist) {
    ws.CurrentSigma = 1000;
    ws.AlphaLevel = 0.05;
    map_.Variable = RetroVariable::FreemanTukey;
    platform_.ExpectMessage("Error!");
    auto classValues = ArrayFrom1<double>({2, -1, 0});
    const auto drawValues = classValues;
    ShowRetroMap(map_, classValues, drawValues);
    EXPECT_EQ(Times(form_.Operations(), "|-M* =<  -  < -0.5M*|"), 1);
    EXPECT_EQ(Times(picSHP_.Operations(), "fill 0x0000FF\npolygon"), 2);
    EXPECT_EQ(Times(picSHP_.Operations(), "fill 0xFF0000\npolygon"), 2);
}

TEST_F(PolygonMapTest, NeedsAValueForEachRegion) {
    auto classValues = ArrayFrom1<double>({2, -1});
    const auto drawValues = classValues;
    EXPECT_EQ(ErrorNumberOf([&] { ShowRetroMap(map_, classValues, drawValues); }), SubscriptOutOfRange);
}

TEST_F(PolygonMapTest, RedrawsByTheFlags) {
    Show(Mode::Plain);
    RedrawByMode(map_);
    EXPECT_EQ(Picture(), "plain");
    EXPECT_EQ(form_.Operations(), "");
    Show(Mode::Cusum);
    RedrawByMode(map_);
    EXPECT_EQ(Picture(), "cusum");
    EXPECT_EQ(form_.Operations(), "");
    Show(Mode::Statistic);
    RedrawByMode(map_);
    EXPECT_EQ(Picture(), "statistic");
    EXPECT_EQ(Times(form_.Operations(), "box"), 6);
    ws.bCusumMapping = true; // a statistic goes before a cusum
    RedrawByMode(map_);
    EXPECT_EQ(Picture(), "statistic");
}

TEST_F(PolygonMapTest, RedrawsTheOutlinesFirstAfterAResize) {
    Show(Mode::Plain);
    RedrawResized(map_);
    EXPECT_EQ(Times(picSHP_.Operations(), "erase"), 2); // plain twice
    EXPECT_EQ(Picture(), "plain");
    Forget();
    Show(Mode::Cusum);
    RedrawResized(map_);
    EXPECT_EQ(Times(picSHP_.Operations(), "erase"), 2);
    EXPECT_EQ(Picture(), "cusum");
    Forget();
    Show(Mode::Statistic);
    RedrawResized(map_);
    EXPECT_EQ(Times(picSHP_.Operations(), "erase"), 2);
    EXPECT_EQ(Picture(), "statistic");
}

TEST_F(PolygonMapTest, ShowsTheOutlinesWhereTheDisplayArraysAreOfOtherData) {
    Show(Mode::Statistic);
    EXPECT_TRUE(HasRetroMap());
    ws.DisplayClassValues.ReDim(4);
    EXPECT_FALSE(HasRetroMap());
    RedrawResized(map_);
    EXPECT_EQ(Times(picSHP_.Operations(), "erase"), 1);
    EXPECT_EQ(Picture(), "plain");
    RedrawActivated(map_);
    EXPECT_EQ(Picture(), "plain");
    EXPECT_EQ(form_.Operations(), "");
    ws = Workspace{};
    EXPECT_FALSE(HasRetroMap());
    ws.DisplayClassValues.ReDim(0);
    ws.DisplayDrawValues.ReDim(0);
    EXPECT_FALSE(HasRetroMap());
}

TEST_F(PolygonMapTest, PaintsOnlyAStatisticWhenItComesToTheFront) {
    Show(Mode::Plain);
    RedrawActivated(map_);
    Show(Mode::Cusum);
    RedrawActivated(map_);
    EXPECT_EQ(picSHP_.Operations(), "");
    Show(Mode::Statistic);
    RedrawActivated(map_);
    EXPECT_EQ(Picture(), "statistic");
}

// At zoom 1 the corner stands at (50, 75); at zoom z at (100 - 50 z, 50 + 25 z).
TEST_F(PolygonMapTest, ZoomsInByOneStepOnAStatisticAndByTwoOtherwise) {
    Show(Mode::Statistic);
    ZoomIn(map_);
    EXPECT_EQ(ws.MapZoom, 1.4);
    EXPECT_EQ(Corner(), "30,85");
    EXPECT_EQ(Picture(), "statistic");
    for (const Mode mode : {Mode::Plain, Mode::Cusum}) {
        ws.MapZoom = 1;
        Forget();
        Show(mode);
        ZoomIn(map_);
        EXPECT_EQ(ws.MapZoom, 1 + 0.4 + 0.4);
        EXPECT_EQ(Corner(), "10,95");
        EXPECT_EQ(Picture(), mode == Mode::Plain ? "plain" : "cusum");
        EXPECT_EQ(form_.Operations(), "erase\nrefresh\n");
        EXPECT_EQ(Times(picSHP_.Operations(), "erase"), 1);
    }
}

// Zooming out draws the outlines between the two steps, without the settled pan.
TEST_F(PolygonMapTest, ZoomsOutOverOutlinesWithoutTheSettledPan) {
    ws.PolygonView.PanSettledX = 7;
    for (const Mode mode : {Mode::Plain, Mode::Cusum, Mode::Statistic}) {
        ws.MapZoom = 3;
        Forget();
        Show(mode);
        ZoomOut(map_);
        const std::string all = picSHP_.Operations();
        EXPECT_EQ(Times(all, "erase"), 2);
        EXPECT_EQ(all.substr(all.find("polygon"), 15), "polygon -30,115"); // zoom 2.6
        if (mode == Mode::Statistic) {
            EXPECT_EQ(ws.MapZoom, 3 - 0.4);
            EXPECT_EQ(Corner(), "-23,115");
            EXPECT_EQ(Picture(), "statistic");
        } else {
            EXPECT_EQ(ws.MapZoom, 3 - 0.4 - 0.4);
            EXPECT_EQ(Corner(), "-3,105"); // zoom 2.2
            EXPECT_EQ(Picture(), mode == Mode::Plain ? "plain" : "cusum");
        }
    }
}

// 1, 0.2, -0.6: through the point to a map that is mirrored.
TEST_F(PolygonMapTest, ZoomsOutBeyondZero) {
    ZoomOut(map_);
    EXPECT_EQ(Corner(), "90,55");
    ZoomOut(map_);
    EXPECT_NEAR(ws.MapZoom, -0.6, 1e-15);
    EXPECT_EQ(Corner(), "130,35");
}

// The drag of (6, 0) is in the settled sum and in the live offset: 12 to the right of (10, 95).
TEST_F(PolygonMapTest, ShiftsByTheLastDragOnceMoreAtAZoom) {
    PressPan(ws.PolygonView, 0, 0);
    MovePan(ws.PolygonView, 6, 0);
    RedrawByMode(map_);
    EXPECT_EQ(Corner(), "56,75");
    ReleasePan(ws.PolygonView);
    ZoomIn(map_);
    EXPECT_EQ(Corner(), "22,95");
}

TEST_F(PolygonMapTest, GoesBackToTheWholeExtentAndKeepsTheLastDrag) {
    for (const Mode mode : {Mode::Plain, Mode::Cusum, Mode::Statistic}) {
        ws.MapZoom = 3;
        ws.PolygonView.PanSettledX = 7;
        ws.PolygonView.PanSettledY = 9;
        ws.PolygonView.PanDX = 2;
        Forget();
        Show(mode);
        ShowWholeExtent(map_);
        EXPECT_EQ(ws.MapZoom, 1);
        EXPECT_EQ(ws.PolygonView.PanSettledX, 0);
        EXPECT_EQ(ws.PolygonView.PanSettledY, 0);
        EXPECT_EQ(Corner(), "52,75");
        EXPECT_EQ(form_.Operations().substr(0, 14), "erase\nrefresh\n");
        EXPECT_EQ(Picture(), mode == Mode::Plain ? "plain" : mode == Mode::Cusum ? "cusum" : "statistic");
    }
}

// One Region, a clockwise box from (100, 200) to (103, 202): its centroid is (101.5, 201).
TEST_F(PolygonMapTest, MarksFreshCentroidsOnTheOutlines) {
    auto polygon = std::make_shared<CPolygon>();
    CPart part;
    for (const Vertex& vertex : Ring{{100, 200}, {100, 202}, {103, 202}, {103, 200}, {100, 200}})
        part.Add(CPoint(vertex.X, vertex.Y));
    polygon->Add(std::move(part));
    ws.ShpPolygons.Add(polygon);
    ws.NumRegion = 1;
    ComputeShapeAreas();
    Show(Mode::Cusum); // the outlines come whatever the flags say
    ShowCentroids(picSHP_);
    const std::string all = picSHP_.Operations();
    EXPECT_EQ(Picture(), "plain");
    EXPECT_EQ(all.substr(all.find("refresh")), "refresh\nwidth 3\npoint 65.000 65.000 0x0000FF\nrefresh\n");
}
