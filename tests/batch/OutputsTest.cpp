#include "support/BatchProgram.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

BatchResult RunFive(const Words& more) {
    Words words{"retrospective-points",
                InProject("tests/golden/five.txt"),
                "--format",
                "obs-exp",
                "--variable",
                "rossi"};
    words.insert(words.end(), more.begin(), more.end());
    return RunBatch(words);
}

std::string Golden(const std::string& what) {
    return ReadFile(InProject("tests/golden/five_rossi_single_") + what + ".txt");
}

size_t FilesIn(const TemporaryFolder& folder) {
    return static_cast<size_t>(std::distance(fs::directory_iterator(folder.Path()), {}));
}

} // namespace

TEST(Outputs, ReplaceEarlierFiles) {
    const TemporaryFolder folder;
    const auto lists = folder.Write("lists.txt", std::string(100000, 'x'));
    EXPECT_EQ(RunFive({"--sigma", "1", "--lists", lists}), (BatchResult{0, "", ""}));
    EXPECT_EQ(ReadFile(lists), Golden("lists"));
    EXPECT_EQ(FilesIn(folder), 1u);
}

TEST(Outputs, StayAsTheyWereAfterAFailure) {
    const TemporaryFolder folder;
    const auto lists = folder.Write("lists.txt", "before");
    for (const auto& [sigma, status] :
         {std::pair("x", 3), std::pair("-1", 3), std::pair("1e400", 4), std::pair("1e-200", 4)}) {
        EXPECT_EQ(RunFive({"--sigma", sigma, "--lists", lists, "--json", folder / "new"}).Status, status);
        EXPECT_EQ(ReadFile(lists), "before");
        EXPECT_EQ(FilesIn(folder), 1u);
    }
}

TEST(Outputs, AreAllWrittenOrNone) {
    const TemporaryFolder folder;
    const auto lists = folder.Write("lists.txt", "before");
    for (const auto& bad : {folder / "no/such/folder", folder.Path(), std::string("/dev/full")}) {
        const auto result =
            RunFive({"--sigma", "1", "--lists", lists, "--report", folder / "new", "--json", bad});
        EXPECT_EQ(result.Status, 4) << bad;
        EXPECT_EQ(result.Output, "");
        EXPECT_EQ(ReadFile(lists), "before");
        EXPECT_EQ(FilesIn(folder), 1u);
    }
}

TEST(Outputs, TellAFolderInThePlaceOfAFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunFive({"--sigma", "1", "--lists", folder.Path()}).Errors.substr(0, 20),
              "Run-time error '75':");
}

TEST(Outputs, GoToStandardOutputInTheirOrder) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunFive({"--sigma", "1", "--lists", "-"}), (BatchResult{0, Golden("lists"), ""}));
    EXPECT_EQ(RunFive({"--sigma", "1", "--report", "-", "--lists", folder / "lists"}).Output,
              Golden("report"));
    EXPECT_EQ(ReadFile(folder / "lists"), Golden("lists"));
    EXPECT_EQ(RunFive({"--sigma", "1", "--report", "-", "--lists", "-"}).Output,
              Golden("lists") + Golden("report"));
    EXPECT_EQ(RunFive({"--sigma", "1", "--lists", "/dev/stdout"}).Output, Golden("lists"));
}

TEST(Outputs, TakeNoFileTwice) {
    const TemporaryFolder folder;
    const auto result = RunFive({"--sigma", "1", "--lists", folder / "same", "--report", folder / "same"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(FilesIn(folder), 0u);
}

TEST(Outputs, LeaveOtherFilesAlone) {
    const TemporaryFolder folder;
    folder.Write("lists.txt.part", "somebody's");
    EXPECT_EQ(RunFive({"--sigma", "1", "--lists", folder / "lists.txt"}).Status, 0);
    EXPECT_EQ(ReadFile(folder / "lists.txt.part"), "somebody's");
    EXPECT_EQ(ReadFile(folder / "lists.txt"), Golden("lists"));
    EXPECT_EQ(FilesIn(folder), 2u);
}

TEST(Outputs, FollowALink) {
    const TemporaryFolder folder;
    const auto target = folder.Write("target", "before");
    fs::create_symlink(target, folder / "link");
    EXPECT_EQ(RunFive({"--sigma", "1", "--lists", folder / "link"}).Status, 0);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(ReadFile(target), Golden("lists"));
}
