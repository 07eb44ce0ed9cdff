#include "desktop/display/PolygonTools.h"

#include "core/binding/ColumnBinding.h"
#include "core/display/PolygonMap.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/retrospective/frmClusterDetection.h"
#include "desktop/spatial/frmInfo.h"
#include "desktop/toolkit/ListBox.h"
#include "support/ProjectFolder.h"
#include "support/screens/Mouse.h"
#include "support/screens/ScreenTest.h"

#include <QAction>
#include <QStatusBar>

#include <cstdio>

using namespace vastrel;

namespace {

constexpr double XMin = 30, YMin = 5.773502691896258, Width = 410, Height = 265.5811239292328;

/// Positions on the sample's map, whose Regions are hexagons 20 units wide.
struct Position {
    double X = 0, Y = 0;
};
constexpr Position Region61 = {230, 121.243557}; // index 60, the middle of its bounds
constexpr Position Region1 = {230, 17.320508};   // index 0
constexpr Position EmptyGround = {32, 269};

enum class Mode { Plain, Statistic, Cusum };
constexpr Mode EachMode[] = {Mode::Plain, Mode::Statistic, Mode::Cusum};

/// The sample country with its map, no run made.
class PolygonToolsTest : public ScreenTest {
protected:
    PolygonToolsTest() {
        const std::string path = InProject("samples/country.shp");
        OpenShapeAttributes({path, "country.shp", false});
        ReadShapeHeader();
        LoadShapes();
        ws.MapZoom = 1;
        Test.Load(); // the maps of a statistic go by its options
        ws.bShapefileData = true;
        ws.ShapeFileTitleSaved = "country.shp";
        TakePrimaryIDs("ID");
        EXPECT_TRUE(BindCounts(CountFormat::PopCase, {"POP", "CASES", "", "", "ID", ""}));
        ComputeShapeAreas();
        ComputeCentroids();
        Map.DrawPlainMapNoPan();
    }
    ~PolygonToolsTest() override { Info.Unload(); }

    /// A map of this mode, as the runs leave it: a statistic that rises with the Regions, or cusums that all
    /// signal.
    void Set(Mode mode) {
        ws.bRetroMapping = mode == Mode::Statistic;
        ws.bCusumMapping = ws.bCusumRun = mode == Mode::Cusum;
        ws.DisplayClassValues.ReDim(ws.NumRegion);
        ws.DisplayDrawValues.ReDim(ws.NumRegion);
        ws.CusumValue.ReDim(ws.NumRegion, 1);
        ws.HValue = 4;
        ws.SelectedPeriod = 1;
        for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
            ws.DisplayClassValues(i) = ws.DisplayDrawValues(i) = static_cast<double>(i) - 100.5;
            ws.CusumValue(i, 1) = 5;
        }
        ws.MapZoom = 1;
        static_cast<MapPan&>(ws.PolygonView) = {};
        RedrawByMode(Map.Map());
    }

    void Tool(const char* key) {
        Map.EnableButton(key, true);
        Map.findChild<QAction*>(key)->trigger();
    }

    /// Pixels to a map unit: the surface's width, times its outer ratio of height to width, times the zoom,
    /// over the extent's width, which is the larger one.
    double Scale() const {
        const SurfaceSize size = picSHP.Size();
        return static_cast<double>(size.ScaleWidth) * (size.Height / size.Width) * ws.MapZoom / Width;
    }
    /// Where a position of the map stands that was moved by so many pixels in all.
    QPointF Plot(const Position& at, const QPointF& moved = {}) const {
        const SurfaceSize size = picSHP.Size();
        const QPointF middle(static_cast<double>(size.ScaleWidth) / 2,
                             static_cast<double>(size.ScaleHeight) / 2);
        const QPointF fromMiddle(at.X - XMin - Width / 2, -(at.Y - YMin - Height / 2));
        return middle + Scale() * fromMiddle + moved;
    }
    void Press(const Position& at, Qt::MouseButton button = Qt::LeftButton) {
        Hand.Press(Plot(at).x(), Plot(at).y(), button);
    }
    QColor ColourAt(const QPointF& at) { return picSHP.Picture().pixelColor(at.toPoint()); }
    QColor ColourAt(const Position& at) { return ColourAt(Plot(at)); }

    /// What a redraw by the mode of the moment shows.
    QImage ByMode() {
        RedrawByMode(Map.Map());
        return picSHP.Picture();
    }
    QImage Outlines() {
        Map.DrawPlainMap();
        return picSHP.Picture();
    }
    std::string Status() { return Frame.findChild<QStatusBar*>("staMain")->currentMessage().toStdString(); }

