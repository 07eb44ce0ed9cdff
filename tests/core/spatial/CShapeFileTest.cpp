#include "core/spatial/CShapeFile.h"

#include "core/platform/FileSpec.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/ShapeErrors.h"
#include "core/spatial/ShapeReader.h"
#include "support/OrdinaryUser.h"
#include "support/RaisedError.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

using namespace vastrel;

namespace {

CFileName NameOf(const std::string& path) {
    CFileName name;
    name.SetFileSpec(ToFileSpec(path));
    return name;
}

void Open(CShapeFile& file, const std::string& path) {
    file.SetFileSpec(NameOf(path), CShapeFile::OpenExisting, 0);
}

template <typename Shape>
const Shape& As(const std::shared_ptr<IShape>& shape) {
    return dynamic_cast<const Shape&>(*shape);
}

ShapefileBytes TwoPolygons() {
    ShapefileBytes bytes(5);
    bytes.Add(PolygonContents({ClockwiseSquare(0, 0, 1)}));
    bytes.Add(PolygonContents({ClockwiseSquare(2, 0, 1), CounterClockwiseSquare(5, 5, 3)}));
    return bytes;
}

} // namespace

TEST(CShapeFile, ReadsPolygons) {
    const TemporaryFolder folder;
    CShapeFile file;
    Open(file, TwoPolygons().WritePair(folder, "two"));
    EXPECT_EQ(file.Count(), 2);
    EXPECT_EQ(file.FileType(), 5);
    EXPECT_EQ(file.Left(), -10); // as the header tells them
    EXPECT_EQ(file.Bottom(), -20);
    EXPECT_EQ(file.Right(), 30);
    EXPECT_EQ(file.Top(), 40);
    const auto second = file.Item(2);
    const auto& polygon = As<CPolygon>(second);
    ASSERT_EQ(polygon.Count(), 2);
    EXPECT_EQ(polygon.Item(1).Count(), 5);
    EXPECT_EQ(polygon.Item(2).Count(), 5);
    EXPECT_EQ(polygon.Item(2).Item(2).X, 8); // second vertex of the ring that starts at (5, 5)
    EXPECT_EQ(polygon.Item(2).Item(2).Y, 5);
    EXPECT_EQ(polygon.Left(), 2);
    EXPECT_EQ(polygon.Right(), 8);
    EXPECT_EQ(polygon.Bottom(), 0);
    EXPECT_EQ(polygon.Top(), 8);
}

TEST(CShapeFile, ReplacesTheBoxOfTheFileByThatOfThePoints) {
    const TemporaryFolder folder;
    ShapefileBytes bytes(5);
    bytes.Add(Replaced(PolygonContents({ClockwiseSquare(0, 0, 1)}), 4, LittleDouble(-99)));
    CShapeFile file;
    Open(file, bytes.WritePair(folder, "box"));
    EXPECT_EQ(file.Item(1)->Left(), 0);
}

TEST(CShapeFile, ReadsPointsAndLines) {
    const TemporaryFolder folder;
    ShapefileBytes points(1), lines(3);
    points.Add(PointContents(3, 4));
    lines.Add(PolygonContents({{{0, 0}, {1, 2}}, {{5, 5}, {6, 6}, {7, 5}}}, 3));
    CShapeFile pointFile, lineFile;
    Open(pointFile, points.WritePair(folder, "points"));
    EXPECT_EQ(As<CPoint>(pointFile.Item(1)).Y, 4);
    Open(lineFile, lines.WritePair(folder, "lines"));
    EXPECT_EQ(As<CPolyLine>(lineFile.Item(1)).Item(2).Count(), 3);
}

TEST(CShapeFile, OffersNothingBeyondTheIndex) {
    const TemporaryFolder folder;
    ShapefileBytes points(1), lines(3);
    points.Add(PointContents(3, 4));
    lines.Add(PolygonContents({{{0, 0}, {1, 2}}}, 3));
    CShapeFile pointFile, lineFile, polygonFile;
    Open(pointFile, points.WritePair(folder, "points"));
    Open(lineFile, lines.WritePair(folder, "lines"));
    Open(polygonFile, TwoPolygons().WritePair(folder, "two"));
    EXPECT_EQ(pointFile.Item(2), nullptr);
    for (const auto& error : {ErrorOf([&] { lineFile.Item(2); }), ErrorOf([&] { polygonFile.Item(3); })}) {
        EXPECT_EQ(error.Number, OffsetBeyondFile);
        EXPECT_EQ(error.Source, "CShapeFile::Item");
        EXPECT_EQ(
            error.Description.rfind("The offset read from index file is larger then the mainfile size\n", 0),
            0U);
        EXPECT_NE(error.Description.find(".shx tells no place for record "), std::string::npos);
    }
}

