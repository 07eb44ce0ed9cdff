#include "core/display/PolygonMap.h"
#include "core/display/PolygonPainter.h"
#include "core/display/PolygonView.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmGraph.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/spatial/frmInfo.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/ProjectFolder.h"
#include "support/screens/Mouse.h"
#include "support/screens/PolygonScreenTest.h"

#include <QAction>
#include <QSlider>

using namespace vastrel;

namespace {

const std::string Country = InProject("samples/country.shp");
constexpr PointXY Middle61{230, 121.243557}; // of the hexagon of Region 61, record 60
constexpr int Record61 = 60;

/// The tools of the polygon map before, during and after the runs of both tests, with the sample country
/// opened through the menu.
class ToolsInRuns : public PolygonScreenTest {
protected:
    ~ToolsInRuns() override {
        Info.Unload();
        Watch.Unload();
    }

    void OpenForRetro() {
        OpenRetro(Country, [this] {
            Pick(Parameter, "cboBasePopulation", "POP");
            Pick(Parameter, "cboCase", "CASES");
            Pick(Parameter, "cboPrimaryID", "NAME");
            ScreenTest::Press(Parameter, "cmdOK");
        });
    }
    void OpenForWatch() {
        OpenPro(Country);
        Pick(SelectName, "cmbName1", "NAME");
        ScreenTest::Press(SelectName, "cmdOK");
    }

    void RunSingle(const char* variable) {
        ScreenTest::Press(Retro, "optSpatialSingleSigma");
        ScreenTest::Press(Retro, variable);
        Type(Retro, "txtSingleSigma", "1");
        ScreenTest::Press(Retro, "cmdRun");
    }
    void RunRange() {
        ScreenTest::Press(Retro, "optSpatialSigmaRange");
        Type(Retro, "txtToSigma", "0.6");
        ScreenTest::Press(Retro, "cmdRun");
    }
    /// Four periods of observed counts taken for z-scores: what counts is that something signals.
    void RunWatch(const char* first = "OBS01", const char* last = "OBS04") {
        Pick(Watch, "cboStartZ", first);
        Pick(Watch, "cboEndZ", last);
        ScreenTest::Press(Watch, "cmdCalc");
    }

    bool CanPush(const char* tool) { return MapWindow.findChild<QAction*>(tool)->isEnabled(); }
    /// As the user does: a tool that is not offered stays as it is.
    void Push(const char* tool) { MapWindow.findChild<QAction*>(tool)->trigger(); }

    void PressMap(const PointXY& at, Qt::MouseButton button = Qt::LeftButton) {
        const PlotPoint plot = WorldToPlot(at.X, at.Y);
        Hand.Press(plot.X, plot.Y, button);
    }
    QColor ColourAt(const PointXY& at) {
        const PlotPoint plot = WorldToPlot(at.X, at.Y);
        return Map.Picture().pixelColor(plot.X, plot.Y);
    }
    QImage After(const std::function<void()>& drawing) {
        drawing();
        return Map.Picture();
    }
    QImage Outlines() {
        return After([this] { MapWindow.DrawPlainMap(); });
    }
    QImage Cusums(std::ptrdiff_t period) {
        return After([this, period] { MapWindow.DrawCusumMap(period); });
    }
    QImage Statistic(Array1<double> values) {
        return After([&] {
            Array1<double> sorted = values;
            MapWindow.ShowRetroMap(sorted, values);
        });
    }
    ListBox* Local() { return The_<ListBox>(Retro, "lstLocalPatternSummary"); }
    ListBox* Periods() { return The_<ListBox>(Watch, "lstPeriod"); }

    frmUnivariate& Watch = The<frmUnivariate>();
    frmGraph& Graph = The<frmGraph>();
    frmInfo& Info = The<frmInfo>();
    PlotWidget& Map = *MapWindow.findChild<PlotWidget*>("picSHP");
    Mouse Hand{Map};
    const QColor Yellow{255, 255, 0}, Red{255, 0, 0};
};

} // namespace

TEST_F(ToolsInRuns, AreIdentifyZoomAndPanBeforeARun) {
    for (const bool retro : {true, false}) {
        retro ? OpenForRetro() : OpenForWatch();
        for (const char* tool : {"Find", "Graph", "MapAnimation"}) {
            EXPECT_FALSE(CanPush(tool)) << tool;
            Push(tool);
            EXPECT_FALSE(MapWindow.IsToolPressed(tool)) << tool;
        }
        const QImage outlines = Outlines();
        Push("ID");
        for (const auto button : Mouse::EachButton) {
            ws.SelectedRegion = 3;
            PressMap(Middle61, button);
            EXPECT_EQ(ws.SelectedRegion, Record61);
            EXPECT_EQ(Map.Picture(), outlines);
            EXPECT_EQ(Rows(The_<ListBox>(Info, "lstInfo"))[1], "           NAME >           H0711");
        }
    }
}

