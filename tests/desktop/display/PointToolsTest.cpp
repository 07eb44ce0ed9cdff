#include "desktop/display/PointTools.h"

#include "core/workspace/Workspace.h"
#include "desktop/retrospective/PointScreen.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/Mouse.h"

#include <cmath>

using namespace vastrel;

namespace {

// The four points stand at the corners of a rectangle of 4 by 3 units; the margins are 0.2 and 0.15.
constexpr double CornersX[] = {0, 4, 0, 4}, CornersY[] = {0, 0, 3, 3};
constexpr double ViewWidth = 4.4, ViewHeight = 3.3;

class PointToolsTest : public PointScreenTest {
protected:
    void Tool(const char* option) { Press(Screen, option); }

    /// Where point i (from 1) stands at a zoom, moved by so many pixels: the drawn width is the surface's
    /// times its outer ratio times the zoom, centred.
    QPointF Plot(int i, double zoom = 1.2, const QPointF& moved = {}) const {
        const SurfaceSize size = picPoint.Size();
        const double scale =
            static_cast<double>(size.ScaleWidth) * (size.Height / size.Width) * zoom / ViewWidth;
        const QPointF middle(static_cast<double>(size.ScaleWidth) / 2,
                             static_cast<double>(size.ScaleHeight) / 2);
        const QPointF fromMiddle(CornersX[i - 1] + 0.2 - ViewWidth / 2,
                                 -(CornersY[i - 1] + 0.15 - ViewHeight / 2));
        return middle + scale * fromMiddle + moved;
    }
    /// All points were plotted last at this zoom and offset.
    void ExpectPlotted(double zoom, const QPointF& moved = {}) {
        for (int i = 1; i <= 4; ++i) {
            EXPECT_NEAR(ws.PlottedPoints(i).X, Plot(i, zoom, moved).x(), 0.501) << i;
            EXPECT_NEAR(ws.PlottedPoints(i).Y, Plot(i, zoom, moved).y(), 0.501) << i;
        }
    }
    void Click(const QPointF& at, Qt::MouseButton button = Qt::LeftButton) {
        Hand.Click(at.x(), at.y(), button);
    }
    std::string ToolTip() const { return picPoint.toolTip().toStdString(); }

    PlotWidget& picPoint = *Screen.findChild<PlotWidget*>("picPoint");
    Mouse Hand{picPoint};
};

/// Colours on the map other than white, black and grey.
bool HasColours(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y).saturation() > 0) return true;
    return false;
}

constexpr QColor Green(0, 255, 0);

/// The green mark is a circle of radius 10, four pixels wide.
bool IsMarked(const QImage& picture, const QPointF& at) {
    return picture.pixelColor((at + QPointF(10, 0)).toPoint()) == Green;
}

} // namespace

TEST_F(PointToolsTest, DoesNothingWithoutATool) {
    LoadFour();
    RunSingle("1");
    const QImage before = picPoint.Picture();
    Hand.Drag(100, 100, 20, 20);
    EXPECT_EQ(picPoint.Picture(), before);
    EXPECT_EQ(ToolTip(), "");
}

TEST_F(PointToolsTest, IsQuietBeforeADataset) {
    for (const char* tool : {"optZoomIn", "optZoomOut", "optPan", "optFullExtent", "optIdentify"}) {
        Tool(tool);
        Hand.Drag(100, 100, 10, 10);
        Hand.DoubleClick(50, 50);
    }
    EXPECT_EQ(Script.Transcript(), "");
}

TEST_F(PointToolsTest, ZoomsByAFifthWithEachButton) {
    LoadFour();
    RunSingle("1");
    ExpectPlotted(1.2);
    double zoom = 1.2;
    for (const auto button : Mouse::EachButton) {
        Tool("optZoomIn");
        Click({50, 60}, button);
        ExpectPlotted(zoom += 0.2);
        if (button != Qt::LeftButton) continue;      // further in, the corners are out of sight
        EXPECT_TRUE(HasColours(picPoint.Picture())); // the statistic, not the plain points
        Shot(Frame, "tools-point-zoom");
    }
    for (const auto button : Mouse::EachButton) {
        Tool("optZoomOut");
        Click({50, 60}, button);
        ExpectPlotted(zoom -= 0.2);
    }
    Click({50, 60});
    ExpectPlotted(1.0);
}

