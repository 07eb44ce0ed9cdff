#include "retrospective/screens/frmClusterDetection.h"

#include "display/screens/frmPolygonSHP.h"
#include "frontend/ColumnBinding.h"
#include "platform/qt/ListBox.h"
#include "retrospective/screens/frmSigmaChart.h"
#include "spatial/Centroids.h"
#include "spatial/ShapeDataset.h"
#include "support/screens/ScreenTest.h"
#include "workspace/Workspace.h"

#include <QSlider>

using namespace vastrel;

namespace {

/// The sample country, open and bound to population and cases, with its map and the screen of the test.
class PolygonScreenTest : public ScreenTest {
protected:
    PolygonScreenTest() {
        const std::string path = std::string(PROJECT_FOLDER) + "/samples/country.shp";
        OpenShapeAttributes({path, "country.shp", false});
        ReadShapeHeader();
        LoadShapes();
        ws.MapZoom = 1;
        ws.bShapefileData = true;
        ws.ShapeFileTitleSaved = "country.shp";
        TakePrimaryIDs("ID");
        EXPECT_TRUE(BindCounts(CountFormat::PopCase, {"POP", "CASES", "", "", "ID", ""}));
        ComputeShapeAreas();
        ComputeCentroids();
        Screen.TakeAlphaValues();
        Map.DrawPlainMapNoPan();
        Screen.Show();
    }

    ListBox* Global() { return The_<ListBox>(Screen, "lstGlobalPatternSummary"); }
    ListBox* Local() { return The_<ListBox>(Screen, "lstLocalPatternSummary"); }

    void Run(const char* variable, const char* sigma) {
        Press(Screen, variable);
        Type(Screen, "txtSingleSigma", sigma);
        Press(Screen, "cmdRun");
    }
    void RunRange(const char* variable) {
        Press(Screen, "optSpatialSigmaRange");
        Press(Screen, variable);
        Press(Screen, "cmdRun");
    }

    frmClusterDetection& Screen = The<frmClusterDetection>();
    frmPolygonSHP& Map = The<frmPolygonSHP>();
    frmSigmaChart& Chart = The<frmSigmaChart>();
};

} // namespace

TEST_F(PolygonScreenTest, BeginsWithRunEnabledAndThePlainMap) {
    EXPECT_TRUE(Map.IsLoaded());
    EXPECT_TRUE(IsEnabled(Screen, "cmdRun"));
    EXPECT_FALSE(IsEnabled(Screen, "cmdSave"));
    EXPECT_EQ(ws.AlphaLevel, 0.05);
    Shot(Frame, "polygon-plain");
}

TEST_F(PolygonScreenTest, MapsEachVariableOfASingleRun) {
    for (const char* variable : {"optUnadjusted", "optAdjusted_Generic", "optStandard", "optRossi"}) {
        Run(variable, "1");
        EXPECT_TRUE(ws.bRetroMapping);
        EXPECT_TRUE(IsEnabled(Screen, "cmdSave"));
        EXPECT_TRUE(Map.IsToolPressed("Find"));
        EXPECT_EQ(Local()->ListCount(), ws.NumRegion + 4);
        Shot(Frame, std::string("polygon-single-") + variable);
    }
    EXPECT_TRUE(IsShown(Map, "imgM_Legend"));
    Local()->SetListIndex(60);
    Shot(Frame, "polygon-highlight");
}

TEST_F(PolygonScreenTest, MapsARangeAndAnimatesIt) {
    RunRange("optAdjusted_Generic");
    EXPECT_TRUE(Chart.IsLoaded());
    EXPECT_FALSE(Map.IsToolPressed("Find"));
    Global()->SetListIndex(6);
    EXPECT_DOUBLE_EQ(ws.CurrentSigma, ws.BandwidthList(4));
    Shot(Frame, "polygon-range");
    Map.findChild<QAction*>("MapAnimation")->trigger();
    EXPECT_EQ(Script.YieldCalls(), 10);
    EXPECT_EQ(Global()->ListIndex(), 11);
    EXPECT_TRUE(IsShown(Map, "sliderStatsRange"));
    EXPECT_EQ(The_<QSlider>(Map, "sliderStatsRange")->maximum(), 9);
    Shot(Frame, "polygon-animated");
}

TEST_F(PolygonScreenTest, LeavesThePlainMapWhereItIsClosedByItsWindow) {
    Run("optRossi", "1");
    Screen.Unload();
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_TRUE(Map.IsLoaded());
    EXPECT_FALSE(Map.IsToolPressed("Find"));
}

TEST_F(PolygonScreenTest, TakesTheMapAwayWithExit) {
    Press(Screen, "cmdExit");
    EXPECT_FALSE(Screen.IsLoaded());
    EXPECT_FALSE(Map.IsLoaded());
}
