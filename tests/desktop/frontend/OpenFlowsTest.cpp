#include "desktop/frontend/OpenFlows.h"

#include "core/spatial/AttributeRows.h"
#include "core/spatial/ShapeErrors.h"
#include "core/workspace/Workspace.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSigmaChart.h"
#include "support/screens/PolygonScreenTest.h"

#include <QAction>
#include <QTableView>

#include <filesystem>

using namespace vastrel;

namespace {

constexpr const char* NoFile = "You didn't specify shapefile.";
constexpr const char* TooLong = "The length of filename should be less than 8.";
constexpr const char* Flows[] = {"mnuOpenShapeRetro", "mnuOpenShapePro"};

class OpenFlows : public PolygonScreenTest {
protected:
    static std::string NotFound(const std::string& table) {
        return "File not found\nThe attribute table " + table +
               " was not found. Its name is the path of the shapefile up to the first \".\", plus \".dbf\". "
               "Put the table there, or move the files to a folder without a \".\" in its path.";
    }
    void ExpectPlain(const std::string& text) { Script.ExpectMessage(text, "Vastrel", Message::Icon::Plain); }
    void OK() { Press(Parameter, "cmdOK"); }
    void BindThree() {
        PickPopCase();
        OK();
    }
    void Close() { Parameter.close(); }

    /// The four flags, and which of the screens of the polygon tests stand.
    static std::string Flags() {
        return std::string(ws.bShapefileData ? "S" : "-") + (ws.bTextfileData ? "T" : "-") +
               (ws.bRetroMapping ? "R" : "-") + (ws.bCusumMapping ? "C" : "-");
    }
    /// Flags that no opening leaves.
    static void SetOddFlags() { ws.bTextfileData = ws.bRetroMapping = ws.bCusumMapping = true; }

    QTableView* Cells() { return The_<QTableView>(Grid, "MSFlexGrid1"); }
    std::string Cell(int row, int column) {
        return Cells()->model()->index(row, column).data().toString().toStdString();
    }
};

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

// ---- Cancels and refused names

TEST_F(OpenFlows, EndsWithTheScreensClosedWhereNoFileIsChosen) {
    for (const char* flow : Flows) {
        The<frmClusterDetectionTextfile>().Show();
        The<frmUnivariateCusumTextfile>().Show();
        The<frmSigmaChart>().Show();
        MapWindow.Show();
        Retro.Show();
        ws.MapZoom = 2;
        SetOddFlags();
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, "");
        Script.ExpectMessage(NoFile);
        Command(flow);
        EXPECT_FALSE(The<frmClusterDetectionTextfile>().IsLoaded());
        EXPECT_FALSE(The<frmUnivariateCusumTextfile>().IsLoaded());
        EXPECT_FALSE(The<frmSigmaChart>().IsLoaded());
        EXPECT_FALSE(MapWindow.IsLoaded());
        // The retrospective flow leaves its test standing; the other one closes it, which clears its flag.
        const bool isRetro = flow == Flows[0];
        EXPECT_EQ(Retro.IsLoaded(), isRetro);
        EXPECT_EQ(Flags(), isRetro ? "-TRC" : "-T-C");
        EXPECT_EQ(ws.MapZoom, 1);
        EXPECT_FALSE(CanExport());
        EXPECT_FALSE(Grid.IsLoaded());
        Retro.Unload();
    }
}

TEST_F(OpenFlows, EndsAfterTheMessageForALongName) {
    for (const char* flow : Flows) {
        OpenPro(WriteThree());
        SelectName.Unload();
        ws.MapZoom = 2;
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, WriteThree("district9"));
        Script.ExpectMessage(TooLong);
        Command(flow);
        EXPECT_FALSE(MapWindow.IsLoaded());
        EXPECT_FALSE(Parameter.IsLoaded());
        EXPECT_FALSE(SelectName.IsLoaded());
        EXPECT_EQ(ws.MapZoom, 1);
        EXPECT_EQ(Grid.windowTitle(), "three.dbf"); // not named anew
        EXPECT_EQ(ws.NumRegion, 3);
    }
}

TEST_F(OpenFlows, TakesANameOfEightCharactersAndOneWithTwoDots) {
    OpenPro(WriteThree("district"));
    EXPECT_EQ(Grid.windowTitle(), "district.dbf");
    SelectName.Unload();
    OpenPro(WriteThree("a.verylongtail"));
    EXPECT_EQ(Grid.windowTitle(), "a.dbf");
    EXPECT_EQ(ws.ShapeFileTitleSaved, "a.verylongtail.shp");
}

// ---- A table that cannot be opened

TEST_F(OpenFlows, StopsWithoutAnyTable) {
    for (const char* flow : Flows) {
        const std::string path = WriteThree();
        std::filesystem::remove(Folder / "three.dbf");
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
        ExpectPlain(NotFound(Folder / "three.dbf"));
        ExpectPlain("Object variable not set\nNo attribute table is open."); // the grid's
        Script.ExpectRunTimeError(91);
        Command(flow);
        EXPECT_EQ(ws.NumRegion, 3);
        EXPECT_FALSE(Parameter.IsLoaded());
        EXPECT_FALSE(SelectName.IsLoaded());
        EXPECT_FALSE(CanExport());
        EXPECT_EQ(MapWindow.IsLoaded(), flow == Flows[1]); // which draws before it asks
    }
    // What stands of it is no obstacle to the next.
    OpenRetro(WriteThree(), [this] { BindThree(); });
    EXPECT_TRUE(Retro.isVisible());
    EXPECT_TRUE(CanExport());
}

