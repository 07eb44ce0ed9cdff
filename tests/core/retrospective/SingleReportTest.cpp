#include "core/retrospective/SingleReport.h"

#include "core/retrospective/RetroProcedures.h"
#include "core/retrospective/Sweep.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/RetroData.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using Rows = std::vector<std::string>;

const std::string Dashes58(58, '-');

/// One polygon Region with two ids and results as a run would leave them, all numbers made up.
void TakeResults() {
    TakeRetroRegions({{0, 0, 12, 3.456}}, 2);
    ws.SecondaryIDs.ReDim(1);
    ws.SecondaryIDs(1) = "North";
    for (auto* values : {&ws.LocalU, &ws.LocalZ, &ws.LocalUAdjusted, &ws.LocalZAdjusted, &ws.LocalM})
        values->ReDim(1);
    ws.LocalU(1) = 8.544;
    ws.LocalZ(1) = -2.125;
    ws.LocalUAdjusted(1) = 4.5;
    ws.LocalZAdjusted(1) = 1.5;
    ws.LocalM(1) = 3.0625;
    ws.LocalMSorted = ws.LocalM;
    ws.GlobalU = 73;
    ws.GlobalUAdjusted = 20.25;
    ws.ScoreChi = 60;
    ws.ScoreDF = 10;
    ws.ScoreZ = 4;
    ws.CurrentSigma = 1;
}

} // namespace

TEST(SingleReport, IsTheGoldenReportOfAPointRun) {
    for (const auto& [name, variable] : GoldenVariables) {
        ScriptedPlatform silent;
        TakeFivePoints();
        ws.CurrentSigma = 1;
        RunSingleProcedures(variable);
        EXPECT_EQ(JoinLines(SingleReport(variable, PointRules())), GoldenFive(name, "single", "report"))
            << name;
    }
}

TEST(SingleReport, HoldsTheScoreOfAPolygonRun) {
    ScriptedPlatform silent;
    TakeResults();
    // Small p-values are written as they round.
    EXPECT_EQ(SingleReport(RetroVariable::Unadjusted, PolygonRules()),
              (Rows{"Summary of Global Score Statistic                         ", Dashes58,
                    "U-statistic (unadjusted) = 73.000", "A chi-squared approximation = 60.000",
                    "Degree of Freedom = 10.000", "   ---> p-value: 0.0000", "A normal approximation = 4.000",
                    "   ---> p-value: 0.0000", Dashes58, "",
                    "Summary of Local Score Statistic                         ", Dashes58,
                    "             ID      U(i)   Z[U(i)]  Observed  Expected", Dashes58,
                    "              1      8.54     -2.13     12.00      3.46", Dashes58}));
}

TEST(SingleReport, NamesAnMOfTheAdjustedScoreThatItDoesNotHold) {
    ScriptedPlatform silent;
    TakeResults();
    ws.bUseSecondaryID = true;
    const Rows rows = SingleReport(RetroVariable::AdjustedPoisson, PolygonRules());
    ASSERT_EQ(rows.size(), 16u);
    EXPECT_EQ(rows[0], "Summary of Global Score and Maximum M Statistic                         ");
    EXPECT_EQ(rows[2], "U-statistic (adjusted) = 20.250");
    EXPECT_EQ(rows[10], "Summary of Local Score and M Statistic                         ");
    EXPECT_EQ(rows[12], "          ID(1)        ID(2)      U(i)   Z[U(i)]  Observed  Expected");
    EXPECT_EQ(rows[14], "              1        North      4.50      1.50     12.00      3.46");
}

TEST(SingleReport, HoldsTheMOfAPolygonRun) {
    ScriptedPlatform platform;
    TakeResults();
    ws.bUseSecondaryID = true;
    // M*: x = 1.81 * 0.2, root of 1.7724539 * 1.0161111
    EXPECT_EQ(SingleReport(RetroVariable::FreemanTukey, PolygonRules()),
              (Rows{"Summary of Maximum M Statistic (Standard)                 ", Dashes58,
                    "Maximum M-statistic = 3.063", "M Critical (M*) = 1.342", Dashes58, "",
                    "Summary of Local M Statistic                         ", Dashes58,
                    "          ID(1)        ID(2)      M(i)  Observed  Expected", Dashes58,
                    "              1        North      3.06     12.00      3.46", Dashes58}));
    EXPECT_EQ(SingleReport(RetroVariable::Rossi, PolygonRules())[0],
              "Summary of Maximum M Statistic (Rossi)                    ");
}

TEST(SingleReport, FollowsTheAlphaAndTheBandwidthOfTheMoment) {
    ScriptedPlatform platform;
    TakeResults();
    ws.AlphaLevel = 0.01; // x = 1.81 * 0.04, root of 1.7724539 * 2.6255490
    EXPECT_EQ(SingleReport(RetroVariable::Rossi, PolygonRules())[3], "M Critical (M*) = 2.157");
    ws.CurrentSigma = 100;
    platform.ExpectMessage("Error!");
    EXPECT_EQ(SingleReport(RetroVariable::Rossi, PolygonRules())[3], "M Critical (M*) = 0.000");
}
