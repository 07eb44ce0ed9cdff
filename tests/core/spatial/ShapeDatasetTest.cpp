#include "core/spatial/ShapeDataset.h"

#include "core/platform/FileSpec.h"
#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/CFileName.h"
#include "core/spatial/CPoint.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeErrors.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

ShapefileBytes Polygons(int count) {
    ShapefileBytes bytes(5);
    for (int i = 0; i < count; ++i)
        bytes.Add(PolygonContents({ClockwiseSquare(i, 0, 1)}));
    return bytes;
}

std::string TableOf(int rows) {
    return TableBytes({{"ID", 'N', 5}},
                      std::vector<std::vector<std::string>>(static_cast<size_t>(rows), {"    1"}));
}

/// The answer of the file dialog is the whole path.
void ExpectChoice(ScriptedPlatform& platform, const std::string& path) {
    platform.ExpectFile(FileQuestion::Kind::Open, "SHP Files (*.shp)|*.shp|All Files (*.*)|*.*|", path);
}

std::string NotFound(const std::string& table) {
    return "File not found\nThe attribute table " + table +
           " was not found. Its name is the path of the shapefile up to the first \".\", plus \".dbf\". Put "
           "the table there, or move the files to a folder without a \".\" in its path.";
}

class ShapeDataset : public ::testing::Test {
protected:
    ShapeDataset() { ws = Workspace{}; }
    void Choose(const std::string& path) { ExpectChoice(platform, path); }

    TemporaryFolder folder;
    ScriptedPlatform platform;
};

} // namespace

TEST_F(ShapeDataset, OpensTheAttributesOfAChosenFile) {
    const std::string path = Polygons(2).WritePair(folder, "nc");
    folder.Write("nc.dbf", TableOf(2));
    Choose(path);
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_EQ(ws.ShapeFileTitle, "nc.shp");
    EXPECT_EQ(ws.ShapeFilePath, path);
    EXPECT_EQ(ws.ShapeBaseName, "nc");
    EXPECT_EQ(ws.DbfTableName, "nc.dbf");
    EXPECT_EQ(ws.DbfFilePath, folder / "nc.dbf");
    EXPECT_EQ(ws.DbfDirectory, folder.Path() + "/");
    EXPECT_EQ(ws.DbConnection,
              "Driver={Microsoft dBASE Driver (*.dbf)};DriverID=277;Dbq=" + folder.Path() + "/");
    EXPECT_EQ(ws.AttributeRowCount, 2);
    ASSERT_TRUE(ws.AttributeRecordset);
    EXPECT_EQ(ws.AttributeRecordset->Fields(0).Name(), "ID");
    EXPECT_EQ(ws.DatasetFileName->GetFileSpec(), ToFileSpec(path));
}

TEST_F(ShapeDataset, TellsThatNoFileWasChosen) {
    ws.ShapeBaseName = "before";
    Choose("");
    platform.ExpectMessage("You didn't specify shapefile.");
    EXPECT_FALSE(OpenShapeAttributes());
    EXPECT_EQ(ws.ShapeFilePath, "");
    EXPECT_EQ(ws.ShapeBaseName, "before");
    EXPECT_FALSE(IsBaseNameTooLong());
    EXPECT_FALSE(ws.AttributeRecordset);
}

TEST_F(ShapeDataset, TellsOfAnEmptyPathAlsoWhereTheDialogWasNotCancelled) {
    platform.ExpectNoName(FileQuestion::Kind::Open, ShapefileFilter);
    platform.ExpectMessage("You didn't specify shapefile.");
    EXPECT_FALSE(OpenShapeAttributes());
    EXPECT_FALSE(ws.DatasetFileName);
}

TEST_F(ShapeDataset, AcceptsABaseNameOfEightCharacters) {
    folder.Write("counties.dbf", TableOf(1));
    Choose(Polygons(1).WritePair(folder, "counties"));
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_FALSE(IsBaseNameTooLong());
}

TEST_F(ShapeDataset, RefusesABaseNameOfNine) {
    folder.Write("district9.dbf", TableOf(1));
    Choose(Polygons(1).WritePair(folder, "district9"));
    platform.ExpectMessage("The length of filename should be less than 8.");
    EXPECT_FALSE(OpenShapeAttributes());
    EXPECT_TRUE(IsBaseNameTooLong());
    EXPECT_EQ(ws.DbfTableName, "district9"); // the step that adds ".dbf" was not reached
    EXPECT_FALSE(ws.AttributeRecordset);
}

