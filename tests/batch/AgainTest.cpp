#include "support/BatchProgram.h"
#include "support/FilledPipe.h"
#include "support/SampleRuns.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

/// A folder with copies of the samples, which is the current folder of the test.
class Again : public testing::Test {
protected:
    Again() {
        CopySamples(folder_, {"country.shp", "country.shx", "country.dbf", "country.cpg", "country_exp.txt",
                              "watch_xy.txt", "watch_z.txt", "watch_previous.txt"});
        fs::current_path(folder_.Path());
    }

    /// Runs a command into out.json and gives its bytes.
    std::string First(Words words) const {
        words.insert(words.end(), {"--json", "out.json"});
        const auto result = RunBatch(words);
        EXPECT_EQ(result.Status, 0) << result;
        return ReadFile("out.json");
    }

    void Append(const std::string& name, const std::string& bytes) const {
        folder_.Write(name, ReadFile(name) + bytes);
    }

    const Words Points{"retrospective-points", "country_exp.txt", "--format", "obs-exp",
                       "--variable",           "rossi",           "--sigma",  "1"};
    const Words Polygons = SampleRuns().RetroPolygons() + Words{"--id2", "ID", "--variable", "freeman-tukey"};
    const Words WatchPoints = SampleRuns().WatchPoints() + Words{"--sigma", "1"};
    const Words WatchPolygons = SampleRuns().WatchPolygons();

    TemporaryFolder folder_;
};

} // namespace

TEST_F(Again, GivesTheSameBytes) {
    for (const auto& words : {Points, Polygons, WatchPoints, WatchPolygons}) {
        const auto before = First(words);
        fs::rename("out.json", "earlier.json");
        EXPECT_EQ(RunBatch({"again", "earlier.json"}), (BatchResult{0, "", ""})) << words[0];
        EXPECT_EQ(ReadFile("out.json"), before) << words[0];
        EXPECT_EQ(RunBatch({"again", "out.json"}).Status, 0); // and writes the file that it has read
        EXPECT_EQ(ReadFile("out.json"), before) << words[0];
    }
}

TEST_F(Again, WritesAllOutputsOnceMore) {
    auto words = Points;
    words.insert(words.end(), {"--lists", "lists, 1.txt", "--report", "report.txt"});
    First(words);
    const auto lists = ReadFile("lists, 1.txt"), report = ReadFile("report.txt");
    fs::remove("lists, 1.txt");
    fs::remove("report.txt");
    EXPECT_EQ(RunBatch({"again", "out.json"}).Status, 0);
    EXPECT_EQ(ReadFile("lists, 1.txt"), lists);
    EXPECT_EQ(ReadFile("report.txt"), report);
}

TEST_F(Again, PutsTheLineBeforeTheSettings) {
    First(Points);
    fs::rename("out.json", "earlier.json");
    const std::pair<Words, Words> changes[] = {
        {{"--sigma", "2"}, {"--variable", "rossi", "--sigma", "2"}},
        {{"--variable", "adjusted"}, {"--variable", "adjusted", "--sigma", "1"}},
        {{"--to", "1"}, {"--variable", "rossi", "--to", "1"}}}; // a range instead of the one bandwidth
    for (const auto& [more, all] : changes) {
        Words again{"again", "earlier.json"},
            direct{"retrospective-points", "country_exp.txt", "--format", "obs-exp"};
        again.insert(again.end(), more.begin(), more.end());
        direct.insert(direct.end(), all.begin(), all.end());
        EXPECT_EQ(RunBatch(again), (BatchResult{0, "", ""}));
        const auto changed = ReadFile("out.json");
        EXPECT_EQ(changed, First(direct));
        EXPECT_EQ(RunBatch({"again", "out.json"}).Status, 0); // the settings hold what the line has changed
        EXPECT_EQ(ReadFile("out.json"), changed);
    }
}

TEST_F(Again, TakesAnotherFileAndAnotherPairOfColumns) {
    First(Polygons);
    EXPECT_EQ(RunBatch({"again", "out.json", "--obs", "CASES", "--exp", "EXPECTED"}),
              (BatchResult{0, "", ""}));
    auto settings = Json::parse(ReadFile("out.json"))["Settings"];
    EXPECT_EQ(settings["obs"], "CASES");
    EXPECT_FALSE(settings.contains("pop"));
    First(Points);
    fs::copy_file("country_exp.txt", "other.txt");
    EXPECT_EQ(RunBatch({"again", "out.json", "other.txt", "--strict"}), (BatchResult{0, "", ""}));
    EXPECT_EQ(Json::parse(ReadFile("out.json"))["Inputs"][0]["Path"], "other.txt");
}

TEST_F(Again, ContinuesAWatchThatBeganAtZero) {
    First({"prospective-points", "--ids", "watch_xy.txt", "--z", "watch_z.txt"});
    EXPECT_EQ(RunBatch({"again", "out.json", "--previous", "watch_previous.txt"}), (BatchResult{0, "", ""}));
    EXPECT_EQ(Json::parse(ReadFile("out.json"))["Settings"]["start"], "previous");
}

