#include "desktop/prospective/WatchScreen.h"
#include "desktop/retrospective/PointScreen.h"
#include "support/screens/PolygonScreenTest.h"

#include <QApplication>
#include <QLabel>
#include <QStatusBar>

using namespace vastrel;

namespace {

/// What the panel at the right of the status bar says.
std::string Named(const MDIFrmMain& frame) {
    return frame.findChild<QLabel*>("lblDataset")->text().toStdString();
}

} // namespace

class PolygonPanelTest : public PolygonScreenTest {};
class PointPanelTest : public PointScreenTest {};
class WatchPanelTest : public WatchScreenTest {};

TEST_F(PolygonPanelTest, NamesAShapefileFromItsLoadOn) {
    EXPECT_EQ(Named(Frame), "");
    OpenRetro(WriteThree(), [&] {
        EXPECT_EQ(Named(Frame), "three.shp: 3 regions");
        Parameter.Unload();
    });
    OpenPro(WriteThree("other"));
    EXPECT_EQ(Named(Frame), "other.shp: 3 regions");
    auto* bar = Frame.findChild<QStatusBar*>("staMain");
    const auto* panel = Frame.findChild<QLabel*>("lblDataset");
    bar->showMessage("(X: 1, Y: 2)"); // the first panel leaves it alone
    QApplication::processEvents();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_GT(panel->geometry().left(), bar->width() / 2);
    Shot(Frame, "dataset-panel");
    SelectName.Unload();
}

TEST_F(PointPanelTest, NamesAPointFileAndForgetsItWithTheFrame) {
    LoadFour();
    EXPECT_EQ(Named(Frame), "four.txt: 4 points");
    Command("mnuOpenTextPro");
    EXPECT_EQ(Named(Frame), "");
}

TEST_F(WatchPanelTest, NamesTheFileOfTheIds) {
    LoadForStart();
    EXPECT_EQ(Named(Frame), "ids.txt: 3 points");
}
