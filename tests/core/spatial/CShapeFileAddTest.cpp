#include "core/platform/FileSpec.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/CShapeFile.h"
#include "core/spatial/ShapeErrors.h"
#include "support/OrdinaryUser.h"
#include "support/RaisedError.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

CFileName NameOf(const std::string& path) {
    CFileName name;
    name.SetFileSpec(ToFileSpec(path));
    return name;
}

CPart PartOf(const Ring& ring) {
    CPart part;
    for (const auto& [x, y] : ring)
        part.Add(CPoint(x, y));
    return part;
}

std::string BoxBytes(double left, double bottom, double right, double top) {
    return LittleDouble(left) + LittleDouble(bottom) + LittleDouble(right) + LittleDouble(top);
}

CPolygon TwoRings() {
    CPolygon polygon;
    polygon.Add(PartOf(ClockwiseSquare(0, 0, 4)));
    polygon.Add(PartOf(CounterClockwiseSquare(1, 1, 1)));
    return polygon;
}

/// Writes a pair and lets it go, so that its files are complete.
template <typename... Shapes>
std::string Written(const TemporaryFolder& folder, int type, const Shapes&... shapes) {
    const std::string path = folder / "new.shp";
    CShapeFile file;
    file.SetFileSpec(NameOf(path), CShapeFile::CREATEIT, type);
    (file.Add(shapes), ...);
    return path;
}

} // namespace

TEST(CShapeFileAdd, WritesTheFormatByteByByte) {
    const TemporaryFolder folder;
    const std::string path = Written(folder, 5, TwoRings());
    // Put together from the published layout: header, record header, contents of two rings.
    ShapefileBytes expected(5);
    expected.Add(PolygonContents({ClockwiseSquare(0, 0, 4), CounterClockwiseSquare(1, 1, 1)}));
    const std::string box = BoxBytes(0, 0, 4, 4);
    EXPECT_EQ(ReadFile(path), Replaced(expected.Shp(), 36, box));
    EXPECT_EQ(ReadFile(folder / "new.shx"), Replaced(expected.Shx(), 36, box));
}

TEST(CShapeFileAdd, WritesALineOfTwoPartsByteByByte) {
    const TemporaryFolder folder;
    CPolyLine line;
    line.Add(PartOf({{3, 4}, {5, 2}, {6, 8}}));
    line.Add(PartOf({{-1, 5}, {2, 3}}));
    const std::string path = Written(folder, 3, line);
    ShapefileBytes expected(3);
    expected.Add(PolygonContents({{{3, 4}, {5, 2}, {6, 8}}, {{-1, 5}, {2, 3}}}, 3));
    const std::string box = BoxBytes(-1, 2, 6, 8);
    EXPECT_EQ(ReadFile(path), Replaced(expected.Shp(), 36, box));
    EXPECT_EQ(ReadFile(folder / "new.shx"), Replaced(expected.Shx(), 36, box));
}

TEST(CShapeFileAdd, TakesTheExtentFromTheFirstRecordAlone) {
    const TemporaryFolder folder; // on either side of 0, which no edge may keep
    for (const auto& [x, y] : {std::pair{5.0, 7.0}, std::pair{-5.0, -7.0}}) {
        const std::string path = Written(folder, 1, CPoint(x, y));
        EXPECT_EQ(ReadFile(path).substr(36, 32), BoxBytes(x, y, x, y));
        EXPECT_EQ(ReadFile(folder / "new.shx").substr(36, 32), BoxBytes(x, y, x, y));
    }
}

TEST(CShapeFileAdd, WritesTheExtentThatMovesOnOneSideOnly) {
    const TemporaryFolder folder;
    const std::pair<CPoint, std::string> cases[] = {
        {{1, 5}, BoxBytes(1, 5, 5, 5)}, // left, below, right, above of (5, 5)
        {{5, 1}, BoxBytes(5, 1, 5, 5)}, {{9, 5}, BoxBytes(5, 5, 9, 5)},
        {{5, 9}, BoxBytes(5, 5, 5, 9)}, {{5, 5}, BoxBytes(5, 5, 5, 5)},
    };
    for (const auto& [second, box] : cases) {
        const std::string path = Written(folder, 1, CPoint(5, 5), second);
        EXPECT_EQ(ReadFile(path).substr(36, 32), box) << second.X << " " << second.Y;
        EXPECT_EQ(ReadFile(folder / "new.shx").substr(36, 32), box) << second.X << " " << second.Y;
    }
}