    frmClusterDetection& Test = The<frmClusterDetection>();
    frmPolygonSHP& Map = The<frmPolygonSHP>();
    frmInfo& Info = The<frmInfo>();
    PlotWidget& picSHP = *Map.findChild<PlotWidget*>("picSHP");
    Mouse Hand{picSHP};
    const QColor Yellow{255, 255, 0}, White{255, 255, 255}, Red{255, 0, 0};
};

const std::string ThreeShortWaits = "yield 2501\nyield 2501\nyield 2501\n";
const std::string ThreeLongWaits = "yield 50001\nyield 50001\nyield 50001\n";

} // namespace

TEST_F(PolygonToolsTest, DoesNothingWithoutATool) {
    const QImage before = picSHP.Picture();
    Hand.Drag(100, 100, 20, 20);
    EXPECT_EQ(picSHP.Picture(), before);
    EXPECT_EQ(ws.PolygonView.PanDX, 0);
    EXPECT_EQ(Script.Transcript(), "");
}

TEST_F(PolygonToolsTest, IdentifiesInEachModeWithEachButton) {
    Tool("ID");
    for (const Mode mode : EachMode)
        for (const auto button : Mouse::EachButton) {
            SCOPED_TRACE(testing::Message() << "mode " << static_cast<int>(mode) << " button " << button);
            Set(mode);
            const QColor colour = ColourAt(Region61);
            ws.SelectedRegion = 5;
            int flashes = 0;
            for (int wait = 1; wait <= 3; ++wait)
                Script.AtYield(wait, [&] {
                    if (ColourAt(Region61) == Yellow && ColourAt(Region1) == White) ++flashes;
                });
            const size_t before = Script.Transcript().size();
            Press(Region61, button);
            EXPECT_EQ(Script.Transcript().substr(before), ThreeShortWaits);
            EXPECT_EQ(flashes, 3);
            EXPECT_EQ(ws.SelectedRegion, 60);
            EXPECT_EQ(ColourAt(Region61), colour);
            const QImage after = picSHP.Picture();
            EXPECT_EQ(after, ByMode());
        }
}

TEST_F(PolygonToolsTest, ShowsTheAttributesOfTheRegion) {
    Tool("ID");
    Press(Region61);
    EXPECT_TRUE(Info.IsLoaded());
    const auto rows = Rows(The_<ListBox>(Info, "lstInfo"));
    ASSERT_FALSE(rows.empty());
    EXPECT_TRUE(std::any_of(rows.begin(), rows.end(),
                            [](const std::string& row) { return row.ends_with(" " + ws.PrimaryIDs(61)); }));
    Shot(Frame, "tools-identify");
    Shot(Info, "tools-identify-info");
}

TEST_F(PolygonToolsTest, IdentifiesTheFirstRegionOnEmptyGround) {
    Tool("ID");
    Script.AtYield(1, [this] { EXPECT_EQ(ColourAt(Region1), Yellow); });
    Press(EmptyGround);
    EXPECT_EQ(ws.SelectedRegion, 0);
    EXPECT_EQ(Script.YieldCalls(), 3);
}

TEST_F(PolygonToolsTest, FindsTheRowOfARegionAfterARun) {
    auto& screen = The<frmClusterDetection>();
    screen.TakeAlphaValues();
    screen.Show();
    Type(screen, "txtSingleSigma", "1");
    ScreenTest::Press(screen, "cmdRun");
    auto* list = The_<ListBox>(screen, "lstLocalPatternSummary");
    for (const auto button : Mouse::EachButton) {
        list->SetListIndex(7);
        Press(Region61, button);
        EXPECT_EQ(list->ListIndex(), 63);
        EXPECT_EQ(ws.SelectedRegion, 60);
        EXPECT_EQ(ColourAt(Region61), Yellow); // and the map stays so
        EXPECT_EQ(ColourAt(Region1), White);
        EXPECT_TRUE(Map.IsToolPressed("Find"));
        EXPECT_TRUE(Map.findChild<QAction*>("Find")->isEnabled());
    }
    EXPECT_EQ(Script.YieldCalls(), 0);
    Shot(Frame, "tools-find");
    screen.Unload();
}

TEST_F(PolygonToolsTest, GraphLeavesTheOutlinesInEachModeWithEachButton) {
    Tool("Graph");
    for (const Mode mode : EachMode)
        for (const auto button : Mouse::EachButton) {
            Set(mode);
            ws.SelectedRegion = 5;
            bool yellow = false;
            Script.AtYield(3, [&] { yellow = ColourAt(Region61) == Yellow; });
            const size_t before = Script.Transcript().size();
            Press(Region61, button);
            EXPECT_EQ(Script.Transcript().substr(before), ThreeLongWaits);
            EXPECT_TRUE(yellow);
            EXPECT_EQ(ws.SelectedRegion, 60);
            const QImage after = picSHP.Picture();
            EXPECT_EQ(after, Outlines());
        }
}

