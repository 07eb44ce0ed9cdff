#include "support/BatchProgram.h"
#include "support/BatchProgramShell.h"
#include "support/BrokenBytes.h"
#include "support/FilledPipe.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <sys/stat.h>
#include <thread>

using namespace vastrel;

namespace {

using Json = nlohmann::ordered_json;
using Words = std::vector<std::string>;

const std::string Five = InProject("tests/golden/five.txt");
const std::string Ids = InProject("samples/watch_xy.txt"), Scores = InProject("samples/watch_z.txt");
const std::string Country = InProject("samples/country.shp");

Json JsonOf(Words words) {
    words.insert(words.end(), {"--json", "-"});
    const auto result = RunBatch(words);
    EXPECT_EQ(result.Status, 0) << result;
    return Json::parse(result.Output);
}

Words KeysOf(const Json& json) {
    Words keys;
    for (const auto& [key, value] : json.items())
        keys.push_back(key);
    return keys;
}

Words FirstKeys(const Json& json, size_t count) {
    auto keys = KeysOf(json);
    keys.resize(count);
    return keys;
}

/// What another program says of a file.
std::string DigestOf(const std::string& file) {
    const TemporaryFolder folder;
    EXPECT_EQ(std::system(("sha256sum '" + file + "' >'" + (folder / "sum") + "'").c_str()), 0);
    return ReadFile(folder / "sum").substr(0, 64);
}

Json InputOf(const std::string& file) {
    return {{"Path", file}, {"Bytes", std::filesystem::file_size(file)}, {"SHA256", DigestOf(file)}};
}

/// A folder with a configuration file in it.
struct Configured {
    explicit Configured(const std::string& toml) : File(Folder.Write("run.toml", toml)) {}
    TemporaryFolder Folder;
    std::string File;
};

} // namespace

TEST(Settings, StandAtTheHeadOfEachJson) {
    const Words head{"Program", "Settings", "Inputs", "NumRegion"};
    EXPECT_EQ(FirstKeys(JsonOf({"retrospective-points", Five, "--format", "obs-exp"}), 4), head);
    EXPECT_EQ(FirstKeys(JsonOf({"retrospective-polygons", Country, "--pop", "POP", "--cases", "CASES", "--id",
                                "NAME", "--sigma", "1"}),
                        4),
              head);
    EXPECT_EQ(FirstKeys(JsonOf({"prospective-points", "--ids", Ids, "--z", Scores}), 4), head);
    auto watch = JsonOf({"prospective-polygons", Country, "--z", Scores, "--id", "NAME"});
    EXPECT_EQ(FirstKeys(watch, 4), head);
    EXPECT_EQ(KeysOf(watch["Program"]), (Words{"Name", "Version"}));
    EXPECT_EQ("vastrel-batch " + watch["Program"]["Version"].get<std::string>() + "\n",
              RunBatch({"--version"}).Output);
}

TEST(Settings, TellEveryOptionInForce) {
    EXPECT_EQ(JsonOf({"retrospective-points", Five, "--format", "obs-exp", "--to", "1.0"})["Settings"],
              (Json{{"Command", "retrospective-points"},
                    {"FILE", Five},
                    {"format", "obs-exp"},
                    {"variable", "unadjusted"},
                    {"from", "0.2"},
                    {"to", "1.0"},
                    {"step", "0.2"},
                    {"alpha", "0.05"},
                    {"json", "-"},
                    {"surface", "5595,4275,369,281"},
                    {"zoom", "1.2"}}));
    auto single = JsonOf({"retrospective-points", Five, "--format", "obs-exp", "--sigma", "1"});
    EXPECT_EQ(single["Settings"]["sigma"], "1");
    for (const auto* range : {"from", "to", "step"})
        EXPECT_FALSE(single["Settings"].contains(range)) << range;
}