TEST_F(ToolsInRuns, BringTheStatisticBackAfterASingleRun) {
    OpenForRetro();
    for (const char* variable : {"optUnadjusted", "optAdjusted_Generic", "optStandard", "optRossi"}) {
        RunSingle(variable);
        // After the adjusted run the map keeps the values of M for its redraws, under the classes of the
        // score.
        const bool score = std::string(variable) == "optUnadjusted";
        const QImage shown = Statistic(score ? ws.LocalU : ws.LocalM);
        Push("ID");
        for (const auto button : Mouse::EachButton) {
            PressMap(Middle61, button);
            EXPECT_EQ(Map.Picture(), shown) << variable;
        }
        Push("Find");
        for (const auto button : Mouse::EachButton) {
            Local()->SetListIndex(7);
            PressMap(Middle61, button);
            EXPECT_EQ(Local()->ListIndex(), Record61 + 3);
            EXPECT_NE(Local()->List(Local()->ListIndex()).find("H0711"), std::string::npos);
            EXPECT_EQ(ColourAt(Middle61), Yellow);
            EXPECT_TRUE(CanPush("Find") && MapWindow.IsToolPressed("Find"));
        }
        EXPECT_FALSE(CanPush("Graph"));
    }
}

TEST_F(ToolsInRuns, ServeBehindARangeOfWhichNoStepIsPicked) {
    OpenForRetro();
    RunRange(); // no legend was built yet, and the map is plain
    Push("ID");
    for (const auto button : Mouse::EachButton) {
        bool lit = false;
        Script.AtYield(1, [&] { lit = ColourAt(Middle61) == Yellow; });
        PressMap(Middle61, button);
        EXPECT_EQ(ws.SelectedRegion, Record61);
        EXPECT_TRUE(lit);
    }
    Array1<double> last(ws.NumRegion); // the redraw by mode takes what the last step left
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        last(i) = ws.StatisticTable(i, ws.BandwidthCount - 1);
    const QImage shown = Map.Picture();
    EXPECT_EQ(shown, Statistic(last));
}

TEST_F(ToolsInRuns, FindOnARangeAsOnASingleRunButForTheRow) {
    OpenForRetro();
    RunRange();
    EXPECT_FALSE(CanPush("Find")); // the user is not offered it
    MapWindow.EnableButton("Find", true);
    Push("Find");
    for (const auto button : Mouse::EachButton) {
        PressMap(Middle61, button);
        EXPECT_EQ(ws.SelectedRegion, Record61);
        EXPECT_EQ(ColourAt(Middle61), Yellow);
        EXPECT_EQ(Local()->ListIndex(), -1); // a range lists no Regions
    }
    Retro.GlobalPatternSummary().SetListIndex(2);
    const QImage step = Map.Picture();
    Push("ID");
    PressMap(Middle61);
    EXPECT_EQ(Map.Picture(), step);
}

TEST_F(ToolsInRuns, ServeInsideTheAnimationOfTheBandwidths) {
    OpenForRetro();
    RunRange(); // three bandwidths
    Push("ID");
    long nested = 0;
    Script.AtYield(2, [&] { // the wait of the second frame
        PressMap(Middle61, Qt::RightButton);
        EXPECT_EQ(ws.SelectedRegion, Record61);
        nested = Script.YieldCalls() - 2;
        Push("ZoomIn");
        PressMap(Middle61, Qt::MiddleButton);
        Push("Pan");
        Hand.Drag(100, 100, 12, 6);
    });
    Push("MapAnimation");
    EXPECT_EQ(nested, 3);
    EXPECT_EQ(Script.YieldCalls(), 3 + 3);
    EXPECT_EQ(Retro.GlobalPatternSummary().ListIndex(), 4);
    EXPECT_NEAR(ws.MapZoom, 1.4, 1e-12);
    EXPECT_EQ(ws.PolygonView.PanSettledX, 12);
    EXPECT_TRUE(IsShown(MapWindow, "sliderStatsRange"));
    Array1<double> last(ws.NumRegion);
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        last(i) = ws.StatisticTable(i, 2);
    const QImage shown = Map.Picture();
    EXPECT_EQ(shown, Statistic(last));
}

TEST_F(ToolsInRuns, AnimateARangeOfOneBandwidthInOneFrame) {
    OpenForRetro();
    ScreenTest::Press(Retro, "optSpatialSigmaRange");
    Type(Retro, "txtFromSigma", "1");
    Type(Retro, "txtToSigma", "1.1");
    Type(Retro, "txtStep", "1"); // 0.1 / 1 + 1, rounded
    ScreenTest::Press(Retro, "cmdRun");
    Push("MapAnimation");
    EXPECT_EQ(Script.YieldCalls(), 1);
    EXPECT_EQ(Retro.GlobalPatternSummary().ListIndex(), 2);
    EXPECT_EQ(The_<QSlider>(MapWindow, "sliderStatsRange")->maximum(), 0);
}

