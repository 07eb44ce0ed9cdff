#include "core/layer/SaveLayer.h"

#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

/// Two points with ids.
Layer TwoPoints() {
    Layer layer;
    layer.Rows.RowCount = 2;
    layer.Rows.AddTexts("ID", [](std::ptrdiff_t row) { return std::string(row == 1 ? "a" : "b"); });
    layer.PointOf = [](std::ptrdiff_t region) { return PointXY{0.5 * static_cast<double>(region), -1}; };
    return layer;
}

namespace fs = std::filesystem;

constexpr const char* Written = "{\n\"type\": \"FeatureCollection\",\n\"features\": [\n"
                                "{\"type\":\"Feature\",\"id\":1,\"properties\":{\"ID\":\"a\"},"
                                "\"geometry\":{\"type\":\"Point\",\"coordinates\":[0.5,-1]}},\n"
                                "{\"type\":\"Feature\",\"id\":2,\"properties\":{\"ID\":\"b\"},"
                                "\"geometry\":{\"type\":\"Point\",\"coordinates\":[1,-1]}}\n]\n}\n";

class SaveLayer : public testing::Test {
protected:
    size_t FileCount() const {
        return static_cast<size_t>(std::distance(fs::directory_iterator(Folder.Path()), {}));
    }
    void Choose(const std::string& path) { Script.ExpectFile(FileQuestion::Kind::Save, LayerFilter, path); }

    TemporaryFolder Folder;
    ScriptedPlatform Script;
};

} // namespace

TEST_F(SaveLayer, WritesTheChosenFile) {
    Choose(Folder.Write("a.geojson", "older"));
    SaveLayerAs(TwoPoints(), {});
    EXPECT_EQ(ReadFile(Folder / "a.geojson"), Written);
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(SaveLayer, EndsAtACancel) {
    Choose("");
    SaveLayerAs(TwoPoints(), {});
    EXPECT_EQ(FileCount(), 0U);
}

TEST_F(SaveLayer, AsksForAnEndingThatTellsTheFormat) {
    Choose(Folder / "a.json");
    Script.ExpectMessage("The name of a layer ends in .geojson or .shp.");
    SaveLayerAs(TwoPoints(), {});
    EXPECT_EQ(FileCount(), 0U);
}

// A range of many bandwidths has a column for each.
TEST_F(SaveLayer, TellsWhereATableDoesNotHoldAllColumns) {
    Layer layer = TwoPoints();
    for (int step = 1; step <= 255; ++step)
        layer.Rows.AddWholes("S" + std::to_string(step), [](std::ptrdiff_t row) { return row; });
    Choose(Folder / "a.shp");
    Script.ExpectMessage("a.shp would have 256 columns, more than 255. Take a .geojson file or fewer steps.");
    SaveLayerAs(layer, {});
    EXPECT_EQ(FileCount(), 0U);
    EXPECT_EQ(Script.DroppedInputs(), 0);
    layer.Rows.Columns.pop_back();
    Choose(Folder / "a.shp");
    SaveLayerAs(layer, {});
    EXPECT_EQ(FileCount(), 4U);
    EXPECT_EQ(Script.DroppedInputs(), 1); // while the files were written
}

TEST_F(SaveLayer, LeavesItsDatasetAlone) {
    for (const char* file : {"set.shp", "set.shx", "SET.DBF", "set.prj", "z.txt"})
        Folder.Write(file, "data");
    fs::create_symlink(Folder / "SET.DBF", Folder / "other.dbf");
    for (const auto& [layer, over] : {std::pair("set.shp", "set.shp"), std::pair("other.shp", "other.dbf")}) {
        Choose(Folder / layer);
        Script.ExpectMessage(std::string(over) + " is part of the dataset.");
        SaveLayerAs(TwoPoints(), {"", Folder / "set.shp", Folder / "z.txt"});
    }
    EXPECT_EQ(FileCount(), 6U);
    EXPECT_EQ(ReadFile(Folder / "set.shp") + ReadFile(Folder / "SET.DBF"), "datadata");
}

TEST_F(SaveLayer, TellsOfASystemOfItsOwn) {
    Layer layer = TwoPoints();
    layer.Projection = "PROJCS[\"x\"]";
    Choose(Folder / "a.geojson");
    Script.ExpectMessage("a.geojson: the coordinates are not longitude and latitude; the layer names their "
                         "system in the member \"crs\".",
                         "Vastrel", Message::Icon::Plain);
    SaveLayerAs(layer, {});
    EXPECT_EQ(FileCount(), 1U);
}

TEST_F(SaveLayer, WritesAllFilesOfAShapefileOrNone) {
    fs::create_directory(Folder / "a.dbf");
    Choose(Folder / "a.shp");
    EXPECT_EQ(ErrorNumberOf([] { SaveLayerAs(TwoPoints(), {}); }), PathFileAccessError);
    EXPECT_EQ(FileCount(), 1U);
    Choose(Folder / "b.shp");
    SaveLayerAs(TwoPoints(), {});
    EXPECT_EQ(FileCount(), 1U + 4U); // .shp, .shx, .dbf and .cpg
}
