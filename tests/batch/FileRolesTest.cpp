#include "support/BatchProgram.h"
#include "support/BatchProgramShell.h"
#include "support/SampleRuns.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;

/// A folder with inputs of all kinds.
class FileRolesTest : public testing::Test {
protected:
    FileRolesTest() {
        CopySamples(folder_, {"watch_xy.txt", "watch_z.txt", "watch_previous.csm", "watch_previous.txt",
                              "country.shp", "country.shx", "country.dbf", "country_pop.txt"});
    }

    std::string In(const std::string& name) const { return folder_ / name; }

    Words RetroPoints() const {
        return {"retrospective-points", In("country_pop.txt"), "--format", "pop-case", "--sigma", "1"};
    }
    Words RetroPolygons() const { return runs_.RetroPolygons() + Words{"--sigma", "1"}; }
    Words WatchPoints() const { return runs_.WatchPoints(); }
    Words WatchPolygons() const {
        return runs_.WatchPolygons() + Words{"--previous", In("watch_previous.csm")};
    }
    Words Export() const {
        return {"export", In("country.shp"), "--obs",    "OBS01",   "OBS24",   "--exp",
                "EXP01",  "EXP24",           "--option", "poisson", "--sigma", "0"};
    }
    Words Centroids() const { return {"centroids", In("country.shp")}; }

    /// Status 2 with both texts in the message, and every file as it was.
    void ExpectRefused(const Words& words, const std::string& one, const std::string& other) const {
        const auto before = Everything();
        const auto result = RunBatch(words);
        EXPECT_EQ(result.Status, 2) << testing::PrintToString(words);
        EXPECT_EQ(result.Output, "");
        EXPECT_NE(result.Errors.find(one), std::string::npos) << result;
        EXPECT_NE(result.Errors.find(other), std::string::npos) << result;
        EXPECT_EQ(Everything(), before) << testing::PrintToString(words);
    }

    std::vector<std::pair<std::string, std::string>> Everything() const {
        std::vector<std::pair<std::string, std::string>> all;
        for (const auto& entry : fs::recursive_directory_iterator(folder_.Path()))
            all.emplace_back(entry.path().string(), entry.is_regular_file() ? ReadFile(entry.path()) : "");
        std::sort(all.begin(), all.end());
        return all;
    }

    TemporaryFolder folder_;
    SampleRuns runs_{folder_.Path() + "/"};
};

} // namespace

TEST_F(FileRolesTest, NoOutputIsAnInput) {
    const std::vector<std::tuple<Words, Words, Words>> commands{
        {RetroPoints(), {"country_pop.txt"}, {"--lists", "--report", "--json"}},
        {RetroPolygons(), {"country.shp", "country.shx", "country.dbf"}, {"--lists", "--report", "--json"}},
        {WatchPoints(),
         {"watch_xy.txt", "watch_z.txt", "watch_previous.txt"},
         {"--lists", "--report", "--cusum", "--json", "--maps"}},
        {WatchPolygons(),
         {"country.shp", "country.dbf", "watch_z.txt", "watch_previous.csm"},
         {"--lists", "--report", "--json", "--maps"}},
        {Export(), {"country.shp", "country.shx", "country.dbf"}, {"--out"}},
        {Centroids(), {"country.shp", "country.shx", "country.dbf"}, {"--out"}},
    };
    for (const auto& [command, inputs, outputs] : commands)
        for (const auto& input : inputs)
            for (const auto& output : outputs)
                ExpectRefused(command + Words{output, In(input)}, " is an input.", folder_.Path());
}

TEST_F(FileRolesTest, AShapefileIsOneInAnyCaseOfItsEnding) {
    fs::rename(In("country.shp"), In("country.Shp"));
    for (const auto* file : {"country.Shp", "country.shx", "country.dbf", "country.prj"})
        ExpectRefused({"centroids", In("country.Shp"), "--out", In(file)}, " is an input.", In(file));
}

TEST_F(FileRolesTest, SettingsAreInputsToo) {
    const auto json = In("run.json");
    ASSERT_EQ(RunBatch(RetroPoints() + Words{"--json", json}).Status, 0);
    const auto settings = folder_.Write("run.toml", "[centroids]\nFILE = \"" + In("country.shp") + "\"\n");
    ExpectRefused({"centroids", "--config", settings, "--out", settings}, " is an input.", folder_.Path());
    ExpectRefused({"again", json, "--lists", In("country_pop.txt")}, " is an input.", folder_.Path());
    EXPECT_EQ(RunBatch({"again", json, "--lists", In("l")}).Status, 0);
}

TEST_F(FileRolesTest, PicturesAreNoInputs) {
    if (!VASTREL_PICTURES) GTEST_SKIP() << "built without pictures";
    const auto input = In("points.png");
    fs::rename(In("country_pop.txt"), input);
    const Words points{"retrospective-points", input, "--format", "pop-case"};
    ExpectRefused(points + Words{"--sigma", "1", "--map", input}, " is an input.", folder_.Path());
    ExpectRefused(points + Words{"--chart", input}, " is an input.", folder_.Path());
}