TEST_F(ShapeDataset, CountsCharactersOfTheBaseNameNotBytes) {
    const std::string base = "L\xC3\xA4nder \xC3\xBC"; // eight characters, ten bytes, and a blank
    const std::string path = Polygons(1).WritePair(folder, base);
    folder.Write(base + ".dbf", TableOf(1));
    Choose(path);
    EXPECT_TRUE(OpenShapeAttributes());
    ASSERT_TRUE(ws.AttributeRecordset);
    LoadShapes();
    EXPECT_EQ(ws.ShpPolygons.Count(), 1);
}

TEST_F(ShapeDataset, TakesTheTitleUpToItsFirstPoint) {
    folder.Write("a.dbf", TableOf(3));
    Choose(Polygons(3).WritePair(folder, "a.b"));
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_EQ(ws.DbfTableName, "a.dbf");
    EXPECT_EQ(ws.AttributeRowCount, 3);
    LoadShapes(); // the pair keeps its whole name
    EXPECT_EQ(ws.NumRegion, 3);
}

TEST_F(ShapeDataset, CutsAPathAtAPointInAFolder) {
    std::filesystem::create_directory(folder / "data.v2");
    const std::string path = Polygons(1).WritePair(folder, "data.v2/nc");
    folder.Write("data.v2/nc.dbf", TableOf(1));
    const auto before = std::make_shared<Recordset>(folder / "data.v2/nc.dbf");
    ws.AttributeRecordset = before;
    ws.AttributeRowCount = 77;
    Choose(path);
    platform.ExpectMessage(NotFound(folder / "data.dbf/nc.dbf"), "Vastrel", Message::Icon::Plain);
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_EQ(ws.DbfFilePath, folder / "data.dbf");
    EXPECT_EQ(ws.AttributeRecordset, before); // the table of before stays
    EXPECT_EQ(ws.AttributeRowCount, 77);
}

TEST_F(ShapeDataset, CutsTheNameOfTheTableOutOfTheDirectory) {
    // The path up to its first "." is ".../xnc", which ends with the table's name: the directory is ".../x".
    std::filesystem::create_directory(folder / "xnc.v2");
    std::filesystem::create_directory(folder / "x");
    Choose(Polygons(1).WritePair(folder, "xnc.v2/nc"));
    folder.Write("x/nc.dbf", TableOf(3));
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_EQ(ws.DbfFilePath, folder / "xnc.dbf");
    EXPECT_EQ(ws.DbfDirectory, folder / "x");
    EXPECT_EQ(ws.AttributeRowCount, 3);
}

TEST_F(ShapeDataset, TellsWhyATableCannotBeReadAndKeepsTheOneOfBefore) {
    folder.Write("a.dbf", TableOf(1));
    Choose(Polygons(1).WritePair(folder, "a"));
    OpenShapeAttributes();
    const auto before = ws.AttributeRecordset;
    Choose(Polygons(2).WritePair(folder, "b"));
    folder.Write("b.dbf", TableOf(2).substr(0, 70));
    platform.ExpectMessage(
        "Input past end of file\nThe attribute table " + (folder / "b.dbf") +
            " is cut off: its header tells 2 rows, and there are 0. Restore the file from its "
            "source.",
        "Vastrel", Message::Icon::Plain);
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_EQ(ws.AttributeRecordset, before);
    EXPECT_EQ(ws.AttributeRowCount, 1);
    EXPECT_EQ(ws.DbfTableName, "b.dbf");
}

TEST_F(ShapeDataset, GoesOnWithoutATable) {
    Choose(Polygons(1).WritePair(folder, "nc"));
    platform.ExpectMessage(NotFound(folder / "nc.dbf"), "Vastrel", Message::Icon::Plain);
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_FALSE(ws.AttributeRecordset);
    LoadShapes();
    EXPECT_EQ(ws.NumRegion, 1);
}

TEST_F(ShapeDataset, FindsFilesInCapitals) {
    folder.Write("NC.SHP", Polygons(2).Shp());
    folder.Write("NC.SHX", Polygons(2).Shx());
    folder.Write("NC.DBF", TableOf(2));
    Choose(folder / "NC.SHP");
    EXPECT_TRUE(OpenShapeAttributes());
    EXPECT_EQ(ws.DbfTableName, "NC.dbf");
    EXPECT_EQ(ws.AttributeRowCount, 2);
    LoadShapes();
    EXPECT_EQ(ws.NumRegion, 2);
}

