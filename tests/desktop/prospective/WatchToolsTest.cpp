#include "desktop/prospective/WatchTools.h"

#include "desktop/prospective/WatchScreen.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/Mouse.h"

using namespace vastrel;

namespace {

// The points of the small dataset: 4 by 3 units, the margins are 0.2 and 0.15.
constexpr double PointsX[] = {0, 4, 0}, PointsY[] = {0, 0, 3};
constexpr double ViewWidth = 4.4, ViewHeight = 3.3;

constexpr QColor Yellow(255, 255, 0);

/// Thin circles have soft edges: the colour is there, mixed with white.
bool IsGreen(const QColor& colour) {
    return colour.green() == 255 && colour.red() < 160 && colour.blue() < 160;
}
bool IsRed(const QColor& colour) {
    return colour.red() == 255 && colour.green() < 160 && colour.blue() < 160;
}

class WatchToolsTest : public WatchScreenTest {
protected:
    void RunFromStart() {
        LoadForStart();
        Run();
    }
    void Tool(const char* option) { Press(Screen, option); }

    double
    Scale(double zoom = 1) const { // pixels a unit, as the drawn width is the surface's times its ratio
        const SurfaceSize size = picPoint.Size();
        return static_cast<double>(size.ScaleWidth) * (size.Height / size.Width) * zoom / ViewWidth;
    }
    QPointF Plot(int i, double zoom = 1, const QPointF& moved = {}) const {
        const SurfaceSize size = picPoint.Size();
        const QPointF middle(static_cast<double>(size.ScaleWidth) / 2,
                             static_cast<double>(size.ScaleHeight) / 2);
        const QPointF fromMiddle(PointsX[i - 1] + 0.2 - ViewWidth / 2,
                                 -(PointsY[i - 1] + 0.15 - ViewHeight / 2));
        return middle + Scale(zoom) * fromMiddle + moved;
    }
    QColor ColourAt(const QPointF& at) { return picPoint.Picture().pixelColor(at.toPoint()); }

    /// The signal of A is the only red circle, of radius 6.
    bool SignalIsAt(const QPointF& at) {
        for (const double dx : {5.0, 6.0, 7.0})
            if (IsRed(ColourAt(at + QPointF(dx, 0)))) return true;
        return false;
    }
    void ExpectShown(double zoom, const QPointF& moved = {}) {
        EXPECT_TRUE(SignalIsAt(Plot(1, zoom, moved))) << "zoom " << zoom;
    }
    /// A selected point has a yellow box of half-width 2 instead of its white one.
    std::string Selected() {
        std::string labels;
        for (int i = 1; i <= 3; ++i)
            if (ColourAt(Plot(i)) == Yellow) labels += "ABC"[i - 1];
        return labels;
    }
    void Click(const QPointF& at, Qt::MouseButton button = Qt::LeftButton) {
        Hand.Click(at.x(), at.y(), button);
    }
    std::string Display() { return Text(Screen, "lblDisplay"); }
    std::string ToolTip() const { return picPoint.toolTip().toStdString(); }

    PlotWidget& picPoint = *Screen.findChild<PlotWidget*>("picPoint");
    Mouse Hand{picPoint};
};

} // namespace

TEST_F(WatchToolsTest, DoesNothingWithoutPeriods) {
    LoadForStart();
    const QImage before = picPoint.Picture();
    for (const char* tool :
         {"optZoomIn", "optZoomOut", "optPan", "optFullExtent", "optMeasureDistance", "optIdentify"}) {
        Tool(tool);
        Hand.Drag(100, 100, 20, 30);
    }
    EXPECT_EQ(picPoint.Picture(), before);
    EXPECT_EQ(Display(), "");
    EXPECT_EQ(ToolTip(), "");
    Run();
    ExpectShown(1); // no zoom and no pan was kept
}

TEST_F(WatchToolsTest, ShowsTheLineOfTextForTwoTools) {
    RunFromStart();
    for (const char* tool : {"optZoomIn", "optZoomOut", "optPan", "optFullExtent"}) {
        Tool("optIdentify");
        EXPECT_TRUE(IsShown(Screen, "lblDisplay"));
        Tool(tool);
        EXPECT_FALSE(IsShown(Screen, "lblDisplay")) << tool;
    }
    Tool("optIdentify");
    Click(Plot(2));
    EXPECT_EQ(Display(), "Selected Region: B");
    Tool("optMeasureDistance");
    EXPECT_TRUE(IsShown(Screen, "lblDisplay"));
    EXPECT_EQ(Display(), "Selected Region: B"); // left as it is
    Tool("optIdentify");
    EXPECT_EQ(Display(), "");
}

