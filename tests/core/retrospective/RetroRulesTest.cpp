#include "core/retrospective/RetroRules.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// Two ids and numbers whose decimals show the pattern of every column.
RowValues Values() {
    RowValues values;
    values.ID1 = "first";
    values.ID2 = "second";
    values.Local = -1.23456;
    values.Z = 2.34567;
    values.Obs = 12;
    values.Exp = 3.45678;
    values.Sigma = 0.45678;
    values.Stat = 567.89123;
    values.Chi = 67.89123;
    values.DF = 7.89123;
    values.P = 0.01234;
    values.M = 4.56789;
    values.MCritical = 3.45678;
    return values;
}

std::string RowOf(const RetroFields& fields) {
    return RowText(fields, Values());
}

} // namespace

// Rows are spelled out column by column: each piece is as wide as its field.

TEST(PolygonRules, LayOutTheLocalScoreList) {
    const auto& rules = PolygonRules();
    EXPECT_EQ(HeadingText(rules.ScoreTwoIDs), "        ID(1)"
                                              "        ID(2)"
                                              "     U(i) "
                                              " Z[U(i)]"
                                              "      Obs"
                                              "      Exp");
    EXPECT_EQ(RowOf(rules.ScoreTwoIDs.Row), "        first"
                                            "       second"
                                            "   -1.235"
                                            "    2.346"
                                            "   12.000"
                                            "    3.457");
    EXPECT_EQ(HeadingText(rules.ScoreOneID[0]), "           ID"
                                                "      U(i) "
                                                "  Z[U(i)]"
                                                "  Observed"
                                                "    Expected");
    EXPECT_EQ(RowOf(rules.ScoreOneID[0].Row), "        first"
                                              "    -1.235"
                                              "     2.346"
                                              "    12.000"
                                              "       3.457");
    EXPECT_EQ(HeadingText(rules.ScoreOneID[1]), "           ID"
                                                "      U(i) "
                                                "  Z[U(i)]"
                                                "  Observed"
                                                "   Expected");
    EXPECT_EQ(RowOf(rules.ScoreOneID[1].Row), "        first"
                                              "    -1.235"
                                              "     2.346"
                                              "    12.000"
                                              "      3.457");
}

TEST(PolygonRules, LayOutTheLocalMList) {
    const auto& rules = PolygonRules();
    EXPECT_EQ(HeadingText(rules.MTwoIDs), "          ID(1)"
                                          "        ID(2)"
                                          "      M(i) "
                                          " Observed"
                                          "  Expected");
    EXPECT_EQ(RowOf(rules.MTwoIDs.Row), "          first"
                                        "       second"
                                        "    -1.235"
                                        "    12.000"
                                        "     3.457");
    EXPECT_EQ(HeadingText(rules.MOneID), "           ID"
                                         "      M(i) "
                                         " Observed"
                                         "  Expected");
    EXPECT_EQ(RowOf(rules.MOneID.Row), "        first"
                                       "    -1.235"
                                       "    12.000"
                                       "     3.457");
}

TEST(PolygonRules, LayOutTheSweepList) {
    const auto& unadjusted = PolygonRules().SweepOf(RetroVariable::Unadjusted);
    EXPECT_EQ(RowOf(unadjusted.Heading), " Sigma"
                                         "         U"
                                         "      Chi"
                                         "       DF   "
                                         " P-Val");
    EXPECT_EQ(RowOf(unadjusted.Row), " 0.457"
                                     "    567.89"
                                     "    67.89"
                                     "     7.89"
                                     "   0.0123");
    EXPECT_EQ(RowOf(unadjusted.SmallPRow), " 0.457"
                                           "    567.89"
                                           "    67.89"
                                           "     7.89"
                                           "   <0.001");

    const auto& adjusted = PolygonRules().SweepOf(RetroVariable::AdjustedPoisson);
    EXPECT_EQ(RowOf(adjusted.Heading), "Sigma"
                                       "      U"
                                       "    Chi "
                                       "   DF  "
                                       "   M(M*)"
                                       "   P-Val");
    EXPECT_EQ(RowOf(adjusted.Row), " 0.46"
                                   "  567.9"
                                   "   67.9"
                                   "   7.9"
                                   " 4.57"
                                   "(3.46)"
                                   " 0.012");
    // Beside "<0.001" the two M columns have one decimal less.
    EXPECT_EQ(RowOf(adjusted.SmallPRow), " 0.46"
                                         "  567.9"
                                         "   67.9"
                                         "   7.9"
                                         "  4.6"
                                         "(3.5)"
                                         "  <0.001");

    const auto& m = PolygonRules().SweepOf(RetroVariable::FreemanTukey);
    EXPECT_EQ(RowOf(m.Heading), " Sigma"
                                "     M  "
                                "  M* ");
    EXPECT_EQ(RowOf(m.Row), " 0.457"
                            "  4.57"
                            "  3.46");
    EXPECT_EQ(RowOf(m.SmallPRow), RowOf(m.Row));
    EXPECT_EQ(&PolygonRules().SweepOf(RetroVariable::Rossi), &m);
}