TEST_F(ShapeDataset, EndsTheProcessForAPathThatIsNoFileName) {
    for (const char* name : {"nc..shp", "what?.shp", "a:b.shp"}) {
        const auto error = ErrorOf([&] { OpenShapeAttributes({folder / name, name, false}); });
        EXPECT_EQ(error.Number, InvalidFileSpec) << name;
        EXPECT_TRUE(error.EndsProcess) << name;
    }
}

TEST_F(ShapeDataset, ReplacesTheTableOfBefore) {
    folder.Write("a.dbf", TableOf(1));
    folder.Write("b.dbf", TableOf(2));
    Choose(Polygons(1).WritePair(folder, "a"));
    OpenShapeAttributes();
    const auto before = ws.AttributeRecordset;
    Choose(Polygons(2).WritePair(folder, "b"));
    OpenShapeAttributes();
    EXPECT_NE(ws.AttributeRecordset, before);
    EXPECT_EQ(ws.AttributeRecordset->RecordCount(), 2);
}

TEST_F(ShapeDataset, LeavesRowsAndShapesThatDoNotAgreeToTheWalks) {
    for (const int rows : {2, 4}) {
        folder.Write("nc.dbf", TableOf(rows));
        Choose(Polygons(3).WritePair(folder, "nc"));
        EXPECT_TRUE(OpenShapeAttributes());
        LoadShapes();
        EXPECT_EQ(ws.AttributeRowCount, rows);
        EXPECT_EQ(ws.NumRegion, 3);
    }
}

TEST_F(ShapeDataset, ReadsTheHeader) {
    ws.ShapeFilePath = Polygons(1).WritePair(folder, "nc");
    ReadShapeHeader();
    EXPECT_EQ(ws.ShpFileType, 5);
    EXPECT_EQ(ws.ExtentXMin, -10); // as ShapefileBytes writes it
    EXPECT_EQ(ws.ExtentYMin, -20);
    EXPECT_EQ(ws.ExtentXMax, 30);
    EXPECT_EQ(ws.ExtentYMax, 40);
    EXPECT_EQ(ws.ExtentWidth, 40);
    EXPECT_EQ(ws.ExtentHeight, 60);
    EXPECT_EQ(ws.ExtentArea, 2400);
}

TEST_F(ShapeDataset, TakesTheSizeOfABoxThatIsWrittenTheWrongWayRound) {
    // Right of left and above of below change places: the edges stay as the header tells them.
    const std::string box = LittleDouble(30) + LittleDouble(40) + LittleDouble(-10) + LittleDouble(-20);
    ws.ShapeFilePath = folder.Write("nc.shp", Replaced(Polygons(1).Shp(), 36, box));
    ReadShapeHeader();
    EXPECT_EQ(ws.ExtentXMin, 30);
    EXPECT_EQ(ws.ExtentYMax, -20);
    EXPECT_EQ(ws.ExtentWidth, 40);
    EXPECT_EQ(ws.ExtentHeight, 60);
    EXPECT_EQ(ws.ExtentArea, 2400);
}

TEST_F(ShapeDataset, StopsTheCommandWithoutAHeader) {
    ws.ShapeFilePath = folder / "gone.shp";
    const auto error = ErrorOf(ReadShapeHeader);
    EXPECT_EQ(error.Number, FileNotFound);
    EXPECT_FALSE(error.EndsProcess);
}

TEST_F(ShapeDataset, LoadsPolygonsAndDropsTheFileName) {
    ws.DatasetFileName = std::make_shared<CFileName>();
    ws.DatasetFileName->SetFileSpec(ToFileSpec(Polygons(3).WritePair(folder, "nc")));
    LoadShapes();
    EXPECT_EQ(ws.NumRegion, 3);
    ASSERT_EQ(ws.ShpPolygons.Count(), 3);
    EXPECT_EQ(ws.ShpPolygons.Item(3)->Left(), 2);
    EXPECT_FALSE(ws.DatasetFileName);
}

TEST_F(ShapeDataset, EndsTheProcessWithoutAFileName) {
    const auto error = ErrorOf(LoadShapes);
    EXPECT_EQ(error.Number, InvalidFileSpec);
    EXPECT_TRUE(error.EndsProcess);
}