TEST_F(PolygonToolsTest, ZoomsByTwoStepsAndByOneOnAStatistic) {
    struct Case {
        const char* Key;
        Mode Shown;
        double Zoom;
    };
    const Case cases[] = {{"ZoomIn", Mode::Plain, 1.8},      {"ZoomIn", Mode::Statistic, 1.4},
                          {"ZoomIn", Mode::Cusum, 1.8},      {"ZoomOut", Mode::Plain, 0.2},
                          {"ZoomOut", Mode::Statistic, 0.6}, {"ZoomOut", Mode::Cusum, 0.2}};
    for (const Case& zoom : cases)
        for (const auto button : Mouse::EachButton) {
            Tool(zoom.Key);
            Set(zoom.Shown);
            Press(Region61, button);
            EXPECT_NEAR(ws.MapZoom, zoom.Zoom, 1e-12) << zoom.Key;
            EXPECT_NEAR(ws.PolygonView.MapScaleX, Scale(), 1e-9); // and the map was drawn with it
            const QImage after = picSHP.Picture();
            EXPECT_EQ(after, ByMode());
        }
}

TEST_F(PolygonToolsTest, DragsTheOutlinesAndBringsTheColoursBack) {
    Tool("Pan");
    for (const Mode mode : EachMode)
        for (const auto button : Mouse::EachButton) {
            Set(mode);
            const QColor colour = ColourAt(Region61);
            Hand.Press(100, 100, button);
            EXPECT_TRUE(ws.PolygonView.bPanning);
            EXPECT_EQ(ColourAt(Region61), colour);
            Hand.Move(130, 88, button);
            EXPECT_EQ(ColourAt(Plot(Region61, {30, -12})), White);
            EXPECT_EQ(ws.PolygonView.PanDX, 30);
            EXPECT_EQ(ws.PolygonView.PanDY, -12);
            Hand.Release(130, 88, button);
            EXPECT_EQ(ColourAt(Plot(Region61, {30, -12})), colour);
            EXPECT_FALSE(ws.PolygonView.bPanning);
            EXPECT_EQ(ws.PolygonView.PanSettledX, 30);
            EXPECT_EQ(ws.PolygonView.PanStartX, 130);
            if (mode == Mode::Statistic && button == Qt::LeftButton) Shot(Frame, "tools-pan");
            const QImage before = picSHP.Picture();
            Hand.Move(150, 150, Qt::NoButton); // no drag any more
            EXPECT_EQ(picSHP.Picture(), before);
        }
}

TEST_F(PolygonToolsTest, AddsTheLastDragAgainUntilADoubleClick) {
    Set(Mode::Cusum);
    Tool("Pan");
    Hand.Drag(100, 100, 12, 6);
    RedrawByMode(Map.Map()); // by settled pan and offset both
    EXPECT_EQ(ColourAt(Plot(Region61, {24, 12})), Red);
    EXPECT_NEAR(ws.PolygonView.MapCentreX - 12,
                static_cast<double>(picSHP.Size().ScaleWidth) / 2 - Scale() * Width / 2, 1e-9);

    // A hit test goes by the map as it was drawn last: 24, 12.
    Tool("ID");
    const QPointF moved = Plot(Region61, {24, 12});
    Hand.Press(moved.x(), moved.y());
    EXPECT_EQ(ws.SelectedRegion, 60);

    Tool("Find"); // each release, in any tool, adds the offset once more
    Hand.Release(1, 1, Qt::RightButton);
    Hand.Release(1, 1, Qt::MiddleButton);
    EXPECT_EQ(ws.PolygonView.PanSettledX, 36);
    EXPECT_EQ(ws.PolygonView.PanSettledY, 18);

    // A double click adds it with its first release and forgets it before its second.
    Map.PressTool("Find", false);
    Hand.DoubleClick(1, 1);
    EXPECT_EQ(ws.PolygonView.PanSettledX, 48);
    EXPECT_EQ(ws.PolygonView.PanDX, 0);
    EXPECT_EQ(ws.PolygonView.PanDY, 0);
    RedrawByMode(Map.Map());
    EXPECT_NEAR(ws.PolygonView.MapCentreX - 48,
                static_cast<double>(picSHP.Size().ScaleWidth) / 2 - Scale() * Width / 2, 1e-9);
}