TEST_F(ToolsInRuns, BringThePeriodBackAfterAWatch) {
    OpenForWatch();
    RunWatch();
    Periods()->SetListIndex(3); // period 2
    const QImage period = Map.Picture();
    EXPECT_FALSE(CanPush("Find"));
    Push("ID");
    for (const auto button : Mouse::EachButton) {
        PressMap(Middle61, button);
        EXPECT_EQ(Map.Picture(), period);
    }
    Push("Graph");
    for (const auto button : Mouse::EachButton) {
        Graph.Unload();
        ws.SelectedRegion = 0;
        PressMap(Middle61, button);
        EXPECT_TRUE(Graph.isVisible());
        EXPECT_EQ(Text(Graph, "Text1"), "H0711 in 2: ---> " + Num(ws.CusumValue(Record61 + 1, 2), "0.00"));
        EXPECT_EQ(Map.Picture(), Outlines());
    }
    Shot(Frame, "tools-graph");
    Periods()->SetListIndex(0); // a title row: the plain map, and no Graph
    EXPECT_FALSE(CanPush("Graph") || MapWindow.IsToolPressed("Graph"));
    const QImage outlines = Outlines();
    Push("ID");
    PressMap(Middle61);
    EXPECT_EQ(Map.Picture(), outlines);
}

TEST_F(ToolsInRuns, ServeInsideTheFramesOfAWatch) {
    OpenForWatch();
    Push("ID");
    Script.AtYield(1, [this] { // before the first frame of the first run: the map is plain
        const QImage outlines = Outlines();
        PressMap(Middle61);
        EXPECT_EQ(Map.Picture(), outlines);
        EXPECT_FALSE(CanPush("Graph"));
    });
    RunWatch();
    EXPECT_EQ(Script.YieldCalls(), 4 + 3);
    EXPECT_EQ(Map.Picture(), Cusums(4));

    // From the second run on the Graph tool is at hand, and tells of the period picked last.
    Push("Graph");
    const long before = Script.YieldCalls();
    Script.AtYield(3, [this] {
        PressMap(Middle61, Qt::RightButton);
        EXPECT_TRUE(Graph.isVisible());
        EXPECT_EQ(Text(Graph, "Text1"), "H0711 in 4: ---> " + Num(ws.CusumValue(Record61 + 1, 4), "0.00"));
        EXPECT_EQ(Map.Picture(), Outlines());
    });
    ScreenTest::Press(Watch, "cmdCalc");
    EXPECT_EQ(Script.YieldCalls() - before, 4 + 3);
    EXPECT_EQ(Periods()->ListCount(), 2 + 4 + 1);
    EXPECT_EQ(Map.Picture(), Cusums(4)); // the next frame painted over
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(ToolsInRuns, ReportAGraphOfAPeriodThatTheNewRunLacksAndPlayOn) {
    OpenForWatch();
    RunWatch("OBS01", "OBS04"); // period 4 is picked
    Push("Graph");
    Script.AtYield(1, [this] {
        Script.ExpectRunTimeError(9);
        PressMap(Middle61);
    });
    RunWatch("OBS01", "OBS02");
    EXPECT_EQ(Periods()->ListCount(), 2 + 2 + 1);
    EXPECT_EQ(ws.SelectedPeriod, 2);
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(ToolsInRuns, RunToTheirEndsInsideTheFlashesOfEachOther) {
    OpenForWatch();
    RunWatch();
    Push("Graph");
    const PointXY first{ws.RegionCentroid(1).X, ws.RegionCentroid(1).Y};
    Script.AtYield(2, [&, this] { // inside the second flash of the graph
        Push("ID");
        PressMap(first, Qt::RightButton);
        EXPECT_EQ(ws.SelectedRegion, 0);
        EXPECT_EQ(ColourAt(Middle61), Red); // by mode: the sums of the fourth period signal
    });
    bool lastFlash = false;
    Script.AtYield(2 + 3 + 1, [&, this] { lastFlash = ColourAt(first) == Yellow; });
    const long before = Script.YieldCalls();
    PressMap(Middle61);
    EXPECT_EQ(Script.YieldCalls() - before, 3 + 3);
    EXPECT_TRUE(lastFlash); // of the Region that was selected last
    EXPECT_TRUE(Graph.isVisible() && Info.IsLoaded());
    EXPECT_EQ(Map.Picture(), Outlines()); // a graph leaves them
}

TEST_F(ToolsInRuns, LetARunPlayInsideAFlash) {
    OpenForWatch();
    RunWatch();
    Push("ID");
    Script.AtYield(1, [this] { RunWatch("OBS05", "OBS06"); });
    const long before = Script.YieldCalls();
    PressMap(Middle61);
    EXPECT_EQ(Script.YieldCalls() - before, 3 + 2);
    EXPECT_EQ(Periods()->ListCount(), 2 + 2 + 1);
    EXPECT_EQ(Map.Picture(), Cusums(2)); // the redraw behind the flash goes by the newer run
}

TEST_F(ToolsInRuns, EndAFlashQuietlyWhenAnotherDatasetIsOpened) {
    OpenForWatch();
    Push("ID");
    Script.AtYield(2, [this] { OpenForRetro(); });
    PressMap(Middle61);
    EXPECT_EQ(Script.YieldCalls(), 2);
    EXPECT_TRUE(MapWindow.IsLoaded() && Retro.IsLoaded());
    EXPECT_FALSE(MapWindow.IsToolPressed("ID"));
}
