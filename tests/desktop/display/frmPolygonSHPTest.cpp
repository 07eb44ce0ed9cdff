#include "desktop/display/frmPolygonSHP.h"

#include "core/display/PolygonView.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/OptionButton.h"
#include "desktop/toolkit/PictureBox.h"
#include "support/screens/Mouse.h"
#include "support/screens/ScreenChecks.h"

#include <QLabel>
#include <QMdiArea>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

using namespace vastrel;

namespace {

class frmPolygonSHPTest : public RetroPolygonTest {
protected:
    frmPolygonSHPTest() { OpenSample(); }

    void Sweep() { RunRange("optUnadjusted", "0.5", "1.5", "0.5"); }
    void SweepAndAnimate() {
        Sweep();
        Tool("MapAnimation")->trigger();
    }
    QRect Place(const char* control) { return The_<QWidget>(MapWindow, control)->geometry(); }
    bool Entry(const char* name) { return Frame.Entry(name)->isEnabled(); }
    void ComeToTheFront(Screen& screen) {
        Frame.findChild<QMdiArea*>()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(screen.Frame()));
    }
    /// Draws at the window's frame until it is so large inside.
    void ResizeTo(int width, int height) {
        MapWindow.Frame()->resize(QSize(width, height) + MapWindow.Frame()->size() - MapWindow.size());
    }
    /// Sizes that are too small for a frame.
    void Shrink(int width, int height) { MapWindow.resize(width, height); }
    static QRect Units(int left, int top, int width, int height) {
        return {left / 15, top / 15, width / 15, height / 15};
    }
};

} // namespace

TEST_F(frmPolygonSHPTest, StandsAsDesigned) {
    ExpectCaptions(MapWindow, {{"frmPolygonSHP", "country.shp"}, {"lblAni", "Animating Maps"}});
    EXPECT_EQ(MapWindow.Frame()->pos(), QPoint(0, 0));
    EXPECT_EQ(MapWindow.Frame()->size(), QSize(8025 / 15, 5055 / 15)); // with its title
    EXPECT_TRUE(MapWindow.rect().contains(Place("picSHP")));
    EXPECT_TRUE(MapWindow.rect().contains(Place("sliderStatsRange")));
    EXPECT_FALSE(MapWindow.Frame()->geometry().intersects(Retro.Frame()->geometry()));
    EXPECT_EQ(Place("picSHP").topLeft(), Units(1980, 450, 0, 0).topLeft());
    EXPECT_EQ(Place("picLegend"), Units(240, 870, 1455, 2625));
    EXPECT_EQ(Place("Label1"), Units(60, 120, 1305, 255));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(Place(("lblLeg" + std::to_string(i)).c_str()), Units(60, 540 + 420 * i, 1305, 300));
    EXPECT_EQ(Place("imgM_Legend"), Units(360, 810, 1395, 1695));
    EXPECT_EQ(Place("sliderStatsRange"), Units(60, 4020, 1875, 465));
    EXPECT_EQ(Place("lblAni"), Units(60, 3750, 1845, 225));
    for (const char* hidden : {"sliderStatsRange", "lblAni", "picLegend", "imgM_Legend"})
        EXPECT_FALSE(IsShown(MapWindow, hidden)) << hidden;
    ExpectAccessibleNames(MapWindow);
}

TEST_F(frmPolygonSHPTest, HasItsToolbarToTheLetter) {
    std::string found;
    for (const QAction* item : The_<QToolBar>(MapWindow, "Toolbar1")->actions()) {
        if (item->isSeparator()) {
            found += "---\n";
            continue;
        }
        EXPECT_FALSE(item->icon().isNull());
        EXPECT_FALSE(item->isChecked());
        found += item->objectName().toStdString() + " \"" + item->toolTip().toStdString() + "\" " +
                 (item->isCheckable() ? "tool" : "command") + (item->isEnabled() ? "" : " disabled") + "\n";
    }
    EXPECT_EQ(found, "ID \"Identify\" tool\n"
                     "ZoomIn \"Zoom in\" tool\n"
                     "ZoomOut \"Zoom out\" tool\n"
                     "Pan \"Pan\" tool\n"
                     "Find \"Pinpoint a subregion\" tool disabled\n"
                     "Graph \"Show cusum in each subregion\" tool disabled\n"
                     "---\n"
                     "FullExt \"Whole extent\" command\n"
                     "MapAnimation \"Animation\" command disabled\n"
                     "---\n"
                     "Centroid \"Get centroids\" command\n");
}

