#include "desktop/frontend/OpenFlows.h"

#include "core/spatial/AttributeRows.h"
#include "core/workspace/Workspace.h"
#include "desktop/frontend/OpenFlowsTest.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "support/screens/FullDisk.h"

#include <QAction>

using namespace vastrel;

namespace {

class OpenFlows : public OpenFlowsTest {};

} // namespace

TEST_F(OpenFlows, OpensForTheRetrospectiveTest) {
    SetOddFlags();
    ws.MapZoom = 3;
    OpenRetro(WriteThree(), [this] {
        EXPECT_TRUE(Parameter.isModal());
        EXPECT_TRUE(Parameter.isVisible());
        // Read, but neither computed nor drawn nor marked.
        EXPECT_EQ(ws.NumRegion, 3);
        EXPECT_EQ(ws.ShapeFileTitleSaved, "three.shp");
        EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
        EXPECT_FALSE(MapWindow.IsLoaded());
        EXPECT_FALSE(CanExport());
        EXPECT_EQ(Flags(), "-TRC");
        PickPopCase();
        OK();
        EXPECT_TRUE(Retro.isVisible()); // before the flow goes on
        EXPECT_FALSE(MapWindow.IsLoaded());
    });
    EXPECT_EQ(ws.MapZoom, 1);
    EXPECT_EQ(ws.TotalShapeArea, 3);
    EXPECT_EQ(ws.RegionCentroid(2), (RegionPoint{"2", 1.5, 0.5}));
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_TRUE(Retro.isVisible());
    EXPECT_TRUE(CanExport());
    EXPECT_TRUE(Frame.Entry("mnuGetCentroid")->isEnabled());
    EXPECT_TRUE(Frame.Entry("mnuAttTable")->isEnabled());
    EXPECT_EQ(Flags(), "S---");
    EXPECT_EQ(Grid.windowTitle(), "three.dbf");
    EXPECT_TRUE(Grid.IsLoaded());
    EXPECT_FALSE(Grid.isVisible());
    EXPECT_EQ(ws.AlphaLevel, 0.05);
    Shot(Frame, "flow-retro");
}

TEST_F(OpenFlows, ShowsTheMapWithoutATestWhereTheDataInputIsClosed) {
    SetOddFlags();
    OpenRetro(WriteThree(), [this] { Close(); });
    EXPECT_FALSE(Retro.IsLoaded());
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_TRUE(CanExport());
    EXPECT_EQ(Flags(), "S---");
    EXPECT_EQ(ws.RegionCentroid.UpperBound(), 3);
}

TEST_F(OpenFlows, LoadsTheTestWithoutShowingItWhereTheDataInputIsClosedComplete) {
    OpenRetro(WriteThree(), [this] {
        PickPopCase();
        Close();
    });
    EXPECT_TRUE(Retro.IsLoaded());
    EXPECT_FALSE(Retro.isVisible());
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_FALSE(ws.ObsCount.IsAllocated());
}

TEST_F(OpenFlows, OpensForTheProspectiveTest) {
    SetOddFlags();
    ws.MapZoom = 3;
    OpenPro(WriteThree());
    EXPECT_EQ(ws.MapZoom, 1);
    EXPECT_EQ(ws.RegionCentroid(3), (RegionPoint{"3", 2.5, 0.5}));
    EXPECT_EQ(ws.ShapeFileTitleSaved, "three.shp");
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_TRUE(SelectName.isVisible());
    EXPECT_FALSE(Parameter.IsLoaded());
    EXPECT_TRUE(CanExport());
    EXPECT_EQ(Flags(), "S---");
    Shot(Frame, "flow-pro");
}

TEST_F(OpenFlows, ShrinksEverythingToASecondDataset) {
    OpenRetro(WriteThree(), [this] { BindThree(); });
    const std::string two = WriteDataset(Folder, "two", {{"KEY", 'C', 4}, {"POP", 'N', 4}, {"CASES", 'N', 4}},
                                         {{"x", "10", "1"}, {"y", "30", "3"}});
    Grid.Show();
    OpenRetro(two, [this] {
        EXPECT_EQ(Entries(Parameter, "cboCase"), (Names{"POP", "CASES"}));
        BindThree();
    });
    for (const auto* counts : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio, &ws.DevRaw,
                               &ws.DevPearson, &ws.DevFreemanTukey, &ws.DevRossi})
        EXPECT_EQ(counts->UpperBound(), 2);
    EXPECT_EQ(ws.PrimaryIDs.UpperBound(), 2);
    EXPECT_EQ(ws.RegionCentroid.UpperBound(), 2);
    EXPECT_EQ(ws.ShpPartArea.UpperBound1(), 2);
    EXPECT_EQ(ws.TotalShapeArea, 2);
    EXPECT_EQ(ws.TotalPop, 40);
    // The grid that stood open has the rows of the second table.
    EXPECT_TRUE(Grid.isVisible());
    EXPECT_EQ(Grid.windowTitle(), "two.dbf");
    EXPECT_EQ(Cells()->model()->rowCount(), 2);
    EXPECT_EQ(Cell(1, 0), "y");
    EXPECT_EQ(Entries(Retro, "cboAlpha").size(), 4u); // the test screen stood all the time
}

TEST_F(OpenFlows, ShowsTheNewColumnsWhereTheDataInputStillStands) {
    OpenRetro(WriteThree(), [this] { BindThree(); });
    Press(Retro, "cmdDataReset");
    ASSERT_TRUE(Parameter.isVisible());
    OpenRetro(WriteDataset(Folder, "two", {{"A", 'N', 4}, {"B", 'N', 4}}, {{"1", "2"}, {"3", "4"}}), [this] {
        EXPECT_TRUE(Parameter.isModal());
        EXPECT_EQ(Entries(Parameter, "cboPrimaryID"), (Names{"A", "B"}));
        Close();
    });
    EXPECT_EQ(ws.NumRegion, 2);
}