TEST(CShapeFileAdd, StartsANewPairAlsoOnAnObjectThatHasBeenUsed) {
    const TemporaryFolder folder;
    const std::string old = Written(folder, 5, TwoRings());
    CShapeFile file;
    file.SetFileSpec(NameOf(old), CShapeFile::OpenExisting);
    file.SetFileSpec(NameOf(folder / "next.shp"), CShapeFile::CREATEIT, 1);
    EXPECT_EQ(file.Count(), 0);
    EXPECT_EQ(file.FileType(), 1);
    EXPECT_EQ(file.Left() + file.Right() + file.Bottom() + file.Top(), 0);
    EXPECT_EQ(ReadFile(folder / "next.shp").substr(32), LittleInteger(1) + std::string(64, '\0'));
    file.Add(CPoint(6, 7));
    EXPECT_EQ(file.Count(), 1);
    file = CShapeFile(); // its files are complete
    EXPECT_EQ(ReadFile(folder / "next.shp").substr(36, 32), BoxBytes(6, 7, 6, 7));
    EXPECT_EQ(ReadFile(folder / "next.shp").substr(100, 8), BigInteger(1) + BigInteger(10)); // record 1
    EXPECT_EQ(ReadFile(old).size(), 100u + 8 + 44 + 2 * 4 + 10 * 16);                        // untouched
}

TEST(CShapeFileAdd, WritesWhatItReads) {
    const TemporaryFolder folder;
    CPolygon first = TwoRings(), second;
    second.Add(PartOf(ClockwiseSquare(-3, 7, 2.5)));
    const std::string path = Written(folder, 5, first, second);
    CShapeFile file;
    file.SetFileSpec(NameOf(path), CShapeFile::OpenExisting);
    ASSERT_EQ(file.Count(), 2);
    EXPECT_EQ(file.Left(), -3);
    EXPECT_EQ(file.Right(), 4);
    EXPECT_EQ(file.Bottom(), 0);
    EXPECT_EQ(file.Top(), 9.5);
    const auto shape = file.Item(2);
    const auto& polygon = dynamic_cast<const CPolygon&>(*shape);
    ASSERT_EQ(polygon.Count(), 1);
    EXPECT_EQ(polygon.Item(1).Item(3).X, -0.5);
    EXPECT_EQ(polygon.Item(1).Item(3).Y, 9.5);
    EXPECT_EQ(dynamic_cast<const CPolygon&>(*file.Item(1)).Item(2).Count(), 5);
}

TEST(CShapeFileAdd, AppendsToAnExistingPair) {
    const TemporaryFolder folder;
    const std::string path = Written(folder, 1, CPoint(1, 1), CPoint(5, 5));
    {
        CShapeFile file;
        file.SetFileSpec(NameOf(path), CShapeFile::OpenExisting);
        file.Add(CPoint(3, -2));
        EXPECT_EQ(file.Count(), 3);
    }
    CShapeFile file;
    file.SetFileSpec(NameOf(path), CShapeFile::OpenExisting);
    EXPECT_EQ(file.Count(), 3);
    EXPECT_EQ(file.Bottom(), -2);
    EXPECT_EQ(dynamic_cast<const CPoint&>(*file.Item(3)).X, 3);
}

TEST(CShapeFileAdd, DeletesAnExistingPairOnlyWhenToldTo) {
    const TemporaryFolder folder;
    const std::string path = Written(folder, 1, CPoint(1, 1));
    const size_t size = ReadFile(path).size();
    {
        CShapeFile file; // any other status: a new header over the old bytes
        file.SetFileSpec(NameOf(path), 2, 1);
        EXPECT_EQ(file.Count(), 0);
    }
    EXPECT_EQ(ReadFile(path).size(), size);
    Written(folder, 1);
    EXPECT_EQ(ReadFile(path).size(), 100u);
}

TEST(CShapeFileAdd, KeepsAPairThatMayNotBeDeleted) {
    const TemporaryFolder folder;
    const std::string path = Written(folder, 1, CPoint(1, 1));
    const std::string before = ReadFile(path);
    for (const auto& file : {path, folder / "new.shx"})
        std::filesystem::permissions(file, std::filesystem::perms(0666));
    constexpr unsigned folderMayNotBeChanged = 0555;
    ExpectOfAnOrdinaryUser(
        folder,
        [&] {
            CShapeFile file;
            const auto error = ErrorOf([&] { file.SetFileSpec(NameOf(path), CShapeFile::CREATEIT, 1); });
            return error.Number == PermissionDenied &&
                   error.Description.find("new.shp could not be deleted") != std::string::npos;
        },
        folderMayNotBeChanged);
    EXPECT_EQ(ReadFile(path), before);
}