TEST(CShapeFile, FailsOnTheFirstMultipoint) {
    const TemporaryFolder folder;
    ShapefileBytes bytes(8);
    bytes.Add(MultiPointContents({{1, 2}, {3, 4}}));
    CShapeFile file;
    Open(file, bytes.WritePair(folder, "multi"));
    EXPECT_EQ(file.Count(), 1);
    const auto error = ErrorOf([&] { file.Item(1); });
    EXPECT_EQ(error.Number, RecordMismatch);
    EXPECT_EQ(
        error.Description.rfind("Index Record does not match main file Record\nrecord 0 of multi.shp ", 0),
        0U)
        << error.Description;
}

TEST(CShapeFile, ReadsAMultipointWhoseHeaderPointsToRecordZero) {
    // What the lookup of index 0 finds: the last eight bytes of the main header of the .shx.
    const TemporaryFolder folder;
    ShapefileBytes bytes(8);
    bytes.Add(MultiPointContents({{1, 2}, {3, 4}}));
    const std::string path = folder.Write("multi.shp", Replaced(bytes.Shp(), 100, BigInteger(0)));
    folder.Write("multi.shx", Replaced(bytes.Shx(), 92, BigInteger(50)));
    CShapeFile file;
    Open(file, path);
    EXPECT_EQ(As<CMultiPoint>(file.Item(1)).Item(2).Y, 4);
}

TEST(CShapeFile, ReadsNoMoreMultipointsThanTheIndexHolds) {
    // Each lookup ends at the same place, so that the header's count alone would go on for ever.
    const TemporaryFolder folder;
    ShapefileBytes bytes(8);
    bytes.Add(MultiPointContents({{1, 2}, {3, 4}}));
    const std::string path = folder.Write("multi.shp", Replaced(bytes.Shp(), 100, BigInteger(0)));
    folder.Write("multi.shx",
                 Replaced(Replaced(bytes.Shx(), 92, BigInteger(50)), 24, BigInteger(2000000000)));
    CShapeFile file;
    Open(file, path);
    EXPECT_TRUE(file.Item(1));
    const auto error = ErrorOf([&] { file.Item(2); });
    EXPECT_EQ(error.Number, InputPastEndOfFile);
    EXPECT_NE(error.Description.find("multi.shx ends before index record 2 does."), std::string::npos)
        << error;
}

TEST(CShapeFile, GivesNothingForOtherTypes) {
    const TemporaryFolder folder;
    for (const int type : {0, 2, 4, 6, 7, 9, 15}) {
        ShapefileBytes bytes(type);
        bytes.Add(PointContents(1, 2));
        CShapeFile file;
        Open(file, bytes.WritePair(folder, "other"));
        EXPECT_EQ(file.Item(1), nullptr) << type;
    }
}

TEST(CShapeFile, CountsByTheHeaderOfTheIndex) {
    const TemporaryFolder folder;
    const ShapefileBytes bytes = TwoPolygons();
    const std::string path = bytes.WritePair(folder, "two");
    // (length - 50) / 4 words to the nearest, a half to the even neighbour.
    const std::pair<int, int> cases[] = {{50, 0}, {52, 0}, {54, 1}, {56, 2}, {58, 2}, {60, 2}, {48, 0}};
    for (const auto& [length, count] : cases) {
        folder.Write("two.shx", Replaced(bytes.Shx(), 24, BigInteger(length)));
        CShapeFile file;
        Open(file, path);
        EXPECT_EQ(file.Count(), count) << length;
    }
}

TEST(CShapeFile, TellsWhichFileIsMissing) {
    const TemporaryFolder folder;
    const std::string path = folder / "gone.shp";
    CShapeFile file;
    const auto error = ErrorOf([&] { Open(file, path); });
    EXPECT_EQ(error.Number, ShapefileNotFound);
    EXPECT_EQ(error.Source, "C_ShapeFile::SetFileSpec");
    EXPECT_EQ(error.Description, "The specified file " + ToFileSpec(path) + " does not exist.");
    folder.Write("gone.shp", TwoPolygons().Shp());
    EXPECT_EQ(ErrorOf([&] { Open(file, path); }).Description,
              "The specified file " + ToFileSpec(folder / "gone.shx") + " does not exist.");
}

TEST(CShapeFile, LooksAtTheCodeOfTheIndexFirst) {
    const TemporaryFolder folder;
    const ShapefileBytes bytes = TwoPolygons();
    const std::string path = folder.Write("bad.shp", Replaced(bytes.Shp(), 0, LittleInteger(9994)));
    folder.Write("bad.shx", Replaced(bytes.Shx(), 0, LittleInteger(9994)));
    CShapeFile file;
    auto error = ErrorOf([&] { Open(file, path); });
    EXPECT_EQ(error.Number, InvalidFileCode);
    EXPECT_EQ(error.Description, "The shx file has an invalid shape code in the main header.");
    folder.Write("bad.shx", bytes.Shx());
    error = ErrorOf([&] { Open(file, path); });
    EXPECT_EQ(error.Number, InvalidFileCode);
    EXPECT_EQ(error.Description, "The shp file has an invalid shape code in the main header.");
}