TEST_F(WatchToolsTest, ZoomsByItsStepWithEachButton) {
    RunFromStart();
    ExpectShown(1);
    double zoom = 1;
    for (const auto button : Mouse::EachButton) {
        Tool("optZoomOut");
        Click({50, 60}, button);
        ExpectShown(zoom -= 0.15);
    }
    for (const auto button : Mouse::EachButton) {
        Tool("optZoomIn");
        Click({50, 60}, button);
        ExpectShown(zoom += 0.15);
    }
    Click({50, 60});
    ExpectShown(1.15);
}

TEST_F(WatchToolsTest, DragsWithTheLeftButtonAlone) {
    RunFromStart();
    Tool("optPan");
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        Hand.Drag(100, 100, 30, -10, button);
        ExpectShown(1);
    }
    Hand.Press(100, 100);
    Hand.Move(130, 90);
    ExpectShown(1, {30, -10});
    EXPECT_FALSE(SignalIsAt(Plot(1)));
    Hand.Release(130, 90); // draws, and settles the drag behind it
    ExpectShown(1, {30, -10});
}

TEST_F(WatchToolsTest, AddsTheLastDragAgainUntilADoubleClick) {
    RunFromStart();
    Tool("optPan");
    Hand.Drag(100, 100, 20, -10);
    Tool("optZoomOut");
    Hand.Press(50, 50);
    ExpectShown(0.85, {40, -20});
    Hand.Release(50, 50, Qt::RightButton); // 40, and the offset of 20
    Tool("optFullExtent");
    Hand.Press(50, 50, Qt::MiddleButton); // the offset stays
    ExpectShown(1, {20, -10});
    Tool("optPan");
    Hand.DoubleClick(50, 50); // its first release adds the offset, its second nothing
    Periods()->SetListIndex(5);
    ExpectShown(1, {20, -10});
    Tool("optFullExtent");
    Hand.Press(50, 50);
    ExpectShown(1);
}

TEST_F(WatchToolsTest, IdentifiesASignallingRegionThroughItsList) {
    RunFromStart();
    Tool("optIdentify");
    for (const auto button : Mouse::EachButton) {
        Periods()->SetListIndex(5); // hides the chart of the Region
        const QPointF near = Plot(1) + QPointF(8, -6);
        Hand.Press(near.x(), near.y(), button);
        EXPECT_TRUE(IsGreen(ColourAt(Plot(1) + QPointF(10, 0))));
        Hand.Release(near.x(), near.y(), button); // the left one draws the points anew, without the mark
        EXPECT_EQ(IsGreen(ColourAt(Plot(1) + QPointF(10, 0))), button != Qt::LeftButton);
        EXPECT_EQ(Regions()->ListIndex(), 0);
        EXPECT_TRUE(IsShown(Screen, "MSChart2"));
        EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "A in 4: ---> 4.50");
        EXPECT_EQ(Display(), "Selected Region: A");
        EXPECT_EQ(ToolTip(), "A");
    }
    Shot(Frame, "tools-watch-identify");
}

TEST_F(WatchToolsTest, IdentifiesAnotherRegionByItsChart) {
    RunFromStart();
    Tool("optIdentify");
    for (const auto button : Mouse::EachButton) {
        Periods()->SetListIndex(5);
        Click(Plot(3), button);
        EXPECT_EQ(Regions()->ListIndex(), -1);
        EXPECT_TRUE(IsShown(Screen, "MSChart2"));
        EXPECT_TRUE(IsShown(Screen, "picEachRegionInfo"));
        EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "C in 4: ---> 0.25");
        EXPECT_EQ(Display(), "Selected Region: C");
        EXPECT_EQ(ToolTip(), "C");
        EXPECT_FALSE(IsGreen(ColourAt(Plot(3) + QPointF(10, 0))));
    }
    EXPECT_EQ(ws.CusumChartData(1, 0), 3.5); // C in period 2
}

