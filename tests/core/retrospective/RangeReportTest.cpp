#include "core/retrospective/RangeReport.h"

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
const std::string Dashes78(78, '-');

/// Two steps of a sweep, all numbers made up.
void TakeSteps() {
    ws = Workspace{};
    ws.BandwidthCount = 2;
    for (auto* values : {&ws.BandwidthList, &ws.SweepStat, &ws.SweepChi, &ws.SweepDF, &ws.SweepPValue,
                         &ws.SweepMaxM, &ws.SweepMCritical})
        values->ReDim(2);
    ws.BandwidthList(0) = 0.00000001;
    ws.BandwidthList(1) = 0.2;
    ws.SweepStat(0) = 4567.891;
    ws.SweepStat(1) = 2.345;
    ws.SweepChi(0) = 345.678;
    ws.SweepDF(0) = 45.678;
    ws.SweepPValue(0) = 0.0123456789012345;
    ws.SweepMaxM(0) = 5.678;
    ws.SweepMCritical(0) = 3.4567;
}

} // namespace

TEST(RangeReport, IsTheGoldenReportOfAPointSweep) {
    for (const auto& [name, variable] : GoldenVariables) {
        ScriptedPlatform platform;
        TakeFivePoints();
        RunSweep(variable, {"0", "1", "0.4"}, PointRules(), [](const std::string&) {});
        EXPECT_EQ(JoinLines(RangeReport(variable, PointRules())), GoldenFive(name, "range", "report"))
            << name;
    }
}

TEST(RangeReport, LaysOutTheUnadjustedScore) {
    TakeSteps();
    EXPECT_EQ(RangeReport(RetroVariable::Unadjusted, PolygonRules()),
              (Rows{"A summary for a range of bandwidths (Score statistic - unadjusted)", "",
                    " Sigma     U-Stats         Chi      DF       P-Val    ", Dashes58,
                    " 0.000     4567.89      345.68   45.68  0.012345678901",
                    " 0.200        2.35        0.00    0.00  0.000000000000", Dashes58}));
    EXPECT_EQ(RangeReport(RetroVariable::Unadjusted, PointRules())[2],
              " Sigma     U-Stats         Chi      DF     p-value    ");
}

TEST(RangeReport, LaysOutTheAdjustedScore) {
    TakeSteps();
    EXPECT_EQ(RangeReport(RetroVariable::AdjustedPoisson, PolygonRules()),
              (Rows{"A summary for a range of bandwidths (Score statistic - adjusted)", "",
                    " Sigma     U-Stats        Chi     DF     M     M*        P-Val    ", Dashes78,
                    " 0.000     4567.89      345.68   45.68  5.68  3.46  0.012345678901",
                    " 0.200        2.35        0.00    0.00  0.00  0.00  0.000000000000", Dashes78}));
}

TEST(RangeReport, LaysOutTheMVariables) {
    TakeSteps();
    EXPECT_EQ(RangeReport(RetroVariable::FreemanTukey, PolygonRules()),
              (Rows{"A summary for a range of bandwidths (M statistic - standard)", "", " Sigma   M     M* ",
                    Dashes58, " 0.0004567.89  3.46", " 0.200  2.35  0.00", Dashes58}));
    EXPECT_EQ(RangeReport(RetroVariable::Rossi, PolygonRules())[0],
              "A summary for a range of bandwidths (M statistic - Rossi)");
}
