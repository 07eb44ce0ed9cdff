#include "core/spatial/CentroidFile.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/CPolygon.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

constexpr const char* Header = " ID,           CentX,           CentY\r\n";

void SetCentroids(std::ptrdiff_t count) {
    ws = Workspace{};
    ws.NumRegion = static_cast<std::int32_t>(count);
    ws.RegionCentroid.ReDim(count);
}

void AddSquare() {
    ws = Workspace{};
    auto polygon = std::make_shared<CPolygon>();
    CPart part;
    for (const auto& [x, y] : ClockwiseSquare(1, 2, 2))
        part.Add(CPoint(x, y));
    polygon->Add(part);
    ws.ShpPolygons.Add(polygon);
    ws.NumRegion = 1;
}

} // namespace

TEST(CentroidFile, AlignsItsFields) {
    SetCentroids(2);
    ws.RegionCentroid(1) = {"1", 1234.5, -0.0000004};
    ws.RegionCentroid(2) = {"2", 0.1234567, -98765432.1};
    EXPECT_EQ(CentroidFileText(), std::string(Header) + "  1,       1234.500000,         -0.000000\r\n"
                                                        "  2,          0.123457,  -98765432.100000\r\n");
}

TEST(CentroidFile, NeverCutsAnIndex) {
    SetCentroids(1000);
    const std::string text = CentroidFileText();
    EXPECT_NE(text.find("\r\n999,"), std::string::npos);
    EXPECT_NE(text.find("\r\n1000,          0.000000,          0.000000\r\n"), std::string::npos);
}

TEST(CentroidFile, CountsItsLinesIn16Bits) {
    SetCentroids(32767);
    EXPECT_EQ(CentroidFileText().substr(0, 5), std::string(Header).substr(0, 5));
    SetCentroids(32768);
    EXPECT_EQ(ErrorNumberOf([] { CentroidFileText(); }), Overflow);
}

TEST(CentroidFile, IsWrittenByTheCommand) {
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    AddSquare();
    platform.ExpectFile(FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", folder.Write("c.txt", "older"));
    mnuGetCentroid();
    EXPECT_EQ(ReadFile(folder / "c.txt"),
              std::string(Header) + "  1,          2.000000,          3.000000\r\n");
}

TEST(CentroidFile, StaysAsItIsWhereTheLinesAreTooMany) {
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    AddSquare();
    for (ws.NumRegion = 1; ws.NumRegion < 32768; ++ws.NumRegion)
        ws.ShpPolygons.Add(ws.ShpPolygons.Item(1));
    platform.ExpectFile(FileQuestion::Kind::Save, CentroidFilter, folder.Write("c.txt", "older"));
    EXPECT_EQ(ErrorNumberOf(mnuGetCentroid), Overflow);
    EXPECT_EQ(ReadFile(folder / "c.txt"), "older");
}

TEST(CentroidFile, StopsWhereItCannotBeWritten) {
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    AddSquare();
    std::filesystem::create_directory(folder / "c.txt");
    platform.ExpectFile(FileQuestion::Kind::Save, CentroidFilter, folder / "c.txt");
    EXPECT_EQ(ErrorNumberOf(mnuGetCentroid), PathFileAccessError);
}

TEST(CentroidFile, IsNotWrittenAfterACancel) {
    const TemporaryFolder folder;
    ScriptedPlatform platform;
    AddSquare();
    platform.ExpectFile(FileQuestion::Kind::Save, "Text File (*.txt)|*.txt", "");
    mnuGetCentroid();
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    EXPECT_EQ(ws.RegionCentroid(1).X, 2); // computed anew all the same
}

TEST(CentroidFile, IsNotWrittenWithoutAName) {
    ScriptedPlatform platform;
    AddSquare();
    platform.ExpectNoName(FileQuestion::Kind::Save, "Text File (*.txt)|*.txt");
    mnuGetCentroid(); // no error of a file without a name either
    EXPECT_EQ(ws.RegionCentroid(1).X, 2);
}

TEST(CentroidFile, StopsBeforeTheDialogAtAFault) {
    ScriptedPlatform platform; // expects nothing
    ws = Workspace{};
    ws.NumRegion = 1;
    EXPECT_EQ(ErrorNumberOf(mnuGetCentroid), SubscriptOutOfRange);
}
