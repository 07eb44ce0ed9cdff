// What stands in a table's header, beside a dataset's files or in the names of its folders without being
// data: the values are those of the plain dataset.
#include "core/platform/Platform.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"
#include "support/ScriptedPlatform.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;

const std::string SoundTable =
    TableBytes({{"ID", 'N', 5}, {"NAME", 'C', 6}}, {{"    1", "Ashe"}, {"    2", "Surry"}});
constexpr const char* Rows = "1\tAshe\r2\tSurry";

// Places in the header of a table.
constexpr size_t Version = 0, Year = 1, HeaderLength = 8, IndexFlag = 28, WholeHeader = 97;

std::string RowsOf(const TemporaryFolder& folder, const std::string& table) {
    return Recordset(folder.Write("t.dbf", table)).GetString();
}

std::string Rubbish(size_t size) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i)
        bytes += static_cast<char>(i * 37 % 251);
    return bytes;
}

/// Two squares and their table, named two.
std::string WriteDataset(const TemporaryFolder& folder, const std::string& name) {
    ShapefileBytes shapes(5);
    for (const double x : {0.0, 5.0})
        shapes.Add(PolygonContents({ClockwiseSquare(x, 0, 1)}));
    folder.Write(name + ".dbf", SoundTable);
    return shapes.WritePair(folder, name);
}

void ExpectDataset(const std::string& path) {
    ScriptedPlatform platform; // no message is expected
    ws = Workspace{};
    OpenShapeAttributes({path, fs::path(path).filename().string(), false});
    ReadShapeHeader();
    LoadShapes();
    ComputeShapeAreas();
    ComputeCentroids();
    ASSERT_NE(ws.AttributeRecordset, nullptr) << path;
    EXPECT_EQ(ws.AttributeRecordset->GetString(), Rows);
    EXPECT_EQ(ws.TotalShapeArea, 2);
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(2).X, 5.5);
}

} // namespace

TEST(BesideDataset, PaddingBeforeTheFirstRecordIsPassedOver) {
    const TemporaryFolder folder;
    EXPECT_EQ(RowsOf(folder, SoundTable), Rows);
    for (const size_t padding : {1U, 2U, 31U, 32U, 263U, 5000U})
        for (const char fill : {'\0', ' ', '*', '\x0D', '\x1A'}) {
            const size_t length = WholeHeader + padding;
            const std::string told{static_cast<char>(length & 0xFF), static_cast<char>(length >> 8)};
            std::string bytes = Replaced(SoundTable, HeaderLength, told);
            bytes.insert(WholeHeader, std::string(padding, fill));
            EXPECT_EQ(RowsOf(folder, bytes), Rows) << padding << " of " << static_cast<int>(fill);
        }
}

TEST(BesideDataset, VersionAndDateOfATableAreNotLookedAt) {
    const TemporaryFolder folder;
    for (int value = 0; value < 256; ++value)
        for (const size_t place : {Version, Year, Year + 1, Year + 2})
            EXPECT_EQ(RowsOf(folder, Replaced(SoundTable, place, std::string(1, static_cast<char>(value)))),
                      Rows)
                << value << " at " << place;
}

TEST(BesideDataset, IndexesAreNotLookedAt) {
    for (const bool told : {false, true}) { // in the table's own header
        const TemporaryFolder folder;
        const std::string path = WriteDataset(folder, "two");
        if (told) folder.Write("two.dbf", Replaced(SoundTable, IndexFlag, "\x01"));
        for (const auto& extension :
             {"sbn", "sbx", "idx", "mdx", "cdx", "ndx", "dbt", "fpt", "shp.xml", "prj"})
            for (const auto& bytes : {std::string(), std::string(1000, '\0'), Rubbish(1000), SoundTable}) {
                folder.Write("two." + std::string(extension), bytes);
                ExpectDataset(path);
            }
    }
}

TEST(BesideDataset, APathMayBeLong) {
    const TemporaryFolder folder;
    std::string inner; // seven folders, so that the path has more than 1,024 characters
    for (int k = 0; k < 7; ++k)
        inner += std::string(200, static_cast<char>('a' + k)) + "/";
    fs::create_directories(folder / inner);
    const std::string path = WriteDataset(folder, inner + "two");
    EXPECT_GT(path.size(), 1400U);
    ExpectDataset(path);
}
