#include "desktop/display/frmGraph.h"

#include "core/display/PolygonView.h"
#include "desktop/prospective/PolygonWatchScreen.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/screens/ScreenChecks.h"

using namespace vastrel;

using frmGraphTest = PolygonWatchScreenTest;

TEST_F(frmGraphTest, ShowsTheRegionUnderTheMouse) {
    RunFields();
    Periods()->SetListIndex(3);
    auto* map = The_<PlotWidget>(Map, "picSHP");
    const PlotPoint middle = WorldToPlot(5.5, 0.5); // of the third square
    map->MouseDown(1, middle.X, middle.Y);
    EXPECT_EQ(ws.SelectedRegion, 2);
    EXPECT_TRUE(Graph.isVisible());
    EXPECT_EQ(Text(Graph, "Text1"), "C in 2: ---> 1.50");
    EXPECT_EQ(ws.CusumChartData(2, 0), 10);
    EXPECT_EQ(Script.YieldCalls(), 3 + 3);
    EXPECT_EQ(Graph.Frame()->pos(), QPoint(0, 337));   // just below the map: 5055 by 15
    EXPECT_EQ(Graph.Frame()->size(), QSize(535, 327)); // 8025 and 4910 by 15
    ExpectCaptions(Graph, {{"frmGraph", "Cusum for individual region for a given period."}});
    Shot(Frame, "frmGraph");
    Run(); // closes it
    EXPECT_FALSE(Graph.IsLoaded());
}