TEST(Settings, OfAWatchTellHowItStarts) {
    auto zero = JsonOf({"prospective-points", "--ids", Ids, "--z", Scores})["Settings"];
    EXPECT_EQ(zero["start"], "zero");
    EXPECT_EQ(zero["k"], "0.5");
    EXPECT_EQ(zero["h"], "9.3");
    EXPECT_EQ(zero["sigma"], "0");
    EXPECT_EQ(zero["surface"], "6400,4110,423,270");
    const Words onward{"prospective-points",
                       "--ids",
                       Ids,
                       "--z",
                       Scores,
                       "--previous",
                       InProject("samples/watch_previous.txt")};
    EXPECT_EQ(JsonOf(onward)["Settings"]["start"], "previous");
    auto polygons =
        JsonOf({"prospective-polygons", Country, "--fields", "OBS01", "OBS03", "--id", "NAME"})["Settings"];
    EXPECT_EQ(polygons["fields"], (Json{"OBS01", "OBS03"}));
    EXPECT_FALSE(polygons.contains("show")) << "goes with an earlier watch only";
}

TEST(Settings, ComeWithTheFilesThatWereRead) {
    auto points = JsonOf({"prospective-points", "--ids", Ids, "--z", Scores});
    EXPECT_EQ(points["Inputs"], (Json::array({InputOf(Ids), InputOf(Scores)})));
    auto polygons = JsonOf({"prospective-polygons", Country, "--z", Scores, "--id", "NAME"});
    const std::string stem = Country.substr(0, Country.size() - 3);
    EXPECT_EQ(polygons["Inputs"],
              (Json::array({InputOf(Country), InputOf(stem + "shx"), InputOf(stem + "dbf"),
                            InputOf(stem + "cpg"), InputOf(Scores)})));
}

TEST(Settings, TellTheBytesOfAPipe) {
    const TemporaryFolder folder;
    const auto pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string bytes = ReadFile(Scores);
    std::thread writer([&] { folder.Write("pipe", bytes); });
    auto json = JsonOf({"prospective-points", "--ids", Ids, "--z", pipe});
    writer.join();
    EXPECT_EQ(json["Inputs"][1],
              (Json{{"Path", pipe}, {"Bytes", bytes.size()}, {"SHA256", DigestOf(Scores)}}));
}

TEST(Settings, NamePathsAsTheyWereGiven) {
    std::filesystem::current_path(InProject("samples"));
    auto json = JsonOf({"retrospective-polygons", "./country.shp", "--pop", "POP", "--cases", "CASES", "--id",
                        "NAME", "--sigma", "1"});
    EXPECT_EQ(json["Settings"]["FILE"], "./country.shp");
    EXPECT_EQ(json["Inputs"][0]["Path"], "./country.shp");
    EXPECT_EQ(json["Inputs"][2]["Path"], "./country.dbf");
}

TEST(Settings, NameTheRegions) {
    auto points = JsonOf({"retrospective-points", Five, "--format", "obs-exp", "--sigma", "1"});
    EXPECT_EQ(points["RegionID"].size(), 5u);
    EXPECT_FALSE(points.contains("RegionID2"));
    const Words counts{"retrospective-polygons",
                       Country,
                       "--pop",
                       "POP",
                       "--cases",
                       "CASES",
                       "--sigma",
                       "1",
                       "--id",
                       "NAME",
                       "--id2",
                       "ID"};
    auto polygons = JsonOf(counts);
    EXPECT_EQ(polygons["RegionID"][0], "H0111");
    EXPECT_EQ(polygons["RegionID2"][0], "1");
    const auto keys = KeysOf(polygons);
    EXPECT_EQ((Words{keys[3], keys[4], keys[5], keys[6]}),
              (Words{"NumRegion", "RegionID", "RegionID2", "TotalShapeArea"}));
}

