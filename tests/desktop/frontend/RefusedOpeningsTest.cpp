#include "desktop/frontend/OpenFlows.h"

#include "core/spatial/ShapeErrors.h"
#include "core/workspace/Workspace.h"
#include "desktop/frontend/OpenFlowsTest.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSigmaChart.h"

#include <filesystem>

using namespace vastrel;

namespace {

constexpr const char* NoFile = "You didn't specify shapefile.";
constexpr const char* TooLong = "The length of filename should be less than 8.";
constexpr const char* Flows[] = {"mnuOpenShapeRetro", "mnuOpenShapePro"};

/// Openings that are cancelled, refused, or stopped by a fault.
class RefusedOpenings : public OpenFlowsTest {
protected:
    static std::string NotFound(const std::string& table) {
        return "File not found\nThe attribute table " + table +
               " was not found. Its name is the path of the shapefile up to the first \".\", plus \".dbf\". "
               "Put the table there, or move the files to a folder without a \".\" in its path.";
    }
    void ExpectPlain(const std::string& text) { Script.ExpectMessage(text, "Vastrel", Message::Icon::Plain); }
};

} // namespace

TEST_F(RefusedOpenings, EndsWithTheScreensClosedWhereNoFileIsChosen) {
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

TEST_F(RefusedOpenings, EndsAfterTheMessageForALongName) {
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

TEST_F(RefusedOpenings, TakesANameOfEightCharactersAndOneWithTwoDots) {
    OpenPro(WriteThree("district"));
    EXPECT_EQ(Grid.windowTitle(), "district.dbf");
    SelectName.Unload();
    OpenPro(WriteThree("a.verylongtail"));
    EXPECT_EQ(Grid.windowTitle(), "a.dbf");
    EXPECT_EQ(ws.ShapeFileTitleSaved, "a.verylongtail.shp");
}

TEST_F(RefusedOpenings, StopsWithoutAnyTable) {
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

TEST_F(RefusedOpenings, GoesOnWithTheTableOfBefore) {
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

TEST_F(RefusedOpenings, LooksForTheTableBeforeTheFirstDotOfThePath) {
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

TEST_F(RefusedOpenings, EndsTheProcessForABrokenShapefile) {
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

TEST_F(RefusedOpenings, EndsTheProcessForAShapeTypeThatIsNotSupported) {
    const std::string path = ShapefileBytes(15).WritePair(Folder, "zpoly");
    Folder.Write("zpoly.dbf", TableBytes({{"ID", 'N', 5}}, {}));
    Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
    Script.ExpectRunTimeError(9999);
    Script.ExpectEndOfProcess();
    Command("mnuOpenShapePro");
}

TEST_F(RefusedOpenings, EndsTheCommandAloneForAFaultBehindTheLoad) {
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

TEST_F(RefusedOpenings, StopsAtAPartWithoutArea) {
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