TEST_F(frmPolygonSHPTest, HoldsOneToolPressed) {
    for (const char* key : {"ID", "ZoomIn", "ZoomOut", "Pan"}) {
        for (int presses = 0; presses < 2; ++presses) { // a second press does not release it
            Tool(key)->trigger();
            for (const char* other : {"ID", "ZoomIn", "ZoomOut", "Pan", "Find", "Graph"})
                EXPECT_EQ(Tool(other)->isChecked(), other == std::string(key)) << key << " " << other;
        }
    }
    RunSingle("optUnadjusted", "1"); // pressing one by code releases the others
    EXPECT_TRUE(Tool("Find")->isChecked());
    EXPECT_FALSE(Tool("Pan")->isChecked());
    Tool("FullExt")->trigger(); // a command is no tool
    EXPECT_TRUE(Tool("Find")->isChecked());
}

TEST_F(frmPolygonSHPTest, EnablesTheEntriesOfTheTableAndTheCentroidsWhileItStands) {
    EXPECT_TRUE(Entry("mnuAttTable"));
    MapWindow.Frame()->close();
    EXPECT_FALSE(MapWindow.IsLoaded());
    EXPECT_FALSE(Entry("mnuAttTable"));
    EXPECT_FALSE(Entry("mnuGetCentroid"));
    EXPECT_TRUE(Entry("mnuExport"));
    MapWindow.DrawPlainMap(); // shows it again
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_TRUE(Entry("mnuAttTable"));
    EXPECT_TRUE(Entry("mnuGetCentroid"));
}

TEST_F(frmPolygonSHPTest, PaintsTheStatisticAnewWhenItComesToTheFront) {
    RunSingle("optStandard", "1");
    const QImage classes = Picture();
    Local()->SetListIndex(10);
    EXPECT_NE(Picture(), classes); // highlighted
    ComeToTheFront(Retro);
    EXPECT_NE(Picture(), classes);
    ComeToTheFront(MapWindow);
    EXPECT_EQ(Picture(), classes);
    EXPECT_EQ(Picture(), ClassesOf(ws.LocalM));

    // After a click on a row of the single run it is a map of zeros: what the display arrays hold.
    Global()->SetListIndex(0);
    ComeToTheFront(Retro);
    ComeToTheFront(MapWindow);
    Array1<double> zeros;
    zeros.ReDim(ws.NumRegion);
    const QImage shown = Picture();
    EXPECT_EQ(shown, ClassesOf(zeros));
}

// ---- Its size

TEST_F(frmPolygonSHPTest, FitsTheMapToTheWindow) {
    const auto expectMap = [this](float width, float height) {
        EXPECT_EQ(picSHP()->Size().Width, width);
        EXPECT_EQ(picSHP()->Size().Height, height);
    };
    expectMap(static_cast<float>(MapWindow.width() * 15 - 2100),
              static_cast<float>(MapWindow.height() * 15 - 700));
    ResizeTo(700, 500);
    expectMap(10500 - 2100, 7500 - 700);
    EXPECT_EQ(Picture(), Outlines());

    Shrink(700, 40); // 600 high, which is not over 700: the height stays, and the map is drawn
    expectMap(10500 - 2100, 7500 - 700);
    Shrink(143, 500); // 2145 wide is not over 2150
    expectMap(10500 - 2100, 7500 - 700);
    Shrink(144, 47); // 2160 and 705
    expectMap(2160 - 2100, 705 - 700);
}

TEST_F(frmPolygonSHPTest, RedrawsWhatTheFlagsSayAtEachSize) {
    ResizeTo(600, 400);
    QImage shown = Picture();
    EXPECT_EQ(shown, Outlines());
    picSHP()->Erase();
    Shrink(610, 31); // too low for another map: it is redrawn all the same
    shown = Picture();
    EXPECT_FALSE(IsWhite(shown));

    RunSingle("optUnadjusted", "1");
    ResizeTo(640, 480);
    shown = Picture();
    EXPECT_EQ(shown, ClassesOf(ws.LocalU));
    EXPECT_FALSE(IsWhite(Print())); // the legend is printed anew

    ws.bRetroMapping = false;
    ws.bCusumMapping = ws.bCusumRun = true;
    ws.CusumValue.ReDim(ws.NumRegion, 2);
    ws.CusumValue(60, 2) = ws.HValue = 5;
    ws.SelectedPeriod = 2;
    ResizeTo(600, 420);
    shown = Picture();
    EXPECT_EQ(shown, Drawn([](const PolygonMap& map) { vastrel::DrawCusumMap(map.picSHP, 2); }));
    EXPECT_NE(shown, Outlines());
}