TEST(Settings, ComeFromAConfigurationFile) {
    const Configured head("format = \"obs-exp\"\nvariable = 'rossi'\nsigma = 1\n");
    const Configured section("[retrospective-points]\nformat = 'obs-exp'\nvariable = 'rossi'\nsigma = 1\n"
                             "[prospective-points]\nk = 1\n");
    const auto golden = ReadFile(InProject("tests/golden/five_rossi_single_lists.txt"));
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", head.File}), (BatchResult{0, golden, ""}));
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", section.File}).Output, golden);
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", section.File, "--sigma", "2"}),
              RunBatch({"retrospective-points", Five, "--format", "obs-exp", "--variable", "rossi", "--sigma",
                        "2"}));
    // A range on the line takes the place of the file's one bandwidth.
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", head.File, "--from", "0.4"}),
              RunBatch({"retrospective-points", Five, "--format", "obs-exp", "--variable", "rossi", "--from",
                        "0.4"}));
}

TEST(Settings, OfOtherCommandsComeFromAConfigurationFileToo) {
    const Configured file("option = 'bonferroni'\nk = 0.5\narl0 = 100\nregions = 207\n");
    EXPECT_EQ(RunBatch({"h-value", "--config", file.File}).Output, "8.084\n");
    const Configured series("fields = [\"OBS01\", \"OBS03\"]\nid = 'NAME'\n");
    EXPECT_EQ(RunBatch({"prospective-polygons", Country, "--config", series.File}),
              RunBatch({"prospective-polygons", Country, "--fields", "OBS01", "OBS03", "--id", "NAME"}));
}

TEST(Settings, ThatAreUnknownOrMissingAreTold) {
    const Configured unknown("format = 'obs-exp'\nsigmma = 1\n");
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", unknown.File}).Status, 2);
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", unknown.Folder / "none.toml"}).Errors,
              "Run-time error '53':\n\nFile not found\n" + (unknown.Folder / "none.toml") + "\n");
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", unknown.Folder.Path()}).Status, 4);
}

TEST(Settings, ComeFromAPipe) {
    const std::string toml = "format = \"obs-exp\"\nvariable = 'rossi'\nsigma = 1\n";
    const FilledPipe pipe(toml);
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--config", pipe.Path()}),
              RunBatch({"retrospective-points", Five, "--config", Configured(toml).File}));
}

TEST(Settings, WithoutEndAreRefused) {
    if (!std::filesystem::exists("/dev/zero")) GTEST_SKIP() << "There is no endless file here.";
    EXPECT_EQ(RunBatch({"retrospective-points", Five, "--format", "obs-exp", "--config", "/dev/zero"}),
              (BatchResult{4, "",
                           "Run-time error '7':\n\nOut of memory\nThe configuration file holds more than the "
                           "16 MB that may be read here.\n"}));
}

// Cut off at every byte, and every byte changed: the end is one of those that the program knows, and soon.
TEST(Settings, EndAtEveryByteAsTheProgramSays) {
    const std::vector<std::string> texts{
        "k = 0.5\n[h-value]\nregions = 7 # few\noption = 'bonferroni'\narl0 = \"100\"\n",
        R"({"Settings":{"Command":"h-value","option":"bonferroni","k":"0.5","arl0":"100","regions":"7"},"Inputs":[]})"};
    for (const std::string& sound : texts) {
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder / "broken");
        int count = 0;
        ForEachBroken(sound, 1, {0x01, 0x80}, [&](const auto& bytes, const auto&) {
            folder.Write("broken/" + std::to_string(count++), bytes);
        });
        const auto result =
            RunShell("cd '" + folder.Path() +
                     "'; for f in broken/*; do timeout 20 \"$BATCH\" h-value "
                     "--config $f >out 2>err; s=$?; case $s in 0) true;; 2|3|4) test ! -s out && test -s "
                     "err;; *) false;; esac && echo well; done | sort | uniq -c | tr -d ' '");
        EXPECT_EQ(result.Output, std::to_string(count) + "well\n");
    }
}
