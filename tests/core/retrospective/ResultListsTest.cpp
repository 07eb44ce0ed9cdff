#include "core/retrospective/ResultLists.h"

#include "core/retrospective/RetroProcedures.h"
#include "core/retrospective/Sweep.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/RetroData.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using Rows = std::vector<std::string>;

std::string BothLists(Rows global, const Rows& local) {
    global.emplace_back();
    global.insert(global.end(), local.begin(), local.end());
    return JoinLines(global);
}

/// Two polygon Regions with results as a run would leave them, all numbers made up.
void TakeResults() {
    TakeRetroRegions({{0, 0, 12, 3.5}, {1, 0, 0, 10.25}}, 2);
    ws.PrimaryIDs(2) = "a primary id of some length";
    ws.SecondaryIDs.ReDim(2);
    ws.SecondaryIDs(1) = "North";
    ws.SecondaryIDs(2) = "South";
    for (auto* values : {&ws.LocalU, &ws.LocalZ, &ws.LocalUAdjusted, &ws.LocalZAdjusted, &ws.LocalM})
        values->ReDim(2);
    ws.LocalU(1) = 8.5;
    ws.LocalU(2) = -10.25;
    ws.LocalZ(1) = 2.125;
    ws.LocalZ(2) = -0.0001;
    ws.LocalUAdjusted(1) = 4.5;
    ws.LocalZAdjusted(1) = 1.5;
    ws.LocalM(1) = 3.0625;
    ws.LocalM(2) = -6.404;
    ws.LocalMSorted = ws.LocalM;
    ws.GlobalU = 177.3125;
    ws.GlobalUAdjusted = 20.25;
    ws.ScoreChi = 10;
    ws.ScoreDF = 10;
    ws.ScoreZ = 0;
    ws.CurrentSigma = 1;
}

const std::string Dashes82(82, '-');
const std::string Small = "   ---> p-value < 0.001";

} // namespace

TEST(FillLists, AreTheGoldenListsOfAPointRun) {
    for (const auto& [name, variable] : GoldenVariables) {
        ScriptedPlatform silent;
        TakeFivePoints();
        ws.CurrentSigma = 1;
        RunSingleProcedures(variable);
        const auto lists = FillLists(variable, PointRules());
        EXPECT_EQ(BothLists(lists.Global, lists.Local), GoldenFive(name, "single", "lists")) << name;
    }
}

TEST(FillLists, AreTheGoldenListsOfAPointSweep) {
    for (const auto& [name, variable] : GoldenVariables) {
        ScriptedPlatform platform;
        TakeFivePoints();
        Rows rows;
        RunSweep(variable, {"0", "1", "0.4"}, PointRules(),
                 [&](const std::string& row) { rows.push_back(row); });
        EXPECT_EQ(BothLists(rows, {}), GoldenFive(name, "range", "lists")) << name;
    }
}

TEST(FillLists, PutTheScoreIntoRows) {
    ScriptedPlatform silent;
    TakeResults();
    EXPECT_EQ(FillListsScoreUnadjusted(PolygonRules()).Global,
              (Rows{"", "U-statistic (unadjusted) = 177.313", "", "A chi-squared approximation = 10.000",
                    "Degree of Freedom = 10.000", "Critical Value = 20.482", "   ---> p-value = 0.4407", "",
                    "A normal approximation = 0.000", "   ---> p-value = 0.5000"}));
}

TEST(FillLists, PutMBehindTheAdjustedScore) {
    ScriptedPlatform silent;
    TakeResults();
    ws.NumRegion = 2; // M*: x = 1.81 * 0.2 / 2, root of 1.7724539 * 1.7092582
    EXPECT_EQ(FillListsScoreAdjusted(PolygonRules()).Global,
              (Rows{"", "U statistic (adjusted) = 20.250", "", "A chi-squared approximation = 10.000",
                    "Degree of Freedom = 10.000", "Critical Value = 20.482", "   ---> p-value = 0.4407", "",
                    "A normal approximation = 0.000", "   ---> p-value = 0.5000", "",
                    "Maximum M statistic = 3.063", "", "M Critical (M*) = 1.741", ""}));
}

