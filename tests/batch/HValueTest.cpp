#include "support/BatchProgram.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

BatchResult HValue(std::vector<std::string> words) {
    words.insert(words.begin(), "h-value");
    return RunBatch(words);
}

constexpr const char* NotPositive = "k-value and ARL0 should be positive numerical values\n";

} // namespace

TEST(HValueCommand, PrintsTheResultBoxOnOneLine) {
    EXPECT_EQ(HValue({"--option", "overall", "--k", "0.5", "--arl0", "100"}),
              (BatchResult{0, "2.844\n", ""}));
}

TEST(HValueCommand, HasTheDefaultsOfTheScreenForRegionsAndSigma) {
    EXPECT_EQ(HValue({"--option", "bonferroni", "--k", "0.5", "--arl0", "100"}),
              (BatchResult{0, "7.354\n", ""}));
    EXPECT_EQ(HValue({"--option", "spatial", "--k", "0.5", "--arl0", "100"}),
              (BatchResult{0, "6.764\n", ""}));
    EXPECT_EQ(
        HValue({"--option", "spatial", "--k", "0.5", "--arl0", "1", "--regions", "10000", "--sigma", "0"}),
        (BatchResult{0, "7.354\n", ""})); // the product of the run length and the regions counts
}

TEST(HValueCommand, RefusesValuesThatAreNotPositive) {
    for (const char* k : {"0", "-0.5"})
        EXPECT_EQ(HValue({"--option", "overall", "--k", k, "--arl0", "100"}),
                  (BatchResult{3, "", NotPositive}));
    EXPECT_EQ(HValue({"--option", "spatial", "--k", "0.5", "--arl0", "100", "--sigma", "-1"}),
              (BatchResult{3, "", NotPositive}));
}

TEST(HValueCommand, IsSilentWhereATextIsNotNumeric) {
    EXPECT_EQ(HValue({"--option", "overall", "--k", "0.5", "--arl0", "long"}), (BatchResult{0, "", ""}));
    EXPECT_EQ(HValue({"--option", "overall", "--k", "", "--arl0", "100"}), (BatchResult{0, "", ""}));
}

TEST(HValueCommand, StopsAtInputsThatAreTooLarge) {
    const auto result = HValue({"--option", "overall", "--k", "1e200", "--arl0", "100"});
    EXPECT_EQ(result.Status, 4);
    EXPECT_EQ(result.Errors, "Run-time error '6':\n\nOverflow\n");
}

TEST(HValueCommand, TellsWrongUse) {
    EXPECT_EQ(HValue({"--option", "overall", "--k", "0.5"}).Status, 2);
    EXPECT_EQ(HValue({"--option", "overall", "--arl0", "100"}).Status, 2);
    EXPECT_EQ(HValue({"--k", "0.5", "--arl0", "100"}).Status, 2);
    EXPECT_EQ(HValue({"--option", "none", "--k", "0.5", "--arl0", "100"}).Status, 2);
}
