#include "support/AttributeData.h"
#include "support/BatchProgram.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace vastrel;

namespace {

using Words = std::vector<std::string>;

class ExportCommand : public testing::Test {
protected:
    ExportCommand()
        : File(WriteDataset(Folder, "counts",
                            {{"KEY", 'C', 4},
                             {"O1", 'N', 4},
                             {"O2", 'N', 4},
                             {"E1", 'N', 4},
                             {"E2", 'N', 4},
                             {"MINUS", 'N', 4}},
                            {{"a", "9", "0", "4", "1", "1"}, {"b", "4", "3", "4", "4", "-1"}})) {}

    BatchResult Run(const Words& obs, const Words& exp, const Words& more) const {
        Words words{"export", File, "--obs", obs[0], obs[1], "--exp", exp[0], exp[1]};
        words.insert(words.end(), more.begin(), more.end());
        return RunBatch(words);
    }
    /// Two periods with the Poisson option to standard output.
    BatchResult RunTwo(const std::string& sigma) const {
        return Run({"O1", "O2"}, {"E1", "E2"}, {"--option", "poisson", "--sigma", sigma, "--out", "-"});
    }

    TemporaryFolder Folder;
    std::string File;
};

const Words Plain{"--option", "poisson", "--sigma", "0", "--out", "-"};

} // namespace

// By hand for sigma 0: (9 - 4) / 2, (0 - 1) / 1; 0, (3 - 4) / 2.
TEST_F(ExportCommand, WritesTheDeviationsForABandwidthOfZero) {
    EXPECT_EQ(RunTwo("0"), (BatchResult{0, "2.5000,-1.0000\n0.0000,-0.5000\n", ""}));
    EXPECT_EQ(Run({"o1", "O1"}, {"E1", "e1"}, Plain), (BatchResult{0, "2.5000\n0.0000\n", ""}));
}

// Two squares of area 1 at a distance of 1: with sigma 1 the off-diagonal kernel is exp(-1/2) of the diagonal
// one. The row scaled to length 1 is (1, g) / sqrt(1 + g^2) with g = 0.6065307: (0.8550196, 0.5185956) by
// hand, times 2.5 and 0; times -1 and -0.5.
TEST_F(ExportCommand, Smooths) {
    EXPECT_EQ(RunTwo("1").Output, "2.1375,-1.1143\n1.2965,-0.9461\n");
    EXPECT_EQ(RunTwo("-1").Output, "-2.1375,1.1143\n-1.2965,0.9461\n");
}

TEST_F(ExportCommand, WritesNothingWithoutAName) {
    const Words nameless{"--option", "poisson", "--sigma", "0", "--out", ""};
    EXPECT_EQ(Run({"O1", "O2"}, {"E1", "E2"}, nameless), (BatchResult{0, "", ""}));
    EXPECT_EQ(Run({"KEY", "O2"}, {"E1", "E2"}, nameless).Status, 3);
}

TEST_F(ExportCommand, RefusesWhatTheScreenRefuses) {
    EXPECT_EQ(Run({"KEY", "O2"}, {"E1", "E2"}, Plain),
              (BatchResult{3, "", "Data should be numerical values!\n"}));
    EXPECT_EQ(Run({"O1", "MINUS"}, {"E1", "E2"}, Plain),
              (BatchResult{3, "", "Data include invalid values. Check data and try again!\n"}));
    EXPECT_EQ(Run({"O2", "O1"}, {"E1", "E2"}, Plain),
              (BatchResult{3, "", "Start and end priods were not set improperly!\n"}));
    EXPECT_EQ(Run({"O1", "O2"}, {"E1", "E1"}, Plain),
              (BatchResult{3, "", "Periods for Obs and Exp are not identical. \n"}));
    EXPECT_EQ(Run({"KEY", "O2"}, {"E1", "E2"}, {"--option", "poisson", "--sigma", "x", "--out", "-"}),
              (BatchResult{3, "", "Data should be numerical values!\n"})); // the columns come first
    for (const char* sigma : {"", "x", "1,5"})
        EXPECT_EQ(RunTwo(sigma), (BatchResult{3, "", "Bandwidth should be numeric.\n"}));
}

TEST_F(ExportCommand, RefusesALongBaseName) {
    for (const char* extension : {".shp", ".shx", ".dbf"})
        std::filesystem::copy(Folder / (std::string("counts") + extension),
                              Folder / (std::string("district9") + extension));
    File = Folder / "district9.shp";
    EXPECT_EQ(RunTwo("0"), (BatchResult{3, "", "The length of filename should be less than 8.\n"}));
}

TEST_F(ExportCommand, IsUsedWrongly) {
    const auto lacks = Run({"O1", "O3"}, {"E1", "E2"}, Plain);
    EXPECT_EQ(lacks.Status, 2);
    EXPECT_EQ(lacks.Errors, "counts.dbf has no column \"O3\".\n");
    EXPECT_EQ(Run({"KEY", "O3"}, {"E1", "E2"}, Plain).Status, 2); // before any check of values
    EXPECT_EQ(Run({"O1", "O2"}, {"E1", "E2"}, {"--option", "normal", "--sigma", "0", "--out", "-"}).Status,
              2);
    EXPECT_EQ(RunBatch({"export", File}).Status, 2);
    EXPECT_EQ(RunBatch({"export", File, "--obs", "O1", "--exp", "E1", "E1", "--option", "rossi", "--sigma",
                        "0", "--out", "-"})
                  .Status,
              2);
}

TEST_F(ExportCommand, LeavesNoFileAfterAFault) {
    const auto result =
        Run({"O1", "O1"}, {"O2", "O2"}, {"--option", "rossi", "--sigma", "0", "--out", Folder / "z.txt"});
    EXPECT_EQ(result, (BatchResult{4, "", "Run-time error '11':\n\nDivision by zero\n"}));
    EXPECT_FALSE(std::filesystem::exists(Folder / "z.txt"));
    std::filesystem::remove(Folder / "counts.dbf");
    EXPECT_EQ(RunTwo("0").Status, 4);
    EXPECT_EQ(RunBatch({"export", Folder / "none.shp", "--obs", "O1", "O1", "--exp", "E1", "E1", "--option",
                        "rossi", "--sigma", "0", "--out", "-"})
                  .Status,
              4);
}