TEST(PointRules, LayOutTheLocalLists) {
    const auto& rules = PointRules();
    for (const auto& layout : rules.ScoreOneID) {
        EXPECT_EQ(HeadingText(layout), "           ID"
                                       "      U(i) "
                                       "  Z[U(i)]"
                                       "   Observed"
                                       "   Expected");
        EXPECT_EQ(RowOf(layout.Row), "        first"
                                     "    -1.235"
                                     "     2.346"
                                     "     12.000"
                                     "      3.457");
    }
    EXPECT_EQ(HeadingText(rules.MOneID), "           ID"
                                         "      M(i) "
                                         "  Observed"
                                         "   Expected");
    EXPECT_EQ(RowOf(rules.MOneID.Row), "        first"
                                       "    -1.235"
                                       "     12.000"
                                       "      3.457");
}

TEST(PointRules, LayOutTheSweepList) {
    const auto& unadjusted = PointRules().SweepOf(RetroVariable::Unadjusted);
    EXPECT_EQ(RowOf(unadjusted.Heading), " Sigma"
                                         "        U"
                                         "     Chi"
                                         "      DF   "
                                         "  P-Val");
    EXPECT_EQ(RowOf(unadjusted.Row), "  0.46"
                                     "    567.9"
                                     "    67.9"
                                     "    7.89"
                                     "   0.0123");
    EXPECT_EQ(RowOf(unadjusted.SmallPRow), "  0.46"
                                           "    567.9"
                                           "    67.9"
                                           "    7.89"
                                           "    <0.001");

    const auto& adjusted = PointRules().SweepOf(RetroVariable::AdjustedPoisson);
    EXPECT_EQ(RowOf(adjusted.Heading), "Sigma"
                                       "      U"
                                       "    Chi "
                                       "   DF  "
                                       "   M(M*)"
                                       "   P-Val");
    EXPECT_EQ(RowOf(adjusted.Row), " 0.46"
                                   "  567.9"
                                   "   67.9"
                                   "   7.9"
                                   "  4.6"
                                   "(3.5)"
                                   "  0.0123");
    EXPECT_EQ(RowOf(adjusted.SmallPRow), " 0.46"
                                         "  567.9"
                                         "   67.9"
                                         "   7.9"
                                         "  4.6"
                                         "(3.5)"
                                         "  <0.001");

    const auto& m = PointRules().SweepOf(RetroVariable::Rossi);
    EXPECT_EQ(RowOf(m.Heading), " Sigma"
                                "     M  "
                                "  M* ");
    EXPECT_EQ(RowOf(m.Row), "  0.46"
                            "  4.57"
                            "  3.46");
}

TEST(RetroRules, DifferInWhatTheyCount) {
    EXPECT_TRUE(PolygonRules().ReadsSecondaryID);
    EXPECT_FALSE(PointRules().ReadsSecondaryID);
    EXPECT_TRUE(PolygonRules().IDsFromColumns);
    EXPECT_FALSE(PointRules().IDsFromColumns);
    EXPECT_FALSE(PolygonRules().TakesNumTextRegion);
    EXPECT_TRUE(PointRules().TakesNumTextRegion);
    EXPECT_EQ(PolygonRules().FirstRegionRow, 3);
    EXPECT_EQ(PointRules().FirstRegionRow, 2);
    EXPECT_STREQ(PolygonRules().ChartLabelPattern, "0.000");
    EXPECT_STREQ(PointRules().ChartLabelPattern, "0.00");
    EXPECT_STREQ(PolygonRules().PValueHeading, "P-Val    ");
    EXPECT_STREQ(PointRules().PValueHeading, "p-value    ");
}