TEST_F(Again, NamesAFileThatHasChanged) {
    const auto before = First(WatchPolygons);
    Append("watch_z.txt", "\n"); // one line more than there are Regions would stop the run
    folder_.Write("watch_z.txt", ReadFile(InProject("samples/watch_z.txt")).replace(0, 7, "-0.7567"));
    const std::string what = "watch_z.txt is not what it was: its SHA-256 differs.\n";
    EXPECT_EQ(RunBatch({"again", "out.json", "--strict"}), (BatchResult{3, "", what}));
    EXPECT_EQ(RunBatch({"again", "--strict", "out.json"}), (BatchResult{3, "", what}));
    EXPECT_EQ(RunBatch({"again", "out.json", "--k", "1", "--strict"}), (BatchResult{3, "", what}));
    EXPECT_EQ(ReadFile("out.json"), before);
    EXPECT_EQ(RunBatch({"again", "out.json"}), (BatchResult{0, "", "Note: " + what}));
    EXPECT_NE(ReadFile("out.json"), before);
    EXPECT_EQ(RunBatch({"again", "out.json", "--strict"}).Status, 0); // what is written now is in force
}

TEST_F(Again, NamesAFileOfTheShapefileThatCameOrWent) {
    First(WatchPolygons);
    fs::rename("country.cpg", "elsewhere");
    EXPECT_EQ(RunBatch({"again", "out.json", "--strict"}),
              (BatchResult{3, "", "country.cpg is not there any more.\n"}));
    EXPECT_EQ(RunBatch({"again", "out.json"}).Errors, "Note: country.cpg is not there any more.\n");
    fs::rename("elsewhere", "country.cpg");
    EXPECT_EQ(RunBatch({"again", "out.json", "--strict"}),
              (BatchResult{3, "", "country.cpg was not there before.\n"}));
}

TEST_F(Again, FailsWhereThePathsDoNotLead) {
    const auto before = First(Points);
    fs::create_directory("elsewhere");
    fs::current_path("elsewhere");
    const auto result = RunBatch({"again", "../out.json"});
    EXPECT_EQ(result.Status, 4);
    EXPECT_NE(result.Errors.find("elsewhere/country_exp.txt"), std::string::npos) << result;
    EXPECT_TRUE(fs::is_empty("."));
    EXPECT_EQ(ReadFile("../out.json"), before);
}

TEST_F(Again, RefusesWhatHoldsNoSettings) {
    const std::string none = "The file holds no settings of an earlier run.\n";
    for (const std::string text : {"", "{", "[]", "{}", "{\"Settings\": 1, \"Inputs\": []}",
                                   "{\"Settings\": {\"Command\": \"p-value\", \"k\": 1}, \"Inputs\": []}"}) {
        folder_.Write("bad.json", text);
        EXPECT_EQ(RunBatch({"again", "bad.json"}), (BatchResult{3, "", none})) << text;
    }
    folder_.Write("bad.json", "{\"Settings\": {\"Command\": \"again\"}, \"Inputs\": []}");
    EXPECT_EQ(RunBatch({"again", "bad.json"}).Status, 3);
    EXPECT_EQ(RunBatch({"again", "no.json"}).Status, 4);
    EXPECT_EQ(RunBatch({"again", folder_.Path()}).Status, 4);
    EXPECT_EQ(RunBatch({"again"}).Status, 2);
    First(Points);
    EXPECT_EQ(RunBatch({"again", "out.json", "--no-such"}).Status, 2);
    EXPECT_EQ(RunBatch({"again", "out.json", "--sigma", "x"}),
              (BatchResult{3, "", "Bandwidth should be numerical.\n"}));
}

TEST_F(Again, ReadsAPipeOnce) {
    const auto before = First(Points);
    const FilledPipe pipe(before);
    EXPECT_EQ(RunBatch({"again", pipe.Path(), "--json", "piped.json"}), (BatchResult{0, "", ""}));
    auto settings = Json::parse(ReadFile("piped.json"));
    settings["Settings"]["json"] = "out.json";
    EXPECT_EQ(settings, Json::parse(before));
}

TEST_F(Again, PassesOverTheResults) {
    auto json = Json::parse(First(Points));
    json["Further"] = std::vector<int>(1500000, 1); // more than settings have
    folder_.Write("earlier.json", json.dump());
    EXPECT_EQ(RunBatch({"again", "earlier.json"}).Status, 0);
}

TEST_F(Again, RefusesSettingsWithoutEnd) {
    auto wide = Json::parse(First(Points));
    wide["Settings"]["sigma"] = Words(1500000, "1");
    auto deep = Json::parse(ReadFile("out.json"));
    deep["Settings"]["sigma"] = "?";
    const std::string brackets(100000, '[');
    auto text = deep.dump();
    text.replace(text.find("\"?\""), 3, brackets + std::string(100000, ']'));
    const BatchResult refused{3, "", "The file holds no settings of an earlier run.\n"};
    for (const auto& bytes : {wide.dump(), text, brackets}) {
        folder_.Write("earlier.json", bytes);
        EXPECT_EQ(RunBatch({"again", "earlier.json"}), refused);
        EXPECT_EQ(RunBatch({"retrospective-points", "country_exp.txt", "--config", "earlier.json"}).Status,
                  bytes == brackets ? 2 : 3);
    }
}
