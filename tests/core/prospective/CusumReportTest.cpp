#include "core/prospective/CusumReport.h"

#include "core/prospective/CusumTestTables.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

OwnOutputs OneRegionTwoPeriods() {
    OwnOutputs own(1, 2);
    own.Cusum = TableOf({{0, 1.82}});
    own.MaxCusum(2) = 1.82;
    own.MaxRegion(2) = "A12";
    own.RegionLabel(1) = "A12";
    return own;
}

std::string Blanks(size_t n) {
    return std::string(n, ' ');
}

} // namespace

TEST(CusumReport, HasTwoTables) {
    auto own = OneRegionTwoPeriods();
    const std::string rule(344, '-');
    EXPECT_EQ(
        CusumReport(own.All(), 1, 2),
        (Texts{"                  Table of maximum cusum and corresponding region for each year             ",
               rule, Blanks(11) + "period1, " + Blanks(11) + "period2, ",
               Blanks(18) + ", " + Blanks(15) + "A12, ", Blanks(12) + "0.0000, " + Blanks(12) + "1.8200, ",
               rule, "", "",
               "                  Table of cusum for a given period in each region               ", "",
               Blanks(28) + "RegionID, period1, period2, ", rule, Blanks(33) + "A12,  0.0000,  1.8200, ",
               rule}));
}

TEST(CusumReport, HasOneCellForOnePeriod) {
    OwnOutputs own(2, 1);
    const auto lines = CusumReport(own.All(), 2, 1);
    EXPECT_EQ(lines.size(), 15u);
    EXPECT_EQ(lines[2], Blanks(11) + "period1, ");
    EXPECT_EQ(lines[3], Blanks(18) + ", ");
    EXPECT_EQ(lines[4], Blanks(12) + "0.0000, ");
}

TEST(CusumReport, CutsNothing) {
    OwnOutputs own(1, 12);
    own.Cusum(1, 12) = own.MaxCusum(12) = 1000.25;
    own.MaxRegion(12) = own.RegionLabel(1) = "a label that is longer than its thirty-six places";
    const auto lines = CusumReport(own.All(), 1, 12);
    const std::string wideCusum = "1000.2500, ";
    EXPECT_EQ(lines[10].substr(lines[10].size() - 20), "period11, period12, ");
    EXPECT_EQ(lines[3].substr(lines[3].size() - 51), own.RegionLabel(1) + ", ");
    EXPECT_EQ(lines[12].substr(0, 51), own.RegionLabel(1) + ", ");
    EXPECT_EQ(lines[12].substr(lines[12].size() - 11), wideCusum);
    EXPECT_EQ(lines[1].size(), 344u); // the rule does not grow
}

TEST(CusumReport, KeepsTheTrailingBlankOfALabelOfTwoIds) {
    auto own = OneRegionTwoPeriods();
    own.MaxRegion(2) = own.RegionLabel(1) = "A12 (Alb) ";
    const auto lines = CusumReport(own.All(), 1, 2);
    EXPECT_EQ(lines[3], Blanks(18) + ", " + Blanks(8) + "A12 (Alb) , ");
    EXPECT_EQ(lines[12], Blanks(26) + "A12 (Alb) ,  0.0000,  1.8200, ");
}
