#include "desktop/toolkit/MapPicture.h"

#include "desktop/toolkit/PlotWidget.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"
#include "support/screens/FullDisk.h"

#include "core/text/TextFile.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

constexpr const char* PictureFilter =
    "PNG picture (*.png)|*.png|SVG picture (*.svg)|*.svg|PDF document (*.pdf)|*.pdf";

/// A window of 300 by 200 pixels: a surface over all of it, a map of 100 by 80 at (120, 40), and a label.
class MapPictureTest : public testing::Test {
protected:
    MapPictureTest() {
        Window.resize(300, 200);
        Print.FixSize(300 * 15, 200 * 15);
        Map.FixSize(100 * 15, 80 * 15);
        Map.move(120, 40);
        Label.setGeometry(10, 90, 60, 20);
        OfferMapPicture(Menu, {&Map, {&Label}, &Print});
        Window.show();
        QApplication::clipboard()->clear();
    }

    static void Fill(PlotSurface& surface, Colour colour, double left, double top, double right,
                     double bottom) {
        surface.SetFillStyle(FillStyle::Solid);
        surface.SetFill(colour);
        surface.Box(left, top, right, bottom, colour);
    }

    /// Chooses an entry of the menu by its text.
    void Choose(const QString& text) {
        for (auto* entry : Menu.actions())
            if (entry->text().remove('&') == text) return entry->trigger();
        ADD_FAILURE() << text.toStdString() << " is not offered.";
    }

    static QImage Copied() { return QApplication::clipboard()->image(); }

    ScriptedPlatform Script;
    QWidget Window;
    PlotWidget Print{&Window}, Map{&Window};
    QLabel Label{"SIGNAL", &Window};
    QMenu Menu;
};

} // namespace

// The picture reaches from the left edge to that of the map, 220 pixels, and is as high as the map: 80.
TEST_F(MapPictureTest, CopiesTheMapWithItsLegendInTwiceItsSize) {
    Fill(Print, Colours::Green, 10, 60, 30, 80); // in the window at (12, 62)
    Fill(Map, Colours::Red, 5, 5, 20, 20);       // in the window at (127, 47)
    Choose("Copy Picture");
    ASSERT_EQ(Copied().size(), QSize(440, 160));
    EXPECT_EQ(Copied().pixelColor(2 * 20, 2 * 30), QColor(0, 255, 0));
    EXPECT_EQ(Copied().pixelColor(2 * 135, 2 * 15), QColor(255, 0, 0));
    EXPECT_EQ(Copied().pixelColor(2 * 200, 2 * 70), QColor(Qt::white));
}

TEST_F(MapPictureTest, ShowsNothingThatWasErasedOrIsHidden) {
    Fill(Map, Colours::Red, 5, 5, 20, 20);
    Map.Erase();
    Label.hide();
    Choose("Copy Picture");
    QImage white = Copied();
    white.fill(Qt::white);
    EXPECT_EQ(Copied(), white);
}

TEST_F(MapPictureTest, KeepsWhatIsZoomedOutOfTheMapOffTheLegend) {
    Fill(Map, Colours::Red, -200, -200, 200, 200);
    Choose("Copy Picture");
    EXPECT_EQ(Copied().pixelColor(2 * 60, 2 * 10), QColor(Qt::white));
    EXPECT_EQ(Copied().pixelColor(2 * 170, 2 * 40), QColor(255, 0, 0));
}

TEST_F(MapPictureTest, SavesTheLegendAsTextInFilesOfLines) {
    const TemporaryFolder folder;
    Map.SetFillStyle(FillStyle::Transparent);
    Map.Polygon({{1, 1}, {50, 1}, {50, 50}});
    const std::string path = folder / "map.svg";
    Script.ExpectFile(FileQuestion::Kind::Save, PictureFilter, path);
    Choose("Save Picture As...");
    const std::string svg = ReadFile(path);
    EXPECT_NE(svg.find("SIGNAL"), std::string::npos);
    EXPECT_NE(svg.find("<path"), std::string::npos);
    EXPECT_EQ(svg.find("<image"), std::string::npos); // lines, no pixels

    for (const auto& [name, head] : {std::pair{"map.png", "\x89PNG"}, std::pair{"map.pdf", "%PDF"}}) {
        Script.ExpectFile(FileQuestion::Kind::Save, PictureFilter, folder / name);
        Choose("Save Picture As...");
        EXPECT_EQ(ReadFile(folder / name).substr(0, 4), head);
    }
}

TEST_F(MapPictureTest, LeavesTheOldFileOnAFullDisk) {
    for (const char* ending : {".png", ".svg", ".pdf"})
        ExpectOldFileOnAFullDisk(Script, PictureFilter, ending, DiskFullError,
                                 [this] { Choose("Save Picture As..."); });
}

TEST_F(MapPictureTest, IsCopiedByTheKeysOfAMapThatHasTheFocus) {
    Fill(Map, Colours::Red, 5, 5, 20, 20);
    QApplication::setActiveWindow(&Window);
    QTest::mouseClick(&Map, Qt::LeftButton);
    EXPECT_TRUE(Map.hasFocus());
    QTest::keyClick(&Map, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied().size(), QSize(440, 160));
}