TEST_F(frmPolygonSHPTest, KeepsItsPrintedLegendMaximisedAndRestored) {
    for (const char* variable : {"optUnadjusted", "optRossi"}) {
        RunSingle(variable, "1");
        const QImage legend = Print().copy(0, 0, 130, 200);
        EXPECT_FALSE(IsWhite(legend));
        MapWindow.Frame()->showMaximized();
        QApplication::processEvents();
        EXPECT_EQ(Print().copy(0, 0, 130, 200), legend) << variable << ", maximised";
        MapWindow.Frame()->showNormal();
        QApplication::processEvents();
        EXPECT_EQ(Print().copy(0, 0, 130, 200), legend) << variable << ", restored";
    }
}

// A resize paints the display arrays, which after an adjusted run hold its M values, in the classes of a
// score.
TEST_F(frmPolygonSHPTest, PaintsTheValuesOfTheDisplayArraysAtAResize) {
    RunSingle("optAdjusted_Generic", "1");
    EXPECT_EQ(ws.DisplayDrawValues, ws.LocalM);
    for (int i = 1; i <= ws.NumRegion; ++i)
        ws.DisplayClassValues(i) = ws.DisplayDrawValues(i) = i - 100;
    ResizeTo(640, 480);
    const QImage shown = Picture();
    EXPECT_EQ(shown, ClassesOf(ws.DisplayDrawValues));
    EXPECT_EQ(ws.LegendMin, -99);
    EXPECT_EQ(ws.LegendLimits(5), 71); // 99 below 0, and 108 others from 0: the 72nd
}

// The classes go by the options of the moment, here of an M for the values of a score.
TEST_F(frmPolygonSHPTest, PaintsByTheOptionOfTheMomentAtAResize) {
    RunSingle("optUnadjusted", "1");
    const QImage scores = Print();
    Press(Retro, "optRossi");
    EXPECT_EQ(Print(), scores); // nothing yet
    ResizeTo(640, 480);
    const double critical = ws.LegendLimits(5);
    EXPECT_GT(critical, 0);
    EXPECT_EQ(ws.LegendLimits(4), 0.5 * critical);
    EXPECT_EQ(ws.LegendLimits(1), -critical);
    const QImage shown = Picture();
    EXPECT_EQ(shown, ClassesOf(ws.LocalU));
    EXPECT_FALSE(IsShown(MapWindow, "imgM_Legend")); // the picture comes with a run or a row alone
    EXPECT_FALSE(IsEnabled(Retro, "cmdSave"));
}

// ---- Its slider

TEST_F(frmPolygonSHPTest, ShowsTheSliderBehindAnAnimation) {
    SweepAndAnimate();
    EXPECT_TRUE(IsShown(MapWindow, "sliderStatsRange"));
    EXPECT_TRUE(IsShown(MapWindow, "lblAni"));
    EXPECT_EQ(Slider()->maximum(), 2);
    Shot(Frame, "polygon-animated");
    ResizeTo(820, 520);
    Shot(MapWindow, "polygon-animated-large");
    Slider()->setValue(2);
    Global()->SetListIndex(2);

    // A smaller maximum pulls the slider back and fires nothing.
    RunRange("optUnadjusted", "0.5", "1", "0.5");
    EXPECT_FALSE(IsShown(MapWindow, "sliderStatsRange"));
    EXPECT_FALSE(IsShown(MapWindow, "lblAni"));
    Tool("MapAnimation")->trigger();
    EXPECT_EQ(Slider()->maximum(), 1);
    EXPECT_EQ(Slider()->value(), 1);

    RunRange("optUnadjusted", "0.5", "0.6", "1"); // one bandwidth: one frame
    const long before = Script.YieldCalls();
    Tool("MapAnimation")->trigger();
    EXPECT_EQ(Script.YieldCalls(), before + 1);
    EXPECT_EQ(Slider()->maximum(), 0);
    EXPECT_TRUE(IsShown(MapWindow, "sliderStatsRange"));
}