TEST_F(WatchToolsTest, IdentifiesInThePeriodOnShowAndOfAContinuedRun) {
    RunFromStart();
    Tool("optIdentify");
    Periods()->SetListIndex(3); // period 2: A and C signal
    Click(Plot(3));
    EXPECT_EQ(Regions()->ListIndex(), 1);
    EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "C in 2: ---> 3.50");

    LoadForContinuation();
    Run(); // period 6 of all is on show
    Click(Plot(3));
    EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "C in 6: ---> 0.25");
}

// The list of signals belongs to the period picked last: a run that plays has emptied it, or shows another
// period.
TEST_F(WatchToolsTest, ShowsTheChartWhereTheListIsNotOfThePeriodOnShow) {
    RunFromStart(); // period 4 is picked, in which A signals
    Tool("optIdentify");
    Script.AtYield(4, [this] { // period 3 is on show
        Click(Plot(1));
        EXPECT_TRUE(IsShown(Screen, "MSChart2"));
        EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "A in 3: ---> 2.00");
        EXPECT_EQ(Display(), "Selected Region: A");
    });
    Run();

    Script.AtYield(3, [this] { Periods()->SetListIndex(3); }); // period 2: A and C signal
    Script.AtYield(4, [this] {
        EXPECT_EQ(Regions()->ListCount(), 2);
        Click(Plot(1));
        EXPECT_EQ(Regions()->ListIndex(), -1);
        EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "A in 3: ---> 2.00");
    });
    Run();

    Periods()->SetListIndex(0); // a title row empties the list, and period 4 stays on show
    Click(Plot(1));
    EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "A in 4: ---> 4.50");
}

TEST_F(WatchToolsTest, SelectsThePointsInsideACircle) {
    RunFromStart();
    Tool("optMeasureDistance");
    const QPointF a = Plot(1);
    const double near = 3.4 * Scale(), far = 4.2 * Scale();
    Hand.Press(a.x(), a.y());
    Hand.Move(a.x() + near / 2, a.y());
    EXPECT_TRUE(IsGreen(ColourAt(a + QPointF(near / 2, 0))));
    EXPECT_EQ(Selected(), "");
    EXPECT_EQ(Display(), "");
    Hand.Release(a.x() + near, a.y()); // C is 3 units away, B is 4
    EXPECT_TRUE(IsGreen(ColourAt(a + QPointF(near, 0))));
    EXPECT_EQ(Selected(), "AC");
    EXPECT_EQ(Display(), "Radius: 3");
    Shot(Frame, "tools-watch-select");

    Hand.Drag(a.x(), a.y(), far, 0);
    EXPECT_EQ(Selected(), "ABC");
    EXPECT_EQ(Display(), "Radius: 4");

    Click(Plot(2)); // a circle of no radius
    EXPECT_EQ(Display(), "Radius: 0");
    Periods()->SetListIndex(5); // the next drawing has no boxes
    EXPECT_EQ(Selected(), "");
}

TEST_F(WatchToolsTest, SelectsWithTheOtherButtonsToo) {
    RunFromStart();
    Tool("optMeasureDistance");
    const QPointF a = Plot(1);
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        Hand.Press(a.x(), a.y(), button);
        const QImage before = picPoint.Picture();
        Hand.Move(a.x() + 60, a.y(), button); // no circle follows
        EXPECT_EQ(picPoint.Picture(), before);
        Hand.Release(a.x() + 3.4 * Scale(), a.y(), button);
        EXPECT_EQ(Selected(), "AC");
        EXPECT_EQ(Display(), "Radius: 3");
        Periods()->SetListIndex(5);
    }
}

TEST_F(WatchToolsTest, IsQuietWhereTheMapHasNoScale) {
    Load("cmdFileOpenIDXY", Folder.Write("line.txt", "A,0,1\nB,4,1\nC,8,1\n")); // one line: no view
    Load("cmdNewZScore", Z());
    Type(Screen, "txtHvalue", "2.2");
    Script.ExpectRunTimeError(11);
    Run(); // its title rows stand
    Tool("optMeasureDistance");
    Hand.Drag(100, 100, 30, 0);
    EXPECT_EQ(Display(), "");
}

