#include "core/prospective/CusumRows.h"

#include "core/prospective/CusumTestTables.h"
#include "support/Arrays.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(PeriodRows, StandBelowTwoTitleRows) {
    EXPECT_EQ(PeriodTitleRows(),
              (Texts{"  Year   Cusum     Region of max cusum value", std::string(82, '-')}));
    EXPECT_EQ(CusumDashes(), std::string(82, '-'));
}

TEST(PeriodRows, AlignTheirThreePieces) {
    //                                  5 places, 2 blanks, 7 places, 5 blanks, 16 places
    EXPECT_EQ(PeriodRow(7, 3.245, "A12"), "    7"
                                          "  "
                                          "   3.25"
                                          "     "
                                          "             A12");
    EXPECT_EQ(PeriodRow(12, 0, ""), "   12     0.00                     ");
}

TEST(PeriodRows, CutNothing) {
    EXPECT_EQ(PeriodRow(123456, 123456.789, "a label of 22 characters"),
              "123456  123456.79     a label of 22 characters");
}

TEST(PeriodRows, CountCharactersNotBytes) {
    EXPECT_EQ(PeriodRow(1, 1, "Zürich"), "    1     1.00               Zürich");
}

TEST(PeriodOfRow, CountsBehindTheTitleRows) {
    EXPECT_EQ(PeriodOfRow(0, 3), 0);
    EXPECT_EQ(PeriodOfRow(1, 3), 0);
    EXPECT_EQ(PeriodOfRow(2, 3), 1);
    EXPECT_EQ(PeriodOfRow(4, 3), 3);
    EXPECT_EQ(PeriodOfRow(5, 3), 0); // the closing dashes
    EXPECT_EQ(PeriodOfRow(-1, 3), 0);
}

TEST(SignaledRow, AlignsCusumAndLabel) {
    EXPECT_EQ(SignaledRow(9.305, "A12"), "    9.31 <---               A12");
    EXPECT_EQ(SignaledRow(1234567.5, "A12 (Alb) "), "1234567.50 <---        A12 (Alb) ");
}

TEST(SignaledRegions, AreStrictlyAboveTheThresholdInRegionOrder) {
    const auto cusum = TableOf({{9.3, 12}, {9.300000001, 0}, {8, 9.3}, {40, 10}});
    using Regions = std::vector<std::ptrdiff_t>;
    EXPECT_EQ(SignaledRegions(cusum, 4, 1, 9.3), (Regions{2, 4}));
    EXPECT_EQ(SignaledRegions(cusum, 4, 2, 9.3), (Regions{1, 4}));
    EXPECT_EQ(SignaledRegions(cusum, 4, 2, 12), Regions{});
    EXPECT_EQ(SignaledRegions(cusum, 2, 2, 0), Regions{1}); // with h = 0 every positive cusum signals
    const auto labels = ArrayFrom1<std::string>({"A", "B", "C", "D"});
    EXPECT_EQ(SignaledRows(cusum, labels, 2, {1, 4}),
              (Texts{"   12.00 <---                 A", "   10.00 <---                 D"}));
}

TEST(RegionInfo, TellsLabelPeriodAndCusum) {
    EXPECT_EQ(RegionInfo("A12", 7, 3.25), "A12 in 7: ---> 3.25");
    EXPECT_EQ(RegionInfo("A12 (Alb) ", 107, 0), "A12 (Alb)  in 107: ---> 0.00");
}