TEST_F(OpenFlows, GoesOnWithTheTableOfBefore) {
    OpenPro(WriteThree());
    SelectName.Unload();
    const std::string path = WriteDataset(Folder, "two", {{"ID", 'N', 4}}, {{"1"}, {"2"}});
    std::filesystem::remove(Folder / "two.dbf");
    Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
    ExpectPlain(NotFound(Folder / "two.dbf"));
    Command("mnuOpenShapePro");
    EXPECT_EQ(ws.NumRegion, 2);
    EXPECT_EQ(Entries(SelectName, "cmbName1")[0], "KEY"); // of the table before
    EXPECT_EQ(Grid.windowTitle(), "two.dbf");
    EXPECT_EQ(Cell(0, 0), "a");
    Script.ExpectRunTimeError(9); // its third row
    Press(SelectName, "cmdOK");
    EXPECT_TRUE(SelectName.IsLoaded());
}

TEST_F(OpenFlows, LooksForTheTableBeforeTheFirstDotOfThePath) {
    std::filesystem::create_directory(Folder / "data.v2");
    const std::string made = WriteThree();
    for (const char* extension : {"shp", "shx", "dbf"})
        std::filesystem::copy(Folder / (std::string("three.") + extension), Folder / "data.v2/");
    Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, Folder / "data.v2/three.shp");
    ExpectPlain(NotFound(Folder / "data.dbf/three.dbf"));
    ExpectPlain("Object variable not set\nNo attribute table is open.");
    Script.ExpectRunTimeError(91);
    Command("mnuOpenShapePro");
    EXPECT_EQ(ws.DbfFilePath, Folder / "data.dbf");
}

// ---- Faults

TEST_F(OpenFlows, EndsTheProcessForABrokenShapefile) {
    for (const char* flow : Flows) {
        const std::string path = WriteThree();
        Folder.Write("three.shp", Replaced(ReadFile(path), 0, "XXXX"));
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
        Script.ExpectRunTimeError(InvalidFileCode);
        Script.ExpectEndOfProcess();
        SetOddFlags();
        Command(flow);
        // The prospective flow marks the dataset before the load, the other one behind all.
        EXPECT_EQ(Flags(), flow == Flows[1] ? "S---" : "-TRC");
        EXPECT_FALSE(Parameter.IsLoaded());
        EXPECT_FALSE(SelectName.IsLoaded());
        EXPECT_FALSE(MapWindow.IsLoaded());
    }
}

TEST_F(OpenFlows, EndsTheProcessForAShapeTypeThatIsNotSupported) {
    const std::string path = ShapefileBytes(15).WritePair(Folder, "zpoly");
    Folder.Write("zpoly.dbf", TableBytes({{"ID", 'N', 5}}, {}));
    Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
    Script.ExpectRunTimeError(9999);
    Script.ExpectEndOfProcess();
    Command("mnuOpenShapePro");
}

TEST_F(OpenFlows, EndsTheCommandAloneForAFaultBehindTheLoad) {
    // A point file has no polygons for the areas.
    ShapefileBytes points(1);
    points.Add(PointContents(1, 2));
    Folder.Write("points.dbf", TableBytes({{"ID", 'N', 5}}, {{"1"}}));
    const std::string path = points.WritePair(Folder, "points");
    SetOddFlags();
    Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
    Script.ExpectRunTimeError(9);
    Command("mnuOpenShapePro");
    EXPECT_EQ(Flags(), "S---"); // marked before the load
    EXPECT_FALSE(MapWindow.IsLoaded());
    EXPECT_FALSE(SelectName.IsLoaded());
    EXPECT_FALSE(CanExport());

    SetOddFlags();
    OpenRetro(path, [this] {
        Script.ExpectRunTimeError(9);
        Close();
    });
    EXPECT_EQ(Flags(), "STRC"); // marked at the end
    EXPECT_FALSE(MapWindow.IsLoaded());
    EXPECT_FALSE(CanExport());
}

TEST_F(OpenFlows, StopsAtAPartWithoutArea) {
    ShapefileBytes shapes(5);
    shapes.Add(PolygonContents({ClockwiseSquare(0, 0, 0)}));
    Folder.Write("flat.dbf", TableBytes({{"ID", 'N', 5}}, {{"1"}}));
    OpenRetro(shapes.WritePair(Folder, "flat"), [this] {
        Script.ExpectRunTimeError(11);
        Close();
    });
    EXPECT_EQ(ws.TotalShapeArea, 0);
    EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
    EXPECT_FALSE(MapWindow.IsLoaded());
}

// ---- A second dataset

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

// ---- Menu entries of an open dataset

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

// ---- Real datasets

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