TEST_F(OpenFlows, CloseTheOtherTest) {
    OpenRetro(WriteThree(), [this] { BindThree(); });
    EXPECT_TRUE(Retro.IsLoaded());
    OpenPro(WriteThree());
    EXPECT_FALSE(Retro.IsLoaded());
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_TRUE(SelectName.isVisible());
}

TEST_F(OpenFlows, FollowARunOnPoints) {
    Command("mnuOpenTextRetro");
    ws.NumTextRegion = 7;
    EXPECT_EQ(Flags(), "-T--");
    OpenRetro(WriteThree(), [this] { BindThree(); });
    EXPECT_FALSE(The<frmClusterDetectionTextfile>().IsLoaded());
    EXPECT_EQ(Flags(), "S---");
    EXPECT_EQ(ws.NumRegion, 3);
}

TEST_F(OpenFlows, LeaveTheEntriesDisabledAfterATextEntry) {
    OpenPro(WriteThree());
    EXPECT_TRUE(CanExport());
    Command("mnuOpenTextRetro");
    EXPECT_FALSE(CanExport());
    EXPECT_TRUE(ws.AttributeRecordset); // still open
    EXPECT_FALSE(Grid.IsLoaded());
    EXPECT_FALSE(SelectName.IsLoaded());
}

TEST_F(OpenFlows, ShowTheTable) {
    OpenPro(WriteThree());
    while (!AttributeTable().EndOfFile())
        AttributeTable().MoveNext();
    Command("mnuAttTable");
    EXPECT_TRUE(Grid.isVisible());
    EXPECT_EQ(Grid.windowTitle(), "three.dbf");
    EXPECT_EQ(CurrentText("KEY"), "a");
    AttributeTable().MoveNext();
    Command("mnuAttTable");
    EXPECT_EQ(CurrentText("KEY"), "b"); // rewound at its end only
    Grid.close();
    Command("mnuAttTable");
    EXPECT_EQ(CurrentText("KEY"), "a"); // or by a load
    EXPECT_EQ(Grid.windowTitle(), "three.dbf");
}

// Before the data input stands, too: what was made while the file was read is not for that.
TEST_F(OpenFlows, TakeNoInputWhileTheyReadAndCompute) {
    int beforeDialog = 0;
    OpenRetro(WriteThree(), [&, this] {
        beforeDialog = Script.DroppedInputs();
        Parameter.Unload();
    });
    EXPECT_EQ(beforeDialog, 2); // table and shapes
    EXPECT_EQ(Script.DroppedInputs(), 3);
    OpenPro(Folder / "three.shp");
    EXPECT_EQ(Script.DroppedInputs(), 3 + 3);
    Script.ExpectFile(FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", "");
    Command("mnuGetCentroid");
    EXPECT_EQ(Script.DroppedInputs(), 6 + 1);
}

TEST_F(OpenFlows, LeaveTheOldCentroidsOnAFullDisk) {
    OpenPro(WriteThree());
    ExpectOldFileOnAFullDisk(Script, "Text File (*.txt)|*.txt", ".txt", DiskFullError,
                             [this] { Command("mnuGetCentroid"); });
}

TEST_F(OpenFlows, WriteTheCentroids) {
    OpenPro(WriteThree());
    ws.RegionCentroid(1) = {};
    Script.ExpectFile(FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", Folder / "c.txt");
    Command("mnuGetCentroid");
    EXPECT_EQ(ReadFile(Folder / "c.txt"), " ID,           CentX,           CentY\r\n"
                                          "  1,          0.500000,          0.500000\r\n"
                                          "  2,          1.500000,          0.500000\r\n"
                                          "  3,          2.500000,          0.500000\r\n");
    EXPECT_EQ(ws.RegionCentroid(1), (RegionPoint{"1", 0.5, 0.5})); // computed anew
}

TEST_F(OpenFlows, TakeTheGermanDistricts) {
    const std::string path = CopyOfRealShapefile(Folder, "imd_de/imd_de");
    if (path.empty()) GTEST_SKIP() << "no real data";
    OpenRetro(path, [this] {
        EXPECT_EQ(Entries(Parameter, "cboPrimaryID").size(), 20u);
        Pick(Parameter, "cboBasePopulation", "POP");
        Pick(Parameter, "cboCase", "DAYS1");
        Pick(Parameter, "cboPrimaryID", "KEY");
        Script.ExpectMessage("Data include null values. Check data and try again!");
        OK();
        EXPECT_TRUE(Parameter.IsLoaded());
        Shot(Parameter, "parameter-imd");
        Pick(Parameter, "cboCase", "IMD");
        OK();
    });
    EXPECT_EQ(ws.TotalObs, 636);
    EXPECT_EQ(ws.TotalPop, 82217837);
    EXPECT_TRUE(Retro.isVisible());
    Shot(Frame, "flow-retro-imd");
    Command("mnuAttTable");
    Shot(Grid, "table-imd");
}

TEST_F(OpenFlows, TakeTheCountiesOfNorthCarolina) {
    const std::string path = CopyOfRealShapefile(Folder, "nc/nc");
    if (path.empty()) GTEST_SKIP() << "no real data";
    OpenRetro(path, [this] {
        Pick(Parameter, "cboBasePopulation", "BIR74");
        Pick(Parameter, "cboCase", "SID74");
        Pick(Parameter, "cboPrimaryID", "NAME");
        OK();
    });
    EXPECT_EQ(ws.TotalObs, 667);
    EXPECT_EQ(ws.PrimaryIDs(1), "Ashe");
    EXPECT_EQ(ws.NumRegion, 100);
}