TEST_F(frmPolygonSHPTest, FollowsTheSliderWhenItIsLetGo) {
    SweepAndAnimate();
    const QImage last = Picture();
    Slider()->setSliderDown(true);
    Slider()->setSliderPosition(1);
    EXPECT_EQ(Slider()->toolTip().toStdString(), "Bandwidth=1.000");
    EXPECT_EQ(Picture(), last);
    EXPECT_EQ(Global()->ListIndex(), 4);
    Slider()->setSliderDown(false);
    EXPECT_EQ(Global()->ListIndex(), 3);
    EXPECT_EQ(ws.CurrentSigma, 1);
    for (int i = 1; i <= ws.NumRegion; ++i)
        EXPECT_EQ(ws.DisplayDrawValues(i), ws.StatisticTable(i, 1));
    const QImage shown = Picture();
    EXPECT_EQ(shown, ClassesOf(StepValues(1)));
    EXPECT_NE(shown, last);
}

TEST_F(frmPolygonSHPTest, FollowsTheSliderByTheKeyboard) {
    SweepAndAnimate();
    QTest::keyClick(Slider(), Qt::Key_Right);
    EXPECT_EQ(Slider()->toolTip().toStdString(), "Bandwidth=1.000");
    EXPECT_EQ(Global()->ListIndex(), 3);
    QTest::keyClick(Slider(), Qt::Key_End);
    EXPECT_EQ(Slider()->toolTip().toStdString(), "Bandwidth=1.500");
    EXPECT_EQ(Global()->ListIndex(), 4);
}

// ---- Its commands

TEST_F(frmPolygonSHPTest, GoesBackToTheWholeExtent) {
    RunSingle("optRossi", "1");
    const QImage whole = Picture(), legend = Print();
    Tool("ZoomOut")->trigger();
    Mouse(*picSHP()).Click(50, 50);
    Tool("Pan")->trigger();
    Mouse(*picSHP()).Drag(100, 100, 30, 20);
    Mouse(*picSHP()).DoubleClick(5, 5); // forgets the drag
    EXPECT_NE(Picture(), whole);
    Tool("FullExt")->trigger();
    EXPECT_EQ(ws.MapZoom, 1);
    EXPECT_EQ(Picture(), whole);
    EXPECT_EQ(Print(), legend);
}

TEST_F(frmPolygonSHPTest, MarksTheCentroidsOnTheOutlines) {
    RunSingle("optUnadjusted", "1");
    ws.RegionCentroid(1) = {};
    Tool("Centroid")->trigger();
    EXPECT_NE(ws.RegionCentroid(1), RegionPoint{}); // computed anew
    QImage shown = Picture();
    for (const int region : {1, 100, 207})
        EXPECT_EQ(ColourAt(shown, ws.RegionCentroid(region)), QColor(255, 0, 0)) << region;
    EXPECT_FALSE(IsWhite(Print())); // the legend stays
    Shot(Frame, "polygon-centroids");
    ResizeTo(540, 340); // the statistic comes back
    shown = Picture();
    EXPECT_EQ(shown, ClassesOf(ws.LocalU));
}

TEST_F(frmPolygonSHPTest, TellsThePositionInTheFrame) {
    const QPoint middle = picSHP()->rect().center();
    QTest::mouseMove(picSHP(), middle);
    QMouseEvent move(QEvent::MouseMove, middle, picSHP()->mapToGlobal(middle), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(picSHP(), &move);
    EXPECT_EQ(Frame.findChild<QStatusBar*>("staMain")->currentMessage().toStdString(),
              StatusText(middle.x() - 2, middle.y() - 2));
}

TEST_F(frmPolygonSHPTest, ComesBackAsNew) {
    SweepAndAnimate();
    Tool("Pan")->trigger();
    ResizeTo(700, 500);
    MapWindow.Frame()->close();
    MapWindow.DrawPlainMap();
    EXPECT_EQ(MapWindow.Frame()->size(), QSize(535, 337));
    EXPECT_EQ(MapWindow.size(), MapWindow.Frame()->contentsRect().size());
    EXPECT_EQ(MapWindow.Frame()->pos(), QPoint(0, 0));
    EXPECT_FALSE(Tool("Pan")->isChecked());
    EXPECT_FALSE(Tool("MapAnimation")->isEnabled());
    EXPECT_FALSE(IsShown(MapWindow, "sliderStatsRange"));
    EXPECT_EQ(Slider()->value(), 0);
}