TEST(CShapeFile, TakesTheExtentBeforeItLooksAtTheCode) {
    const TemporaryFolder folder;
    const ShapefileBytes bytes = TwoPolygons();
    const std::string path = folder.Write("bad.shp", Replaced(bytes.Shp(), 0, BigInteger(1)));
    folder.Write("bad.shx", bytes.Shx());
    CShapeFile file;
    EXPECT_EQ(ErrorNumberOf([&] { Open(file, path); }), InvalidFileCode);
    EXPECT_EQ(file.Right(), 30);
    EXPECT_EQ(file.Count(), 0); // what comes behind the code is not reached
    folder.Write("bad.shp", Replaced(ReadFile(path), 52, LittleDouble(std::nan(""))));
    EXPECT_EQ(ErrorNumberOf([&] { Open(file, path); }), InvalidFileCode); // of two faults the first
    EXPECT_EQ(file.Right(), 30);
}

TEST(CShapeFile, FindsThePairRegardlessOfCase) {
    const TemporaryFolder folder;
    folder.Write("NC.SHP", TwoPolygons().Shp());
    folder.Write("Nc.Shx", TwoPolygons().Shx());
    CShapeFile file;
    Open(file, folder / "NC.SHP");
    EXPECT_EQ(file.Count(), 2);
}

TEST(ShapeReader, RaisesEachErrorWithTheSourceOfItsOperation) {
    const TemporaryFolder folder;
    ShapefileBytes bytes(5);
    bytes.Add(PolygonContents({ClockwiseSquare(0, 0, 1)}), 7); // 1: wrong record number
    bytes.Add(LittleInteger(0));                               // 2: null shape
    bytes.Add(MultiPointContents({{1, 2}}), 0);                // 3: wrong type
    BinaryFile shp, shx;
    shp.Open(bytes.WritePair(folder, "errors"), BinaryFile::Access::Read);
    shx.Open(folder / "errors.shx", BinaryFile::Access::Read);
    ShapeReader reader(shp, shx, 5, (100 + 3 * 8) / 2);
    const auto check = [](const RaisedError& error, long number, const std::string& source) {
        EXPECT_EQ(error.Number, number);
        EXPECT_EQ(error.Source, source) << error;
    };
    check(ErrorOf([&] { reader.ReadPolygon(4); }), OffsetBeyondFile, "CShapeFile::ReadPolygon");
    check(ErrorOf([&] { reader.ReadPolygon(1); }), RecordMismatch, "CShapeFile::ReadPolygon");
    check(ErrorOf([&] { reader.ReadPolygon(2); }), ShapeTypeMismatch, "CShapeFile::ReadPolygon");
    check(ErrorOf([&] { reader.ReadPolygon(3); }), ShapeTypeMismatch, "CShapeFile::ReadPolygon");
    check(ErrorOf([&] { reader.ReadPolyLine(4); }), OffsetBeyondFile, "CShapeFile::ReadPolyLine");
    check(ErrorOf([&] { reader.ReadPolyLine(1); }), RecordMismatch, "CShapeFile::ReadPolyLine");
    check(ErrorOf([&] { reader.ReadPolyLine(2); }), ShapeTypeMismatch, "CShapeFile::ReadPolygon");
    check(ErrorOf([&] { reader.ReadPoint(4); }), 0, "");
    check(ErrorOf([&] { reader.ReadPoint(1); }), RecordMismatch, "CShapeFile::ReadPoint");
    check(ErrorOf([&] { reader.ReadPoint(2); }), ShapeTypeMismatch, "CShapeFile::ReadPoint");
    check(ErrorOf([&] { reader.ReadMultiPoint(1); }), RecordMismatch, "CShape_IO::ReadMultiPoint");
    ShapeReader shortReader(shp, shx, 5, 46); // an index that ends before its header does
    check(ErrorOf([&] { shortReader.ReadMultiPoint(1); }), OffsetBeyondFile, "C_ShapeFile::ReadMultiPoint");
    ShapeReader longReader(shp, shx, 5, (100 + 9 * 8) / 2); // an index that tells more than it holds
    check(ErrorOf([&] { longReader.ReadPolygon(9); }), InputPastEndOfFile, "C_ShapeFile::FindOffset");
    check(ErrorOf([&] { longReader.GetRecordHeader(shp.Size(), "record 4"); }), InputPastEndOfFile,
          "C_ShapeFile::GetRecordHeader");
}

TEST(CShapeFile, CannotOpenAWriteProtectedPair) {
    const TemporaryFolder folder;
    const std::string path = TwoPolygons().WritePair(folder, "fixed");
    for (const auto& file : {path, folder / "fixed.shx"})
        std::filesystem::permissions(file, std::filesystem::perms(0444));
    ExpectOfAnOrdinaryUser(folder, [&] {
        CShapeFile file;
        const auto error = ErrorOf([&] { Open(file, path); });
        return error.Number == PermissionDenied &&
               error.Description.find("fixed.shx is write-protected") != std::string::npos;
    });
}
