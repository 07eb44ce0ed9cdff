// Inputs that are no ordinary files: every text comes from one reading, and a shapefile is refused.
#include "support/BatchProgram.h"
#include "support/BatchProgramShell.h"
#include "support/FilledPipe.h"
#include "support/ProjectFolder.h"
#include "support/SampleRuns.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

std::string Sample(const std::string& name) {
    return InProject("samples/" + name);
}

/// A command with a sample of a text input behind its words, once as a file and once as a pipe: the same JSON
/// but for the input's own name, checksums included.
void ExpectTheSameFromAPipe(std::vector<std::string> words, const std::string& input) {
    words.insert(words.begin() + 1, {"--json", "-"});
    words.push_back(Sample(input));
    const auto file = RunBatch(words);
    EXPECT_EQ(file.Status, 0) << input;
    EXPECT_GT(file.Output.size(), 1000U) << input;
    const FilledPipe pipe(ReadFile(Sample(input)));
    words.back() = pipe.Path();
    auto piped = RunBatch(words);
    for (size_t at = 0; (at = piped.Output.find(pipe.Path(), at)) != std::string::npos;)
        piped.Output.replace(at, pipe.Path().size(), Sample(input));
    EXPECT_EQ(piped, file) << input;
}

const std::vector<std::string> Points{"prospective-points", "--k", "0.5", "--h", "2", "--sigma", "0"};
const std::vector<std::string> Polygons{"prospective-polygons", "--k",  "0.5", "--h", "2", "--sigma", "0",
                                        Sample("country.shp"),  "--id", "NAME"};

std::vector<std::string> With(std::vector<std::string> words, const std::vector<std::string>& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

} // namespace

TEST(PipedInput, GivesThePointsOfTheRetrospectiveTest) {
    ExpectTheSameFromAPipe({"retrospective-points", "--format", "pop-case", "--sigma", "1"},
                           "country_pop.txt");
}

TEST(PipedInput, GivesTheFilesOfAWatchOnPoints) {
    const std::vector<std::string> ids{"--ids", Sample("watch_xy.txt")}, z{"--z", Sample("watch_z.txt")};
    ExpectTheSameFromAPipe(With(With(Points, z), {"--ids"}), "watch_xy.txt");
    ExpectTheSameFromAPipe(With(With(Points, ids), {"--z"}), "watch_z.txt");
    ExpectTheSameFromAPipe(With(With(With(Points, ids), z), {"--previous"}), "watch_previous.txt");
}

TEST(PipedInput, GivesTheFilesOfAWatchOnPolygons) {
    ExpectTheSameFromAPipe(With(Polygons, {"--z"}), "watch_z.txt");
    ExpectTheSameFromAPipe(With(Polygons, {"--z", Sample("watch_z.txt"), "--previous"}),
                           "watch_previous.csm");
}

TEST(PipedInput, IsRefusedForAShapefile) {
    const TemporaryFolder folder;
    for (const char* name : {"pipe.shp", "pair.shx"})
        ASSERT_EQ(mkfifo((folder / name).c_str(), 0600), 0);
    folder.Write("pair.shp", ReadFile(Sample("country.shp")));
    folder.Write("pair.dbf", ReadFile(Sample("country.dbf")));
    for (const char* name : {"pipe.shp", "pair.shp"}) {
        const auto result = RunBatch({"centroids", folder / name, "--out", "-"});
        EXPECT_EQ(result.Status, 4);
        EXPECT_EQ(result.Output, "");
        EXPECT_NE(result.Errors.find("is a pipe or a device"), std::string::npos) << result.Errors;
    }
}

TEST(PipedInput, IsRefusedForAnAttributeTable) {
    const TemporaryFolder folder;
    CopySamples(folder, {"country.shp", "country.shx"});
    ASSERT_EQ(mkfifo((folder / "country.dbf").c_str(), 0600), 0);
    const auto result = RunBatch(SampleRuns{folder / ""}.RetroPolygons() + Words{"--sigma", "1"});
    EXPECT_EQ(result.Status, 4);
    EXPECT_EQ(result.Output, "");
    EXPECT_NE(result.Errors.find("country.dbf is a pipe or a device"), std::string::npos) << result.Errors;
}

TEST(PipedInput, IsPassedOverForTheNameOfACharacterSet) {
    const TemporaryFolder folder;
    CopySamples(folder, {"country.shp", "country.shx", "country.dbf"});
    ASSERT_EQ(mkfifo((folder / "country.cpg").c_str(), 0600), 0);
    const auto result =
        RunBatch(SampleRuns{folder / ""}.RetroPolygons() + Words{"--sigma", "1", "--json", "-"});
    EXPECT_EQ(result.Status, 0) << result;
    EXPECT_NE(result.Output.find("country.dbf"), std::string::npos);
    EXPECT_EQ(result.Output.find("country.cpg"), std::string::npos); // it was not read
}

TEST(PipedInput, IsWaitedForUntilASignalEndsThat) {
    const auto result = RunShell("mkfifo pipe$$; timeout --preserve-status -s INT 1 "
                                 "\"$BATCH\" retrospective-points pipe$$ --format obs-exp --sigma 1; "
                                 "echo $?; rm pipe$$");
    EXPECT_EQ(result, (BatchResult{0, "130\n", ""}));
}
