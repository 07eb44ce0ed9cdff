#include "desktop/retrospective/RetroPolygonTest.h"
#include "support/screens/ScreenChecks.h"

#include <QApplication>
#include <QMdiArea>
#include <QScrollBar>

using namespace vastrel;

namespace {

QMdiArea& Area(MDIFrmMain& frame) {
    return *frame.findChild<QMdiArea*>("mdiArea");
}

bool HasScrollBars(MDIFrmMain& frame) {
    QApplication::processEvents();
    return Area(frame).horizontalScrollBar()->isVisible() || Area(frame).verticalScrollBar()->isVisible();
}

/// A frame that fills a desktop of 1366 by 768 pixels, its title bar taken off.
void FillSmallDesktop(MDIFrmMain& frame) {
    frame.resize(1366, 768 - 37);
}

} // namespace

class DesktopSizeTest : public RetroPolygonTest {};

TEST_F(DesktopSizeTest, OpensTheFrameSmallerThanTheDesktopWithItsTitleBar) {
    const QSize frame(1280, 860);
    EXPECT_FALSE(MDIFrmMain::FitsDesktop(frame, {1280, 860})); // maximised then
    EXPECT_FALSE(MDIFrmMain::FitsDesktop(frame, {1440, 900}));
    EXPECT_FALSE(MDIFrmMain::FitsDesktop(frame, {1290, 1000}));
    EXPECT_TRUE(MDIFrmMain::FitsDesktop(frame, {1920, 1080}));
}

TEST_F(DesktopSizeTest, ShrinksTheScreensBeforeAnythingIsScrolled) {
    FillSmallDesktop(Frame);
    OpenPro(WriteThree());
    Press(SelectName, "cmdOK");
    EXPECT_FALSE(HasScrollBars(Frame));
    KeepShot(Frame, "small-watch-polygons");
    for (const char* entry : {"mnuOpenTextRetro", "mnuOpenTextPro"}) {
        Command(entry);
        EXPECT_FALSE(HasScrollBars(Frame)) << entry;
        KeepShot(Frame, std::string("small-") + entry);
    }
}

TEST_F(DesktopSizeTest, LeavesRoomForTheMapItsChartAndTheTestBesideThem) {
    FillSmallDesktop(Frame);
    OpenSample();
    RunRange("optUnadjusted", "0.2", "2.0", "0.2");
    EXPECT_TRUE(Chart.isVisible());
    EXPECT_FALSE(HasScrollBars(Frame));
    KeepShot(Frame, "small-polygons");
}

TEST_F(DesktopSizeTest, TakesTheScrollBarsAwayWithTheLastWindow) {
    Frame.resize(600, 400);
    OpenSample();
    EXPECT_TRUE(HasScrollBars(Frame));
    screens().UnloadChildren();
    EXPECT_FALSE(HasScrollBars(Frame));
}

TEST_F(DesktopSizeTest, ShowsAllRowsOfADefaultSweepWhereTheRoomAllows) {
    OpenSample();
    RunRange("optUnadjusted", "0.2", "2.0", "0.2"); // as the boxes stand at the load
    QApplication::processEvents();
    ASSERT_EQ(Global()->ListCount(), 2 + 10 + 1);
    EXPECT_EQ(Global()->verticalScrollBar()->value(), 0);
    const QRect seen = Global()->viewport()->rect();
    EXPECT_TRUE(seen.contains(Global()->visualRect(Global()->model()->index(0, 0)).center()));
    EXPECT_TRUE(seen.contains(Global()->visualRect(Global()->model()->index(11, 0)).bottomLeft()));
}
