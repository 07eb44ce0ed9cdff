#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/PictureBox.h"

#include <QApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolTip>

using namespace vastrel;

namespace {

class MapWindowLookTest : public RetroPolygonTest {
protected:
    MapWindowLookTest() { OpenSample(); }

    /// The map window as a person sees it.
    QImage Shown() {
        QApplication::processEvents();
        return MapWindow.grab().toImage();
    }
};

/// The palette of a dark desktop, for the time of a test.
class DarkDesktop {
public:
    DarkDesktop() {
        QPalette dark(QColor(45, 45, 48));
        for (const auto role : {QPalette::Base, QPalette::Window, QPalette::Button})
            dark.setColor(role, QColor(45, 45, 48));
        for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            dark.setColor(role, Qt::white);
        QApplication::setPalette(dark);
    }
    ~DarkDesktop() { QApplication::setPalette(before_); }

private:
    QPalette before_ = QApplication::palette();
};

} // namespace

TEST_F(MapWindowLookTest, ShowsTheBandwidthWhileTheSliderMoves) {
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    Tool("MapAnimation")->trigger();
    QToolTip::hideText();
    Slider()->setSliderDown(true);
    Slider()->setSliderPosition(1);
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), "Bandwidth=1.000");
    Slider()->setSliderDown(false);
    QToolTip::hideText();
}

TEST_F(MapWindowLookTest, OffersItsPictureInTheWindowMenu) {
    auto* window = qobject_cast<QMdiSubWindow*>(MapWindow.Frame());
    QStringList entries;
    for (const auto* entry : window->systemMenu()->actions())
        entries << entry->text().remove('&');
    EXPECT_EQ(entries.count("Copy Picture"), 1);
    EXPECT_EQ(entries.count("Save Picture As..."), 1);
    MapWindow.Unload();
    MapWindow.DrawPlainMap(); // a window that comes back has them once
    EXPECT_EQ(entries.size(), window->systemMenu()->actions().size());
}

TEST_F(MapWindowLookTest, StaysLightUnderADarkDesktop) {
    const DarkDesktop dark;
    for (const char* part : {"Toolbar1", "lblAni", "sliderStatsRange", "picLegend"}) {
        const QPalette palette = The_<QWidget>(MapWindow, part)->palette();
        EXPECT_GT(palette.color(QPalette::Window).lightness(), 200) << part;
        EXPECT_GT(palette.color(QPalette::Button).lightness(), 200) << part;
        EXPECT_LT(palette.color(QPalette::WindowText).lightness(), 80) << part;
        EXPECT_LT(palette.color(QPalette::ButtonText).lightness(), 80) << part;
    }
    RunRange("optRossi", "0.5", "1.5", "0.5");
    Tool("MapAnimation")->trigger();
    Tool("Pan")->trigger();
    Shot(Frame, "dark");
    const QColor pressed = Shown().pixelColor(
        MapWindow.findChild<QToolBar*>("Toolbar1")->widgetForAction(Tool("Pan"))->geometry().topLeft() +
        QPoint(4, 4));
    EXPECT_GT(pressed.lightness(), 150);
}

TEST_F(MapWindowLookTest, KeepsTheWordsOfTheMLegendInTheMiddleOfTheirRows) {
    RunSingle("optRossi", "1");
    const QImage shown = Shown();
    const double scale = shown.devicePixelRatio();
    const auto ink = [&](int x, int y) { // no box is as dark as a word
        return shown.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale)).lightness() < 90 &&
               shown.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale)).saturation() < 60;
    };
    // Boxes from 100 to 300 layout units; rows of 200 units, 300 apart, the first from 800 on; a frame of
    // two.
    constexpr int boxRight = 300 / 15 + 2;
    for (int row = 0; row < 6; ++row) {
        const double middle = (800 + 300 * row + 100) / 15.0 + 2;
        int top = 1000, bottom = 0, left = 1000;
        for (int y = static_cast<int>(middle) - 9; y <= static_cast<int>(middle) + 9; ++y)
            for (int x = boxRight + 1; x < 120; ++x)
                if (ink(x, y)) {
                    top = std::min(top, y);
                    bottom = std::max(bottom, y);
                    left = std::min(left, x);
                }
        EXPECT_NEAR((top + bottom + 1) / 2.0, middle, 1.5) << row;
        EXPECT_GE(left - boxRight, 5) << row;
    }
    Shot(MapWindow, "m-legend");
}
