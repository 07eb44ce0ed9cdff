// The printed legends of both maps, when they come and when they go.
#include "desktop/retrospective/PointScreen.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/screens/Mouse.h"

using namespace vastrel;

using PointPrint = PointScreenTest;
using PolygonPrint = RetroPolygonTest;

TEST_F(PolygonPrint, GoesForTheFlashesOfIdentifyAndComesBack) {
    OpenSample();
    RunSingle("optUnadjusted", "1");
    const QImage printed = Print();
    EXPECT_FALSE(IsWhite(printed));
    MapWindow.PressTool("ID", true);
    Script.AtYield(1, [this] { EXPECT_TRUE(IsWhite(Print())); });
    Mouse(*picSHP()).Click(100, 100);
    EXPECT_EQ(Print(), printed);
}

TEST_F(PointPrint, GoesWithTheScreen) {
    LoadFour();
    RunSingle("1");
    auto* legend = The_<PlotWidget>(Screen, "picLegend");
    QImage white = legend->Picture();
    white.fill(Qt::white);
    EXPECT_NE(legend->Picture(), white);
    Press(Screen, "cmdExit");
    Command("mnuOpenTextRetro");
    EXPECT_EQ(legend->Picture(), white);
}