TEST_F(PointToolsTest, DragsWithTheLeftButtonAlone) {
    LoadFour();
    RunSingle("1");
    Tool("optPan");
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        Hand.Drag(100, 100, 30, 10, button);
        ExpectPlotted(1.2);
    }
    Hand.Press(100, 100);
    Hand.Move(130, 110, Qt::LeftButton | Qt::RightButton); // not the left one alone
    ExpectPlotted(1.2);
    Hand.Move(130, 110);
    ExpectPlotted(1.2, {30, 10});
    EXPECT_TRUE(HasColours(picPoint.Picture()));
    Hand.Move(90, 95);
    ExpectPlotted(1.2, {-10, -5});
    Shot(Frame, "tools-point-pan");
}

TEST_F(PointToolsTest, AddsTheLastDragAgainUntilADoubleClick) {
    LoadFour();
    RunSingle("1");
    Tool("optPan");
    Hand.Drag(100, 100, 8, 4);
    ExpectPlotted(1.2, {8, 4});
    Tool("optZoomIn");
    Hand.Press(50, 50); // by settled pan and offset both
    ExpectPlotted(1.4, {16, 8});
    Hand.Release(50, 50);
    Tool("optIdentify");
    Hand.Release(1, 1, Qt::RightButton); // settled 8 + 8 + 8
    Tool("optZoomOut");
    Hand.Press(50, 50);
    ExpectPlotted(1.2, {32, 16});
    Tool("optPan");
    Hand.DoubleClick(50, 50); // adds once more and forgets the offset: 32
    Tool("optZoomIn");
    Hand.Press(50, 50);
    ExpectPlotted(1.4, {32, 16});
}

TEST_F(PointToolsTest, GoesBackToTheWholeExtentButForTheLastDrag) {
    LoadFour();
    RunSingle("1");
    Tool("optPan");
    Hand.Drag(100, 100, 8, 4);
    Tool("optZoomIn");
    Hand.Press(50, 50);
    for (const auto button : Mouse::EachButton) {
        Tool("optFullExtent");
        Hand.Press(50, 50, button);
        ExpectPlotted(1.2, {8, 4});
        Hand.Release(50, 50, button);
    }
    Hand.DoubleClick(50, 50);
    Hand.Press(50, 50);
    ExpectPlotted(1.2);
}

TEST_F(PointToolsTest, IdentifiesTheNearestPointOfASingleRunWithEachButton) {
    LoadFour();
    RunSingle("1");
    Tool("optIdentify");
    const char* ids[] = {"A", "B", "C", "D"};
    for (const auto button : Mouse::EachButton)
        for (int i = 1; i <= 4; ++i) {
            Click(Plot(i) + QPointF(9, -7), button);
            EXPECT_EQ(Local()->ListIndex(), i + 2);
            EXPECT_EQ(ToolTip(), ids[i - 1]);
            EXPECT_TRUE(IsMarked(picPoint.Picture(), Plot(i)));
            EXPECT_FALSE(IsMarked(picPoint.Picture(), Plot(i % 4 + 1)));
        }
    EXPECT_TRUE(HasColours(picPoint.Picture()));
    Shot(Frame, "tools-point-identify");
}

TEST_F(PointToolsTest, IdentifiesOnAPannedMapByWhatIsDrawn) {
    LoadFour();
    RunSingle("1");
    Tool("optPan");
    Hand.Drag(100, 100, 150, 0); // A comes near to where B was
    Tool("optIdentify");
    Click(Plot(1) + QPointF(150, 0));
    EXPECT_EQ(ToolTip(), "A");
}