TEST(CShapeFileAdd, NeedsATypeForANewPair) {
    const TemporaryFolder folder;
    CShapeFile file;
    const auto error = ErrorOf([&] { file.SetFileSpec(NameOf(folder / "new.shp"), CShapeFile::CREATEIT); });
    EXPECT_EQ(error.Number, ShapeTypeMissing);
    EXPECT_EQ(error.Source, "C_ShapeFile::SetFileSpec");
    EXPECT_EQ(error.Description, "The ShapeType argument is not optional when argument status is CREATEIT");
    EXPECT_EQ(ReadFile(folder / "new.shp") + ReadFile(folder / "new.shx"), ""); // opened, and nothing written
}

TEST(CShapeFileAdd, RefusesShapesThatAreNotTheFiles) {
    const TemporaryFolder folder;
    CShapeFile points, polygons;
    points.SetFileSpec(NameOf(folder / "points.shp"), CShapeFile::CREATEIT, 1);
    polygons.SetFileSpec(NameOf(folder / "polygons.shp"), CShapeFile::CREATEIT, 5);
    const auto text = [](const char* name) {
        return "Cannot add type " + std::string(name) + " to a ShapeFile initialized as other type";
    };
    const std::tuple<RaisedError, long, std::string> cases[] = {
        {ErrorOf([&] { polygons.Add(CPoint()); }), WrongShapeForFile, text("CPoint")},
        {ErrorOf([&] { polygons.Add(CMultiPoint()); }), WrongShapeForFile, text("CPoint")},
        {ErrorOf([&] { points.Add(CPolyLine()); }), WrongShapeForFile, text("CPolyline")},
        {ErrorOf([&] { points.Add(CPolygon()); }), WrongShapeForFile, text("CPolygon")},
        {ErrorOf([&] { points.Add(CRect()); }), InvalidShapeClass, "Invalid shape type"},
    };
    for (const auto& [error, number, description] : cases) {
        EXPECT_EQ(error.Number, number);
        EXPECT_EQ(error.Source, "CShapeFile::Add");
        EXPECT_EQ(error.Description, description);
    }
    EXPECT_EQ(points.Count() + polygons.Count(), 0);
}

TEST(CShapeFileAdd, TakesMultipointsIntoAFileOfPoints) {
    const TemporaryFolder folder;
    CMultiPoint points;
    points.Add(CPoint(1, 2));
    points.Add(CPoint(3, 4));
    ShapefileBytes expected(1);
    expected.Add(MultiPointContents({{1, 2}, {3, 4}}));
    EXPECT_EQ(ReadFile(Written(folder, 1, points)).substr(100), expected.Shp().substr(100));
    CShapeFile file;
    file.SetFileSpec(NameOf(folder / "multi.shp"), CShapeFile::CREATEIT, 8);
    EXPECT_EQ(ErrorNumberOf([&] { file.Add(points); }), WrongShapeForFile);
}

TEST(CShapeFileAdd, WritesTwoBytesForANullShape) {
    const TemporaryFolder folder;
    CPoint null;
    null.MakeNull(true);
    const std::string path = Written(folder, 1, null);
    EXPECT_EQ(ReadFile(path).substr(100), BigInteger(1) + BigInteger(2) + std::string(2, '\0'));
    EXPECT_EQ(ReadFile(folder / "new.shx").substr(100), BigInteger(50) + BigInteger(2));
    EXPECT_EQ(ReadFile(path).substr(24, 4), BigInteger(0)); // the lengths are left alone
}

TEST(CShapeFileAdd, MovesTheExtentFromZeroBehindANullShape) {
    const TemporaryFolder folder;
    CPoint null;
    null.MakeNull(true);
    const std::string bytes = ReadFile(Written(folder, 1, null, CPoint(5, -3)));
    // The point is the second record, so the edges only move outwards from 0.
    EXPECT_EQ(bytes.substr(36, 32), BoxBytes(0, -3, 5, 0));
    // It starts behind the two bytes: at byte 110, word 55.
    EXPECT_EQ(ReadFile(folder / "new.shx").substr(108), BigInteger(55) + BigInteger(10));
}

TEST(CShapeFileAdd, FindsNothingInAPairThatIsBeingWritten) {
    // The header in memory keeps length 0 until the pair is opened anew.
    const TemporaryFolder folder;
    CShapeFile file;
    file.SetFileSpec(NameOf(folder / "new.shp"), CShapeFile::CREATEIT, 5);
    file.Add(TwoRings());
    EXPECT_EQ(file.Count(), 1);
    EXPECT_EQ(ErrorNumberOf([&] { file.Item(1); }), OffsetBeyondFile);
}