TEST_F(FileRolesTest, AnotherSpellingIsTheSameFile) {
    fs::create_directory(In("deep"));
    fs::create_directory_symlink(In("deep"), In("way"));
    fs::create_symlink("../watch_z.txt", In("deep/link"));
    fs::create_hard_link(In("watch_z.txt"), In("hard"));
    fs::create_symlink("hard", In("link of hard"));
    for (const std::string spelling : {"/./watch_z.txt", "/deep/../watch_z.txt", "/deep/link", "/way/link",
                                       "//watch_z.txt", "/hard", "/link of hard"})
        ExpectRefused(WatchPoints() + Words{"--lists", folder_.Path() + spelling}, " is an input.",
                      folder_.Path());
    fs::current_path(folder_.Path());
    ExpectRefused(WatchPoints() + Words{"--lists", "watch_z.txt"}, " is an input.", "watch_z.txt");
    ExpectRefused(WatchPoints() + Words{"--cusum", "new/../watch_z.txt", "--maps", "./watch_z.txt"},
                  " is an input.", "watch_z.txt");
}

// Where the folder is to be made, what its ".." leads to is there by the time of the writing.
TEST_F(FileRolesTest, AFolderThatIsStillToBeMadeHidesNoFile) {
    if (!VASTREL_PICTURES) GTEST_SKIP() << "built without pictures";
    for (const std::string way : {"/made/..", "/made/./deep/../..", "//made/.."}) {
        const Words words = WatchPoints() + Words{"--maps", In("made/deep"), "--lists"};
        ExpectRefused(words + Words{folder_.Path() + way + "/watch_xy.txt"}, " is an input.", folder_.Path());
        ExpectRefused(words + Words{folder_.Path() + way + "/new", "--json", In("new")}, "--lists", "--json");
    }
}

TEST_F(FileRolesTest, StandardOutputIsNoInputEither) {
    const std::string run = "cd '" + folder_.Path() + "' && \"$BATCH\" ";
    for (const std::string words : {"retrospective-points country_pop.txt --format pop-case --sigma 1",
                                    "retrospective-points country_pop.txt --format pop-case --report -"}) {
        const auto before = Everything();
        const auto result = RunShell(run + words + " >> country_pop.txt");
        EXPECT_EQ(result, (BatchResult{2, "", "Standard output is an input.\n"})) << words;
        EXPECT_EQ(Everything(), before) << words;
    }
}

TEST_F(FileRolesTest, NoTwoOutputsAreOne) {
    fs::create_directory(In("deep"));
    fs::create_directory_symlink(In("deep"), In("way"));
    fs::create_symlink("not there yet", In("dangling"));
    folder_.Write("old", "before");
    fs::create_hard_link(In("old"), In("hard"));
    for (const auto& [one, other] : {std::pair("new", "new"), std::pair("new", "./new"),
                                     std::pair("deep/new", "way/new"), std::pair("dangling", "not there yet"),
                                     std::pair("old", "hard"), std::pair("none/new", "none//new")})
        ExpectRefused(RetroPoints() + Words{"--lists", In(one), "--json", In(other)}, In(one), In(other));
    ExpectRefused(RetroPoints() + Words{"--lists", "/dev/null", "--json", "/dev/null"}, "--lists /dev/null",
                  "--json /dev/null");
}

TEST_F(FileRolesTest, ThePicturesOfPeriodsAreOutputsToo) {
    if (!VASTREL_PICTURES) GTEST_SKIP() << "built without pictures";
    for (const std::string maps : {"maps", "made"}) {
        if (maps == "made") fs::create_directory(In(maps));
        ExpectRefused(WatchPoints() + Words{"--maps", In(maps), "--lists", In(maps)}, "--maps", "--lists");
        ExpectRefused(WatchPoints() + Words{"--maps", In(maps), "--lists", In(maps + "/period07.png")},
                      "--maps", "--lists");
    }
    fs::create_hard_link(In("watch_z.txt"), In("made/period03.png"));
    ExpectRefused(WatchPoints() + Words{"--maps", In("made")}, " is an input.", folder_.Path());
}

TEST_F(FileRolesTest, StandardOutputMayBeTheFileOfNoOther) {
    const auto run =
        RunBatch(RetroPoints() + Words{"--lists", "-", "--report", "-", "--json", "/dev/stdout"});
    EXPECT_EQ(run.Status, 0) << run;
    const auto separate = RunBatch(RetroPoints() + Words{"--lists", In("l"), "--report", In("r")});
    EXPECT_EQ(separate, (BatchResult{0, "", ""}));
    EXPECT_EQ(run.Output.rfind(ReadFile(In("l")) + ReadFile(In("r")) + "{", 0), 0U);
}

TEST_F(FileRolesTest, OtherFilesAreFree) {
    fs::create_hard_link(In("watch_previous.csm"), In("hard"));
    EXPECT_EQ(RunBatch(RetroPoints() + Words{"--lists", In("hard"), "--json", "/dev/null"}).Status, 0);
    EXPECT_EQ(RunBatch(Centroids() + Words{"--out", In("country.txt")}).Status, 0);
    if (!VASTREL_PICTURES) GTEST_SKIP() << "built without pictures";
    const auto run = RunBatch(WatchPoints() + Words{"--maps", In("maps"), "--chart", In("maps/chart.png")});
    EXPECT_EQ(run, (BatchResult{0, "", ""}));
}