TEST_F(ShapeDataset, EndsTheProcessForAMissingFile) {
    folder.Write("nc.shp", Polygons(1).Shp());
    folder.Write("nc.dbf", TableOf(1));
    OpenShapeAttributes({folder / "nc.shp", "nc.shp", false});
    const auto error = ErrorOf(LoadShapes);
    EXPECT_EQ(error.Number, ShapefileNotFound);
    EXPECT_TRUE(error.EndsProcess);
}

TEST_F(ShapeDataset, KeepsTheCollectionOfTheOtherKind) {
    ShapefileBytes points(1);
    points.Add(PointContents(3, 4));
    points.Add(PointContents(5, 6));
    ShapefileBytes lines(3), multi(8);
    lines.Add(PolygonContents({{{0, 0}, {1, 2}}}, 3));
    multi.Add(MultiPointContents({{1, 2}}));
    for (const char* base : {"a", "b", "c", "d"})
        folder.Write(std::string(base) + ".dbf", TableOf(1));
    const auto load = [&](const ShapefileBytes& bytes, const std::string& base) {
        OpenShapeAttributes({bytes.WritePair(folder, base), base + ".shp", false});
        LoadShapes();
    };
    load(Polygons(3), "a");
    load(points, "b");
    EXPECT_EQ(ws.NumRegion, 2);
    EXPECT_EQ(ws.ShpPolygons.Count(), 3);
    ASSERT_EQ(ws.ShpPoints.Count(), 2);
    EXPECT_EQ(ws.ShpPoints.Item(2)->Y, 6);
    ShapefileBytes onePoint(1);
    onePoint.Add(PointContents(7, 8));
    load(onePoint, "b"); // fewer than before: nothing of the first is left
    ASSERT_EQ(ws.ShpPoints.Count(), 1);
    EXPECT_EQ(ws.ShpPoints.Item(1)->X, 7);
    load(points, "b");
    ASSERT_EQ(ws.ShpPoints.Count(), 2);
    load(lines, "c");
    EXPECT_EQ(ws.NumRegion, 1);
    EXPECT_EQ(ws.ShpPolygons.Count(), 3);
    EXPECT_EQ(ws.ShpPoints.Count(), 2);
    const auto error = ErrorOf([&] { load(multi, "d"); });
    EXPECT_EQ(error.Number, RecordMismatch);
    EXPECT_TRUE(error.EndsProcess);
    load(Polygons(1), "a"); // fewer than before: nothing of the first is left
    EXPECT_EQ(ws.ShpPolygons.Count(), 1);
    EXPECT_EQ(ErrorNumberOf([] { ws.ShpPolygons.Item(2); }), SubscriptOutOfRange);
}

TEST_F(ShapeDataset, EndsTheProcessForAnUnsupportedType) {
    folder.Write("nc.dbf", TableOf(1));
    ShapefileBytes bytes(15);
    bytes.Add(PointContents(1, 2));
    bytes.Add(PointContents(3, 4));
    OpenShapeAttributes({bytes.WritePair(folder, "nc"), "nc.shp", false});
    const auto error = ErrorOf(LoadShapes);
    EXPECT_EQ(error.Number, 9999);
    EXPECT_EQ(error.Source, "button click");
    EXPECT_EQ(error.Description, "Unsupported shape type");
    EXPECT_TRUE(error.EndsProcess);
    EXPECT_EQ(ws.NumRegion, 2); // that of the file, which is told before its type
    EXPECT_EQ(ws.ShpPolygons.Count() + ws.ShpPoints.Count(), 0);
    EXPECT_TRUE(ws.DatasetFileName);
}

TEST_F(ShapeDataset, TakesNothingForAPointBeyondTheIndex) {
    // A length in the middle of the first index record: one record by rounding, and none by its place.
    ShapefileBytes points(1);
    points.Add(PointContents(3, 4));
    ws.DatasetFileName = std::make_shared<CFileName>();
    ws.DatasetFileName->SetFileSpec(ToFileSpec(points.WritePair(folder, "nc")));
    folder.Write("nc.shx", Replaced(points.Shx(), 24, BigInteger(53)));
    LoadShapes();
    EXPECT_EQ(ws.NumRegion, 1);
    ASSERT_EQ(ws.ShpPoints.Count(), 1);
    EXPECT_FALSE(ws.ShpPoints.Item(1));
}
