#include "support/BatchProgram.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(PValueCommand, PrintsTheResultBoxOnOneLine) {
    EXPECT_EQ(RunBatch({"p-value", "normal", "0"}), (BatchResult{0, "0.50000000\n", ""}));
    EXPECT_EQ(RunBatch({"p-value", "normal", "4.6"}), (BatchResult{0, "0.00000000\n", ""}));
}

TEST(PValueCommand, RefusesTextsWithTheMessagesOfTheCalculator) {
    EXPECT_EQ(RunBatch({"p-value", "normal", ""}), (BatchResult{3, "", "Z-score should be specified.\n"}));
    EXPECT_EQ(RunBatch({"p-value", "normal", "x"}), (BatchResult{3, "", "Z-score should be numeric.\n"}));
    EXPECT_EQ(RunBatch({"p-value", "chi-square", "", "2"}),
              (BatchResult{3, "", "Both chi-square statistic and D.F. should be specified.\n"}));
}

TEST(PValueCommand, IsSilentWhereTheCalculatorDoesNothing) {
    EXPECT_EQ(RunBatch({"p-value", "chi-square", "3", "x"}), (BatchResult{0, "", ""}));
}

TEST(PValueCommand, StopsAtADivisionByZero) {
    EXPECT_EQ(RunBatch({"p-value", "chi-square", "3", "0"}).Status, 4);
}

TEST(PValueCommand, TellsWrongUse) {
    EXPECT_EQ(RunBatch({"p-value"}).Status, 2);
    EXPECT_EQ(RunBatch({"p-value", "normal"}).Status, 2);
    EXPECT_EQ(RunBatch({"p-value", "normal", "1", "2"}).Status, 2);
    EXPECT_EQ(RunBatch({"p-value", "chi-square", "3"}).Status, 2);
}

TEST(PValueCommand, TakesWordsThatBeginWithAMinusSign) {
    EXPECT_EQ(RunBatch({"p-value", "normal", "-1.96"}), RunBatch({"p-value", "normal", "1.96"}));
    EXPECT_EQ(RunBatch({"p-value", "normal", "-1.96"}).Output, "0.02495800\n"); // by the Python reference
    EXPECT_EQ(RunBatch({"p-value", "normal", "-"}), (BatchResult{3, "", "Z-score should be numeric.\n"}));
    EXPECT_EQ(RunBatch({"p-value", "normal", "-x"}), (BatchResult{3, "", "Z-score should be numeric.\n"}));
    EXPECT_EQ(RunBatch({"p-value", "chi-square", "-3", "2"}).Status, 4);
}

TEST(PValueCommand, StopsAtNumbersTooLarge) {
    EXPECT_EQ(RunBatch({"p-value", "normal", "1e400"}).Status, 4);
    EXPECT_EQ(RunBatch({"p-value", "chi-square", "3", "32768"}).Status, 4);
    EXPECT_EQ(RunBatch({"p-value", "normal", "-1e300"}).Status, 4);
}
