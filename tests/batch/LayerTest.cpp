#include "support/AttributeData.h"
#include "support/BatchProgram.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

Words With(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

BatchResult RunFive(const Words& more) {
    return RunBatch(
        With({"retrospective-points", InProject("tests/golden/five.txt"), "--format", "obs-exp"}, more));
}

/// Three unit squares with a text that names them.
class LayerOfPolygons : public testing::Test {
protected:
    LayerOfPolygons() {
        WriteDataset(Folder, "three", {{"KEY", 'C', 4}, {"POP", 'N', 8}, {"CASES", 'N', 4}},
                     {{"a", "100", "1"}, {"b", "300", "2"}, {"c", "600", "7"}});
    }

    BatchResult Run(const Words& more) const {
        return RunBatch(With({"retrospective-polygons", Folder / "three.shp", "--pop", "POP", "--cases",
                              "CASES", "--id", "KEY"},
                             more));
    }
    /// The names in the folder, in order.
    Words Names() const {
        Words names;
        for (const auto& entry : fs::directory_iterator(Folder.Path()))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    const Words Dataset{"three.dbf", "three.shp", "three.shx"};
    TemporaryFolder Folder;
};

} // namespace

TEST_F(LayerOfPolygons, IsOneShapefileWithAllThatGoesWithIt) {
    Folder.Write("three.prj", "PROJCS[\"x\"] \n");
    EXPECT_EQ(Run({"--sigma", "1", "--layer", Folder / "a, ö.SHP"}), (BatchResult{0, "", ""}));
    EXPECT_EQ(Names(), (Words{"a, ö.SHP", "a, ö.cpg", "a, ö.dbf", "a, ö.prj", "a, ö.shx", "three.dbf",
                              "three.prj", "three.shp", "three.shx"}));
    EXPECT_EQ(ReadFile(Folder / "a, ö.prj"), "PROJCS[\"x\"] \n");
    EXPECT_EQ(ReadFile(Folder / "a, ö.cpg"), "UTF-8");
}

TEST_F(LayerOfPolygons, CanBeOpenedAsADatasetAgain) {
    ASSERT_EQ(Run({"--sigma", "1", "--layer", Folder / "again.shp", "--lists", Folder / "first"}).Status, 0);
    const auto again = RunBatch({"retrospective-polygons", Folder / "again.shp", "--obs", "OBS", "--exp",
                                 "EXP", "--id", "ID", "--sigma", "1"});
    EXPECT_EQ(again, (BatchResult{0, ReadFile(Folder / "first"), ""}));
}

TEST_F(LayerOfPolygons, NotesACoordinateSystemOfItsOwn) {
    Folder.Write("three.prj", "PROJCS[\"x\"]");
    const Words words{"--sigma", "1", "--layer", Folder / "a.geojson"};
    const auto noted = Run(words);
    EXPECT_EQ(noted, (BatchResult{0, "",
                                  "a.geojson: the coordinates are not longitude and latitude; the layer "
                                  "names their system in the member \"crs\".\n"}));
    const auto bytes = ReadFile(Folder / "a.geojson");
    EXPECT_EQ(Run(With(words, {"--quiet"})), (BatchResult{0, "", ""}));
    EXPECT_EQ(ReadFile(Folder / "a.geojson"), bytes);
    Folder.Write("three.prj", "GEOGCS[\"x\"]");
    EXPECT_EQ(Run(words), (BatchResult{0, "", ""}));
    EXPECT_EQ(ReadFile(Folder / "a.geojson").find("crs"), std::string::npos);
}

TEST_F(LayerOfPolygons, NeverStandsOverAnInput) {
    Folder.Write("three.prj", "GEOGCS[\"x\"]");
    fs::create_symlink(Folder / "three.dbf", Folder / "link.dbf");
    fs::create_directory(Folder / "x");
    const auto before = Names();
    const auto shp = ReadFile(Folder / "three.shp"), dbf = ReadFile(Folder / "three.dbf");
    for (const Words& outputs : {Words{"--layer", Folder / "three.shp"},
                                 {"--layer", Folder / "x/../three.shp"},
                                 {"--layer", Folder / "link.shp"}, // its table is the dataset's
                                 {"--table", Folder / "three.prj"},
                                 {"--table", Folder / "three.dbf"}}) {
        const auto result = Run(With({"--sigma", "1", "--lists", Folder / "new"}, outputs));
        EXPECT_EQ(result.Status, 2) << result;
        EXPECT_NE(result.Errors.find(" is an input."), std::string::npos) << result;
    }
    EXPECT_EQ(Names(), before);
    EXPECT_EQ(ReadFile(Folder / "three.shp"), shp);
    EXPECT_EQ(ReadFile(Folder / "three.dbf"), dbf);
}

TEST_F(LayerOfPolygons, IsWrittenWholeOrNotAtAll) {
    fs::create_directory(Folder / "a.dbf"); // in the way of the table
    const auto before = Names();
    for (const auto& layer : {Folder / "a.shp", Folder / "no/such/folder/b.shp"}) {
        const auto result = Run({"--sigma", "1", "--table", Folder / "rows.csv", "--layer", layer});
        EXPECT_EQ(result.Status, 4) << result;
        EXPECT_EQ(Names(), before);
    }
    EXPECT_EQ(Run({"--sigma", "-1", "--layer", Folder / "b.shp"}).Status, 3);
    EXPECT_EQ(Names(), before);
}

TEST_F(LayerOfPolygons, IsNotTheOutputOfAnotherOption) {
    const auto result = Run({"--sigma", "1", "--layer", Folder / "a.shp", "--table", Folder / "a.dbf"});
    EXPECT_EQ(result.Status, 2) << result;
    EXPECT_EQ(Names(), Dataset);
}

TEST(Layer, TellsItsFormatByItsName) {
    const TemporaryFolder folder;
    for (const char* name : {"a", "a.json", "a.gpkg", "-", "shp"}) {
        const auto result =
            RunFive({"--sigma", "1", "--layer", name == std::string("-") ? name : folder / name});
        EXPECT_EQ(result.Status, 2) << result;
        EXPECT_NE(result.Errors.find("ends in none of: .geojson .shp"), std::string::npos) << result;
    }
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(Layer, HoldsAsManyStepsAsItsTable) {
    const TemporaryFolder folder;
    // ID, X, Y, OBS and EXP leave room for 250 of 255 columns.
    const Words steps250{"--from", "1", "--to", "250", "--step", "1"};
    const Words steps251{"--from", "1", "--to", "251", "--step", "1"};
    EXPECT_EQ(RunFive(With(steps250, {"--layer", folder / "a.shp"})).Status, 0);
    EXPECT_EQ(RunFive(With(steps251, {"--layer", folder / "a.geojson"})).Status, 0);
    const auto result = RunFive(With(steps251, {"--layer", folder / "b.shp"}));
    EXPECT_EQ(result, (BatchResult{2, "",
                                   folder / "b.shp" + " would have 256 columns, more than 255. Take a "
                                                      ".geojson file or fewer steps.\n"}));
    EXPECT_FALSE(fs::exists(folder / "b.shp"));
    // Texts that the test refuses are still refused by it.
    EXPECT_EQ(RunFive({"--from", "x", "--layer", folder / "b.shp"}).Status, 3);
    EXPECT_EQ(RunFive({"--step", "0", "--layer", folder / "b.shp"}).Status, 3);
    EXPECT_EQ(RunFive({"--step", "1e-9", "--layer", folder / "b.shp"}).Status, 4);
}

TEST(Table, GoesToStandardOutput) {
    const auto result = RunFive({"--sigma", "1", "--variable", "rossi", "--table", "-"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output.substr(0, result.Output.find('\n')), "ID,X,Y,OBS,EXP,M,CLASS");
    EXPECT_EQ(std::count(result.Output.begin(), result.Output.end(), '\n'), 6); // a header and five Regions
}

namespace {

BatchResult RunWatch(const Words& more) {
    return RunBatch(
        With({"prospective-points", "--ids", InProject("samples/watch_xy.txt"), "--z",
              InProject("samples/watch_z.txt"), "--previous", InProject("samples/watch_previous.txt")},
             more));
}

} // namespace

TEST(LayerOfAWatch, NeverStandsOverAnInput) {
    const TemporaryFolder folder;
    for (const char* input : {"watch_xy.txt", "watch_z.txt", "watch_previous.txt"}) {
        const auto path = InProject(std::string("samples/") + input);
        const auto before = ReadFile(path);
        const auto result = RunWatch({"--lists", folder / "new", "--table", path});
        EXPECT_EQ(result, (BatchResult{2, "", path + " is an input.\n"}));
        EXPECT_EQ(ReadFile(path), before);
    }
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(LayerOfAWatch, CountsSavedPeriodsOnPoints) {
    const auto table = RunWatch({"--table", "-"});
    EXPECT_EQ(table.Status, 0);
    // A header, and 12 saved and 24 new periods of 207 Regions.
    EXPECT_EQ(std::count(table.Output.begin(), table.Output.end(), '\n'), 1 + 36 * 207);
    EXPECT_EQ(table.Output.substr(0, table.Output.find('\n')), "ID,PERIOD,CUSUM,SIGNAL");
}

TEST(LayerOfAWatch, IsRefusedByNameBeforeTheRun) {
    const auto result = RunWatch({"--layer", "a.csv"});
    EXPECT_EQ(result, (BatchResult{2, "", "a.csv ends in none of: .geojson .shp\n"}));
}