TEST_F(PointToolsTest, IdentifiesBeforeARunAndAfterARange) {
    LoadFour();
    Press(Screen, "optSpatialSigmaRange");
    Tool("optIdentify");
    Click({200, 100}); // no view yet: all points are as near, and the sort leaves the first in front
    EXPECT_EQ(ToolTip(), "A");
    EXPECT_FALSE(HasColours(picPoint.Picture()));
    Click(Plot(4));
    EXPECT_EQ(ToolTip(), "D");
    EXPECT_EQ(Local()->ListIndex(), -1); // no rows to select

    RunRange("1", "2", "1");
    Global()->SetListIndex(2);
    Click(Plot(3));
    EXPECT_EQ(ToolTip(), "C");
    EXPECT_TRUE(HasColours(picPoint.Picture()));
}

// Zeros that a fault leaves behind are no results, and neither are values without a legend of their own.
TEST_F(PointToolsTest, DrawsPlainPointsAfterARunThatFaulted) {
    const auto expectPlain = [this](const char* what) {
        for (const char* tool : {"optZoomIn", "optZoomOut", "optFullExtent"}) {
            Tool(tool);
            Click({50, 60});
            EXPECT_FALSE(HasColours(picPoint.Picture())) << what << ", " << tool;
        }
    };
    Load(Folder.Write("e.txt", "A,0,0,4,5\nB,4,0,9,0\nC,0,3,2,4\nD,4,3,5,5\n"), "optObsExp");
    Press(Screen, "optRossi");
    Script.ExpectRunTimeError(11);
    RunSingle("1");
    expectPlain("the first run");

    Press(Screen, "optStandard"); // which stands an expected count of 0
    RunSingle("1");
    EXPECT_TRUE(HasColours(picPoint.Picture()));
    Press(Screen, "optRossi");
    Script.ExpectRunTimeError(11);
    Press(Screen, "cmdRun");
    expectPlain("behind a good run");

    Script.ExpectRunTimeError(11);
    RunRange("1", "2", "1");
    expectPlain("a range");

    Press(Screen, "optAdjusted_Generic"); // stops before its own arrays are begun
    Script.ExpectRunTimeError(11);
    RunSingle("1");
    expectPlain("before the arrays");
    EXPECT_EQ(Script.Transcript().find("run-time error 9"), std::string::npos);
}

TEST_F(PointToolsTest, DrawsPlainPointsAfterARangeUntilAStepIsPicked) {
    LoadFour();
    RunRange("1", "2", "1");
    const auto zoomed = [this] {
        Tool("optFullExtent");
        Click({50, 60});
        return HasColours(picPoint.Picture());
    };
    EXPECT_FALSE(zoomed());
    Global()->SetListIndex(2);
    EXPECT_TRUE(zoomed());
    Global()->SetListIndex(1); // dashes: the values are emptied
    EXPECT_FALSE(zoomed());
    Global()->SetListIndex(3);
    EXPECT_TRUE(zoomed());
    Press(Screen, "optSpatialSingleSigma"); // of which nothing was run
    EXPECT_FALSE(zoomed());
    RunSingle("1");
    EXPECT_TRUE(zoomed());
    Press(Screen, "optRossi");
    EXPECT_FALSE(zoomed());
    Press(Screen, "optUnadjusted"); // what was run stays what it was
    EXPECT_TRUE(zoomed());
}

TEST_F(PointToolsTest, DrawsPlainPointsOfAnotherDatasetBehindAnOldRow) {
    LoadFour();
    RunRange("1", "2", "1");
    Global()->SetListIndex(2);
    LoadFour();
    Global()->SetListIndex(2); // a row of the dataset before
    Tool("optZoomIn");
    Click({50, 60});
    EXPECT_FALSE(HasColours(picPoint.Picture()));
    EXPECT_EQ(Script.Transcript().find("run-time error"), std::string::npos);
}

TEST_F(PointToolsTest, BeginsAnewWithTheScreen) {
    LoadFour();
    RunSingle("1");
    Tool("optIdentify");
    Click(Plot(2));
    Tool("optZoomIn");
    Click(Plot(2));
    Screen.Unload();
    Command("mnuOpenTextRetro");
    EXPECT_EQ(ToolTip(), "");
    LoadFour();
    RunSingle("1");
    ExpectPlotted(1.2);
}