TEST(FillLists, PutMIntoRows) {
    ScriptedPlatform silent;
    TakeResults();
    EXPECT_EQ(FillListsM(PolygonRules()).Global,
              (Rows{"", "Maximum M-statistic = 3.063", "", "M Critical (M*) = 1.741", ""}));
}

TEST(FillLists, ChooseThePValueRows) {
    ScriptedPlatform silent;
    TakeResults();
    const auto rowsFrom = [](size_t first) {
        const Rows rows = FillListsScoreUnadjusted(PolygonRules()).Global;
        return Rows(rows.begin() + static_cast<std::ptrdiff_t>(first), rows.end());
    };
    ws.ScoreZ = 4; // pn is small and pc is not: no row for pn
    EXPECT_EQ(rowsFrom(6), (Rows{"   ---> p-value = 0.4407", "", "A normal approximation = 4.000"}));
    ws.ScoreChi = 60; // both are small
    EXPECT_EQ(rowsFrom(6), (Rows{Small, "", "A normal approximation = 4.000", Small}));
    ws.ScoreZ = 0; // pc alone
    EXPECT_EQ(rowsFrom(6), (Rows{Small, "", "A normal approximation = 0.000", "   ---> p-value = 0.5000"}));
}

TEST(FillLists, LayOutOneIdOfAPolygon) {
    ScriptedPlatform silent;
    TakeResults();
    EXPECT_EQ(FillListsScoreUnadjusted(PolygonRules()).Local,
              (Rows{Dashes82, "           ID      U(i)   Z[U(i)]  Observed    Expected", Dashes82,
                    "            1     8.500     2.125    12.000       3.500",
                    "a primary id of some length   -10.250    -0.000     0.000      10.250", Dashes82}));
    EXPECT_EQ(FillListsScoreAdjusted(PolygonRules()).Local[3],
              "            1     4.500     1.500    12.000      3.500");
    EXPECT_EQ(FillListsM(PolygonRules()).Local,
              (Rows{Dashes82, "           ID      M(i)  Observed  Expected", Dashes82,
                    "            1     3.063    12.000     3.500",
                    "a primary id of some length    -6.404     0.000    10.250", Dashes82}));
}

TEST(FillLists, LayOutTwoIdsOfAPolygon) {
    ScriptedPlatform silent;
    TakeResults();
    ws.bUseSecondaryID = true;
    EXPECT_EQ(
        FillListsScoreUnadjusted(PolygonRules()).Local,
        (Rows{Dashes82, "        ID(1)        ID(2)     U(i)  Z[U(i)]      Obs      Exp", Dashes82,
              "            1        North    8.500    2.125   12.000    3.500",
              "a primary id of some length        South  -10.250   -0.000    0.000   10.250", Dashes82}));
    EXPECT_EQ(FillListsM(PolygonRules()).Local[3],
              "              1        North     3.063    12.000     3.500");
}

TEST(FillLists, ReadNoSecondIdOfAPoint) {
    ScriptedPlatform silent;
    TakeResults();
    ws.bUseSecondaryID = true;
    ws.RegionCentroid(1).ID = "a point";
    EXPECT_EQ(FillListsM(PointRules()).Local[3], "      a point     3.063     12.000      3.500");
}

TEST(FillLists, ShowTheMessageOfM) {
    ScriptedPlatform platform;
    TakeResults();
    ws.CurrentSigma = 100;
    platform.ExpectMessage("Error!");
    EXPECT_EQ(FillListsM(PolygonRules()).Global[3], "M Critical (M*) = 0.000");
}

TEST(FillLists, StopAtANegativeChi) {
    ScriptedPlatform silent;
    TakeResults();
    ws.ScoreChi = -1;
    EXPECT_EQ(ErrorNumberOf([] { FillLists(RetroVariable::Unadjusted, PolygonRules()); }),
              InvalidProcedureCall);
}