TEST_F(PolygonToolsTest, TellsThePositionInTheStatusLineOutByTheLastDrag) {
    const auto expectStatus = [this](double x, double y) {
        double shownX = 0, shownY = 0;
        ASSERT_EQ(std::sscanf(Status().c_str(), "(X: %lf, Y: %lf)", &shownX, &shownY), 2) << Status();
        EXPECT_NEAR(shownX, x, 1e-3);
        EXPECT_NEAR(shownY, y, 1e-3);
    };
    const QPointF at = Plot(Region61);
    Hand.Move(at.x(), at.y(), Qt::NoButton);
    expectStatus(Region61.X, Region61.Y);

    Tool("Pan");
    Hand.Press(100, 100);
    Hand.Move(140, 100);
    Hand.Move(at.x() + 40, at.y());
    Hand.Release(at.x() + 40, at.y());
    const double drag = at.x() + 40 - 100, dragDown = at.y() - 100;
    Hand.Move(at.x() + drag, at.y() + dragDown, Qt::NoButton); // over the same Region
    expectStatus(Region61.X + drag / Scale(), Region61.Y - dragDown / Scale());
}

TEST_F(PolygonToolsTest, RunsANestedPressToItsEndInsideAFlash) {
    Tool("ID");
    Script.AtYield(2, [this] {
        EXPECT_EQ(ColourAt(Region61), Yellow);
        Press(Region1, Qt::RightButton);
        EXPECT_EQ(Script.YieldCalls(), 5);
        EXPECT_EQ(ws.SelectedRegion, 0);
    });
    bool nestedFlashes = false;
    Script.AtYield(6, [&] { nestedFlashes = ColourAt(Region1) == Yellow && ColourAt(Region61) == White; });
    Press(Region61);
    EXPECT_EQ(Script.YieldCalls(), 6);
    EXPECT_TRUE(nestedFlashes); // the flash goes on with the Region selected last
    EXPECT_EQ(ws.SelectedRegion, 0);
}

TEST_F(PolygonToolsTest, GoesOnWithAZoomInsideAFlash) {
    Tool("ID");
    Script.AtYield(1, [this] {
        Tool("ZoomIn");
        Press(Region61);
    });
    Press(Region61);
    EXPECT_EQ(Script.YieldCalls(), 3);
    EXPECT_NEAR(ws.MapZoom, 1.8, 1e-12);
    EXPECT_NEAR(ws.PolygonView.MapScaleX, Scale(), 1e-9);
}

TEST_F(PolygonToolsTest, EndsAFlashQuietlyWhoseWindowIsClosed) {
    Set(Mode::Cusum); // the chart of a Region needs its sums
    for (const char* tool : {"ID", "Graph"}) {
        Map.DrawPlainMap();
        Tool(tool);
        const long before = Script.YieldCalls();
        Script.AtYield(1, [this] { Map.Frame()->close(); });
        Press(Region61);
        EXPECT_EQ(Script.YieldCalls(), before + 1) << tool;
        EXPECT_FALSE(Map.IsLoaded());
    }
}

TEST_F(PolygonToolsTest, EndsAFlashQuietlyWhoseWindowIsClosedAndOpenedAgain) {
    Tool("ID");
    Script.AtYield(2, [this] {
        Map.Frame()->close();
        Map.DrawPlainMap();
    });
    Press(Region61);
    EXPECT_EQ(Script.YieldCalls(), 2);
    EXPECT_TRUE(Map.IsLoaded());
    EXPECT_FALSE(Map.IsToolPressed("ID"));
    const QImage after = picSHP.Picture();
    EXPECT_EQ(after, Outlines());
}

TEST_F(PolygonToolsTest, LeavesAnInfoWindowClosedThatWasClosedInsideTheFlash) {
    Tool("ID");
    Script.AtYield(1, [this] { Info.close(); });
    Press(Region61);
    EXPECT_EQ(Script.YieldCalls(), 3);
    EXPECT_FALSE(Info.IsLoaded());
}

TEST_F(PolygonToolsTest, BringsTheInfoWindowBackThatWentOutOfSightInsideTheFlash) {
    Tool("ID");
    Script.AtYield(3, [this] { Info.hide(); });
    Press(Region61);
    EXPECT_TRUE(Info.isVisible());
}

TEST_F(PolygonToolsTest, ReportsAPressOnAMapWithoutScale) {
    Tool("Find");
    ws.PolygonView.MapScaleX = ws.PolygonView.MapScaleY = 0;
    Script.ExpectRunTimeError(11);
    Hand.Press(50, 50);
    Hand.Move(60, 60, Qt::NoButton); // no status either, and no report
    Tool("ID");
    Press(Region61); // draws, and with it computes the view
    EXPECT_EQ(ws.SelectedRegion, 60);
}
