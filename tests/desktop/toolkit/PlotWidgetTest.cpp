#include "desktop/toolkit/PlotWidget.h"

#include "core/platform/RunTimeError.h"
#include "support/ScriptedPlatform.h"

#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// A surface of the point map's size, and a line for each mouse event that reaches it.
class PlotWidgetTest : public testing::Test {
protected:
    PlotWidgetTest() {
        Surface.FixSize(5595, 4275);
        Surface.show();
        const auto note = [this](const char* event) {
            return [this, event](int button, double x, double y) {
                Events += event + (" " + std::to_string(button)) + " " + std::to_string(static_cast<int>(x)) +
                          "," + std::to_string(static_cast<int>(y)) + "\n";
            };
        };
        Surface.MouseDown = note("down");
        Surface.MouseUp = note("up");
        Surface.DblClick = [this] { Events += "double\n"; };
    }

    ScriptedPlatform Script;
    PlotWidget Surface;
    std::string Events;
};

} // namespace

TEST_F(PlotWidgetTest, HasAFrameOfTwoPixels) {
    EXPECT_EQ(Surface.Size(), (SurfaceSize{5595, 4275, 369, 281})); // 373 and 285 pixels outside
    EXPECT_EQ(Surface.size(), QSize(373, 285));
    EXPECT_EQ(Surface.Picture().size(), QSize(369, 281) * Surface.devicePixelRatioF());
    Surface.FixSize(6400, 4110); // 426.67 pixels: the inner size is 423, the layout units stay whole
    EXPECT_EQ(Surface.Size(), (SurfaceSize{6400, 4110, 423, 270}));
}

TEST_F(PlotWidgetTest, KeepsWhatIsDrawn) {
    Surface.Erase();
    Surface.SetFillStyle(FillStyle::Solid);
    Surface.SetFill(Colours::Red);
    Surface.SetPen(Colours::Red);
    Surface.Polygon({{10, 10}, {20, 10}, {20, 20}, {10, 20}});
    Surface.Refresh();
    EXPECT_EQ(Surface.Picture().pixelColor(15, 15), QColor(255, 0, 0));
    EXPECT_EQ(Surface.Picture().pixelColor(5, 5), QColor(Qt::white));
    EXPECT_EQ(Surface.grab().toImage().pixelColor(15 + 2, 15 + 2), QColor(255, 0, 0)); // behind the frame
    Surface.Erase();
    EXPECT_EQ(Surface.Picture().pixelColor(15, 15), QColor(Qt::white));
}

TEST_F(PlotWidgetTest, DrawsTheTwelvePixelsOfACircleInItsOwnColour) {
    Surface.Circle(100, 100, 6, 0xFF0000); // blue in the high byte
    const QImage shown = Surface.Picture();
    EXPECT_EQ(shown.pixelColor(100, 100), QColor(Qt::white)); // an outline
    const QColor left = shown.pixelColor(94, 100);
    EXPECT_GT(left.blue(), 200);
    EXPECT_LT(left.red(), 100);
}

TEST_F(PlotWidgetTest, GivesMouseEventsInPlotCoordinates) {
    QTest::mouseClick(&Surface, Qt::LeftButton, {}, QPoint(12, 22));
    QTest::mouseClick(&Surface, Qt::RightButton, {}, QPoint(2, 2));
    QTest::mouseClick(&Surface, Qt::MiddleButton, {}, QPoint(1, 0)); // on the frame
    EXPECT_EQ(Events, "down 1 10,20\nup 1 10,20\ndown 2 0,0\nup 2 0,0\ndown 4 -1,-2\nup 4 -1,-2\n");
}

TEST_F(PlotWidgetTest, TakesTheSecondPressOfADoubleClickForNoPress) {
    QTest::mouseClick(&Surface, Qt::LeftButton, {}, QPoint(12, 22));
    QTest::mouseDClick(&Surface, Qt::LeftButton, {}, QPoint(12, 22));
    QTest::mouseRelease(&Surface, Qt::LeftButton, {}, QPoint(12, 22));
    EXPECT_EQ(Events, "down 1 10,20\nup 1 10,20\ndouble\nup 1 10,20\n");
}

TEST_F(PlotWidgetTest, ShowsAFaultOfAHandlerAndGoesOn) {
    Surface.MouseDown = [](int, double, double) { RaiseCustomary(DivisionByZero, "test"); };
    Script.ExpectRunTimeError(11);
    QTest::mouseClick(&Surface, Qt::LeftButton, {}, QPoint(12, 22));
    EXPECT_EQ(Events, "up 1 10,20\n");
}

// As in a window that is being maximised: the event of the new size comes behind the drawing.
TEST(PlotWidgetSizeTest, KeepsWhatIsDrawnBeforeTheEventOfItsNewSize) {
    PlotWidget surface;
    surface.resize(200, 100);
    surface.show();
    surface.hide();
    surface.resize(300, 100);
    surface.SetFillStyle(FillStyle::Solid);
    surface.SetFill(Colours::Red);
    surface.Polygon({{200, 10}, {250, 10}, {250, 50}, {200, 50}});
    surface.show();
    EXPECT_EQ(surface.Picture().pixelColor(225, 30), QColor(255, 0, 0));
}

TEST(PlotWidgetSizeTest, StartsAWhitePictureWhenItsSizeChanges) {
    PlotWidget surface;
    surface.resize(200, 100);
    surface.show();
    surface.SetFillStyle(FillStyle::Solid);
    surface.Polygon({{0, 0}, {50, 0}, {50, 50}, {0, 50}});
    surface.resize(300, 100);
    EXPECT_EQ(surface.Size(), (SurfaceSize{4500, 1500, 296, 96}));
    QImage white = surface.Picture();
    white.fill(Qt::white);
    EXPECT_EQ(surface.Picture(), white);
}

TEST_F(PlotWidgetTest, RepeatsALongAnimationWithoutKeepingItAll) {
    Surface.Erase();
    Surface.SetPen(Colours::Red);
    constexpr int more = 200001; // than the strokes that are kept
    for (int stroke = 0; stroke < more; ++stroke)
        Surface.Point(stroke % 90, stroke / 90 % 90, Colours::Red);
    QImage again = Surface.Picture();
    again.fill(Qt::white);
    QPainter painter(&again);
    Surface.Repeat(painter);
    painter.end();
    EXPECT_EQ(again, Surface.Picture());
}