TEST_F(WatchToolsTest, DrawsNoPointsWhereNoStartOptionIsSet) {
    RunFromStart();
    auto* zero = The_<OptionButton>(Screen, "optZero");
    zero->setAutoExclusive(false); // a group of options that has none cannot come about by the mouse
    zero->setChecked(false);
    Tool("optZoomOut");
    Click({50, 60});
    QImage white = picPoint.Picture();
    white.fill(Qt::white);
    EXPECT_EQ(picPoint.Picture(), white);
    zero->setChecked(true);
    zero->setAutoExclusive(true);
}

TEST_F(WatchToolsTest, ActsInsideTheWaitOfAFrame) {
    LoadForStart();
    Script.AtYield(3, [this] { // period 2 is on show; its list is not filled yet
        Tool("optIdentify");
        Click(Plot(3));
        EXPECT_EQ(Text(Screen, "lblEachRegionInfo"), "C in 2: ---> 3.50");
        EXPECT_EQ(ToolTip(), "C");
        Tool("optZoomOut");
        Click({50, 50});
        Tool("optPan");
        Hand.Drag(100, 100, 5, 5);
    });
    Run();
    EXPECT_EQ(Script.YieldCalls(), 4);
    ExpectShown(0.85, {10, 10});
}

TEST_F(WatchToolsTest, AsksOnlyTheRegionsThatAreWatched) {
    Load("cmdFileOpenIDXY", Folder.Write("more.txt", "A,0,0\nB,4,0\nC,0,3\nD,2,1.5\n"));
    Load("cmdNewZScore", Z()); // no scores of D
    Type(Screen, "txtHvalue", "2.2");
    Run();
    Tool("optIdentify");
    const QPointF d = (Plot(2) + Plot(3)) / 2;
    Click(d + QPointF(-10, 10)); // next to D, and of the others nearest to A
    EXPECT_EQ(ToolTip(), "A");
}

TEST_F(WatchToolsTest, BeginsAnewWithTheScreen) {
    RunFromStart();
    Tool("optIdentify");
    Click(Plot(2));
    Tool("optZoomIn");
    Click(Plot(2));
    Screen.Unload();
    Command("mnuOpenTextPro");
    EXPECT_EQ(ToolTip(), "");
    RunFromStart();
    ExpectShown(1);
}

// The points are those of the ids file that is loaded at the moment, also for the run on show.
TEST_F(WatchToolsTest, AsksThePointsOfANewIdsFile) {
    RunFromStart();
    Load("cmdFileOpenIDXY", Folder.Write("swapped.txt", "P,4,0\nQ,0,0\nR,0,3\n"));
    Tool("optIdentify");
    Hand.Click(Plot(2).x(), Plot(2).y()); // where B stood
    EXPECT_EQ(Text(Screen, "lblDisplay"), "Selected Region: P");
    EXPECT_TRUE(SignalIsAt(Plot(2)));
    Tool("optZoomIn");
    Hand.Click(5, 5);
    EXPECT_TRUE(SignalIsAt(Plot(2, 1.15)));
}

// Zeros that a fault leaves behind are no results.
TEST_F(WatchToolsTest, DrawsPlainPointsAndAsksForNoneBehindARunThatFaulted) {
    RunFromStart();
    EXPECT_TRUE(IsEnabled(Screen, "cmdSaveResult") && IsEnabled(Screen, "cmdSaveCusum"));
    Type(Screen, "txtSigma", "1e200"); // so wide that its square is too large
    Script.ExpectRunTimeError(6);
    Run();
    EXPECT_TRUE(IsEnabled(Screen, "cmdRun"));
    EXPECT_FALSE(IsEnabled(Screen, "cmdSaveResult") || IsEnabled(Screen, "cmdSaveCusum"));
    const QImage plain = picPoint.Picture();
    Tool("optFullExtent");
    Click({50, 60});
    EXPECT_EQ(picPoint.Picture(), plain);
    Tool("optIdentify");
    Click(Plot(1));
    EXPECT_EQ(picPoint.Picture(), plain);
    EXPECT_FALSE(IsShown(Screen, "MSChart2") || IsShown(Screen, "picEachRegionInfo"));

    Type(Screen, "txtSigma", "0");
    Run();
    ExpectShown(1);
    Tool("optFullExtent");
    Click({50, 60});
    ExpectShown(1);
}
