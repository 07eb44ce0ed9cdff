#include "support/BatchProgramShell.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

const std::vector<std::string> Subcommands{"retrospective-points", "p-value"};

} // namespace

TEST(BatchMain, HelpsWithTheProgramAndEachSubcommand) {
    const auto program = RunBatch({"--help"});
    EXPECT_EQ(program.Status, 0);
    EXPECT_EQ(program.Errors, "");
    for (const auto& name : Subcommands) {
        EXPECT_NE(program.Output.find(name), std::string::npos) << name;
        const auto help = RunBatch({name, "--help"});
        EXPECT_EQ(help.Status, 0) << name;
        EXPECT_NE(help.Output.find(name), std::string::npos) << name;
    }
    const auto points = RunBatch({"retrospective-points", "--help"}).Output;
    for (const std::string option :
         {"--format", "--variable", "--sigma", "--from", "--to", "--step", "--alpha", "--surface", "--zoom",
          "--lists", "--report", "--map", "--chart", "--json"})
        EXPECT_NE(points.find(option), std::string::npos) << option;
}

TEST(BatchMain, TellsItsVersionEverywhere) {
    const auto program = RunBatch({"--version"});
    EXPECT_EQ(program.Status, 0);
    EXPECT_EQ(program.Output.substr(0, 14), "vastrel-batch ");
    EXPECT_GT(program.Output.size(), 15u);
    for (const auto& name : Subcommands)
        EXPECT_EQ(RunBatch({name, "--version"}), program) << name;
}

TEST(BatchMain, TellsWrongUse) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{}, {"no-such-command"}, {"--no-such-option"}, {""}}) {
        const auto result = RunBatch(words);
        EXPECT_EQ(result.Status, 2);
        EXPECT_EQ(result.Output, "");
        EXPECT_NE(result.Errors, "");
    }
}

TEST(BatchMain, TakesQuietBeforeAndBehindTheSubcommand) {
    const auto loud = RunBatch({"p-value", "normal", "0"});
    EXPECT_EQ(RunBatch({"--quiet", "p-value", "normal", "0"}), loud);
    const std::string five = InProject("tests/golden/five.txt");
    EXPECT_EQ(RunBatch({"--quiet", "retrospective-points", five, "--format", "obs-exp"}),
              RunBatch({"retrospective-points", five, "--format", "obs-exp", "--quiet"}));
}

TEST(BatchMain, TakesAnEmptyTextBehindAnEqualsSign) {
    const std::string five = InProject("tests/golden/five.txt");
    EXPECT_EQ(RunBatch({"retrospective-points", "--sigma=", five, "--format", "obs-exp"}),
              (BatchResult{3, "", "Bandwidth should be numerical.\n"}));
}

TEST(BatchMain, ReadsAFileNamedLikeASubcommand) {
    const TemporaryFolder folder;
    const auto file = folder.Write("p-value", ReadFile(InProject("tests/golden/five.txt")));
    std::filesystem::current_path(folder.Path());
    const auto result = RunBatch({"retrospective-points", "p-value", "--format", "obs-exp", "--sigma", "1"});
    EXPECT_EQ(result.Status, 0) << result;
}

TEST(BatchMain, TellsThatTheCurrentFolderIsGone) {
    const TemporaryFolder folder;
    const auto result = RunShell("cd '" + folder.Path() + "'; mkdir gone; cd gone; rmdir ../gone; " +
                                 "exec \"$BATCH\" retrospective-points five.txt --format obs-exp");
    EXPECT_EQ(result.Status, 4);
    EXPECT_EQ(result.Errors.rfind("Run-time error '75':\n\nPath/File access error\n", 0), 0U) << result;
}

TEST(BatchMain, EndsWithAnErrorInTooLittleMemoryForPictures) {
#if !VASTREL_PICTURES
    GTEST_SKIP() << "Built without pictures.";
#elif defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "The sanitizer needs all of the address space.";
#endif
    const TemporaryFolder folder;
    const std::string run = "; exec \"$BATCH\" retrospective-points '" + InProject("tests/golden/five.txt") +
                            "' --format obs-exp --sigma 1 --map '" + (folder / "map.png") + "'";
    constexpr int notLoaded = 127; // too little for the libraries themselves
    constexpr int step = 2000;
    int kilobytes = 15 * step, status = notLoaded;
    for (; status != 0 && kilobytes < 1000 * step; kilobytes += status == notLoaded ? 4 * step : step / 4) {
        const auto result = RunShell("ulimit -v " + std::to_string(kilobytes) + run);
        status = result.Status;
        EXPECT_TRUE(status == 0 || status == 4 || status == notLoaded) << kilobytes << result;
        if (status == 4) {
            EXPECT_NE(result.Errors.find("Run-time error '7'"), std::string::npos) << result;
        }
    }
    EXPECT_EQ(status, 0);
}
