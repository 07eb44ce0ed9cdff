#include "support/BatchProgram.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

constexpr const char* OfTwoSquares = " ID,           CentX,           CentY\r\n"
                                     "  1,          0.500000,          0.500000\r\n"
                                     "  2,         11.000000,         12.000000\r\n";

std::string WriteTwoSquares(const TemporaryFolder& folder, const std::string& name) {
    ShapefileBytes bytes(5);
    bytes.Add(PolygonContents({ClockwiseSquare(0, 0, 1)}));
    bytes.Add(PolygonContents({ClockwiseSquare(10, 11, 2)}));
    folder.Write(name + ".dbf", TableBytes({{"ID", 'N', 5}}, {{"    1"}, {"    2"}}));
    return bytes.WritePair(folder, name);
}

} // namespace

TEST(CentroidsCommand, WritesTheCentroidFile) {
    const TemporaryFolder folder;
    const std::string path = WriteTwoSquares(folder, "two");
    EXPECT_EQ(RunBatch({"centroids", path, "--out", folder / "c.txt"}), (BatchResult{0, "", ""}));
    EXPECT_EQ(ReadFile(folder / "c.txt"), OfTwoSquares);
    EXPECT_EQ(RunBatch({"centroids", path, "--out", "-"}), (BatchResult{0, OfTwoSquares, ""}));
}

TEST(CentroidsCommand, WritesNothingWithoutAName) {
    const TemporaryFolder folder;
    const std::string path = WriteTwoSquares(folder, "two");
    EXPECT_EQ(RunBatch({"centroids", path, "--out", ""}), (BatchResult{0, "", ""}));
    EXPECT_EQ(RunBatch({"centroids", folder / "none.shp", "--out", ""}).Status, 4);
}

TEST(CentroidsCommand, TakesRelativePaths) {
    const TemporaryFolder folder;
    WriteTwoSquares(folder, "two");
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(RunBatch({"centroids", "./two.shp", "--out", "-"}), (BatchResult{0, OfTwoSquares, ""}));
    std::filesystem::create_directory("inner");
    std::filesystem::current_path("inner");
    EXPECT_EQ(RunBatch({"centroids", "../two.shp", "--out", "-"}), (BatchResult{0, OfTwoSquares, ""}));
}

TEST(CentroidsCommand, RefusesALongBaseName) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunBatch({"centroids", WriteTwoSquares(folder, "district9"), "--out", folder / "c.txt"}),
              (BatchResult{3, "", "The length of filename should be less than 8.\n"}));
    EXPECT_FALSE(std::filesystem::exists(folder / "c.txt"));
    EXPECT_EQ(RunBatch({"centroids", WriteTwoSquares(folder, "district"), "--out", "-"}).Status, 0);
}

TEST(CentroidsCommand, StopsWhereAFileCannotBeOpened) {
    const TemporaryFolder folder;
    const auto missing = RunBatch({"centroids", folder / "gone.shp", "--out", folder / "c.txt"});
    EXPECT_EQ(missing.Status, 4);
    EXPECT_EQ(missing.Errors.find("Run-time error '53':\n\nFile not found"), 0u) << missing;
    const auto directory = RunBatch({"centroids", folder.Path(), "--out", folder / "c.txt"});
    EXPECT_EQ(directory.Status, 4);
    EXPECT_EQ(directory.Errors.find("Run-time error '75':"), 0u) << directory;
    const std::string path = WriteTwoSquares(folder, "two");
    std::filesystem::remove(folder / "two.shx");
    const auto noIndex = RunBatch({"centroids", path, "--out", folder / "c.txt"});
    EXPECT_EQ(noIndex.Status, 4);
    EXPECT_EQ(noIndex.Errors.find("Run-time error '-2147220980 (8004020c)':\n\nThe specified file "), 0u)
        << noIndex;
    EXPECT_FALSE(std::filesystem::exists(folder / "c.txt"));
}

TEST(CentroidsCommand, GoesOnWithoutATable) {
    const TemporaryFolder folder;
    const std::string path = WriteTwoSquares(folder, "two");
    std::filesystem::remove(folder / "two.dbf");
    const auto result = RunBatch({"centroids", path, "--out", "-"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output, OfTwoSquares);
    EXPECT_NE(result.Errors.find("The attribute table " + (folder / "two.dbf") + " was not found."),
              std::string::npos)
        << result;
}

TEST(CentroidsCommand, StopsAtAFaultAndLeavesTheFile) {
    const TemporaryFolder folder;
    ShapefileBytes bytes(5);
    bytes.Add(PolygonContents({{{0, 0}, {1, 1}, {0, 0}}}));
    folder.Write("flat.dbf", TableBytes({{"ID", 'N', 5}}, {{"    1"}}));
    const std::string out = folder.Write("c.txt", "older");
    const auto result = RunBatch({"centroids", bytes.WritePair(folder, "flat"), "--out", out});
    EXPECT_EQ(result.Status, 4);
    EXPECT_EQ(result.Errors, "Run-time error '11':\n\nDivision by zero\nPart 1 of Region 1.\n");
    EXPECT_EQ(ReadFile(out), "older");
}

TEST(CentroidsCommand, StopsAtShapesThatAreNoPolygons) {
    const TemporaryFolder folder;
    folder.Write("other.dbf", TableBytes({{"ID", 'N', 5}}, {{"    1"}}));
    const auto of = [&](int type, const std::string& contents) {
        ShapefileBytes bytes(type);
        bytes.Add(contents);
        return RunBatch({"centroids", bytes.WritePair(folder, "other"), "--out", "-"});
    };
    const std::pair<BatchResult, const char*> cases[] = {
        {of(1, PointContents(1, 2)), "Run-time error '9':"}, // there are no polygons to compute with
        {of(3, PolygonContents({{{0, 0}, {1, 2}}}, 3)), "Run-time error '9':"},
        {of(8, MultiPointContents({{1, 2}})),
         "Run-time error '-2147220987 (80040205)':\n\nIndex Record does not match main file Record"},
        {of(15, PolygonContents({{{0, 0}, {1, 2}}}, 15)), "Run-time error '9999':\n\nUnsupported shape type"},
    };
    for (const auto& [result, errors] : cases) {
        EXPECT_EQ(result.Status, 4) << result;
        EXPECT_EQ(result.Errors.find(errors), 0u) << result;
    }
}

TEST(CentroidsCommand, TellsWrongUse) {
    EXPECT_EQ(RunBatch({"centroids"}).Status, 2);
    EXPECT_EQ(RunBatch({"centroids", "nc.shp"}).Status, 2);
    EXPECT_EQ(RunBatch({"centroids", "--help"}).Status, 0);
}
