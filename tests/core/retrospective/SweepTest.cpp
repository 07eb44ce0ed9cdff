#include "core/retrospective/Sweep.h"

#include "core/numeric/Memory.h"
#include "core/platform/RunTimeError.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/RetroProcedures.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/RetroData.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using Rows = std::vector<std::string>;
const std::string Dashes50(50, '-');

void TakeThree() {
    TakeRetroRegions({{0, 0, 9, 4}, {1, 0, 3, 6}, {0, 1, 5, 7}}, 3);
}

Rows Sweep(RetroVariable variable, const SweepTexts& texts, const RetroRules& rules = PolygonRules()) {
    Rows rows;
    EXPECT_TRUE(RunSweep(variable, texts, rules, [&](const std::string& row) { rows.push_back(row); }));
    return rows;
}

std::vector<double> Bandwidths() {
    return {ws.BandwidthList.data(), ws.BandwidthList.data() + ws.BandwidthCount};
}

void ExpectZero(const Array1<double>& values) {
    EXPECT_EQ(values, Array1<double>(ws.BandwidthCount));
}

/// The local values of one Region at a bandwidth, by a run of their own.
double LocalAt(RetroVariable variable, double sigma, std::ptrdiff_t i) {
    const Workspace kept = ws;
    ws.CurrentSigma = sigma;
    RunSingleProcedures(variable);
    const double value = variable == RetroVariable::Unadjusted ? ws.LocalU(i) : ws.LocalM(i);
    ws = kept;
    return value;
}

} // namespace

TEST(Sweep, HasTenStepsByDefault) {
    ScriptedPlatform platform;
    TakeThree();
    const Rows rows = Sweep(RetroVariable::Rossi, {"0.2", "2.0", "0.2"}, PolygonRules());
    ASSERT_EQ(rows.size(), 13u);
    EXPECT_EQ(rows[0], " Sigma     M    M* ");
    EXPECT_EQ(rows[1], Dashes50);
    EXPECT_EQ(rows[12], Dashes50);
    const Rows sigmas{"0.200", "0.400", "0.600", "0.800", "1.000",
                      "1.200", "1.400", "1.600", "1.800", "2.000"};
    for (size_t k = 0; k < 10; ++k)
        EXPECT_EQ(rows[2 + k].substr(0, 6), " " + sigmas[k]);
    EXPECT_EQ(platform.Transcript(), "pointer busy\n"); // the caller sets it back
}

TEST(Sweep, AddsTheStepToTheTinyFirstBandwidth) {
    ScriptedPlatform platform;
    TakeThree();
    const Rows rows = Sweep(RetroVariable::FreemanTukey, {"0", "1", "0.3"});
    ASSERT_EQ(ws.BandwidthCount, 4); // round(4.33); the last stops short of the end
    const double tiny = 0.00000001;
    EXPECT_EQ(Bandwidths(),
              (std::vector<double>{tiny, tiny + 0.3, tiny + 0.3 + 0.3, tiny + 0.3 + 0.3 + 0.3}));
    EXPECT_EQ(rows[2].substr(0, 6), " 0.000");
    EXPECT_EQ(rows[5].substr(0, 6), " 0.900");
    EXPECT_EQ(ws.CurrentSigma, tiny + 0.3 + 0.3 + 0.3 + 0.3);
    EXPECT_EQ(ws.ChartLabels, (Rows{"0.000", "0.300", "0.600", "0.900"})); // from the typed value
}

TEST(Sweep, ComputesAnOvershootAndStoresTheEnd) {
    ScriptedPlatform platform;
    TakeThree();
    const Rows rows = Sweep(RetroVariable::Unadjusted, {"0", "1", "0.4"});
    ASSERT_EQ(ws.BandwidthCount, 4); // round(3.5), half to even
    EXPECT_EQ(ws.BandwidthList(3), 1);
    EXPECT_EQ(rows[5].substr(0, 6), " 1.000");
    EXPECT_EQ(ws.StatisticTable(2, 3), LocalAt(RetroVariable::Unadjusted, 0.00000001 + 0.4 + 0.4 + 0.4, 2));
    EXPECT_EQ(ws.CurrentSigma, 1.4);
    EXPECT_EQ(ws.ChartLabels.back(), "1.200");
}

TEST(Sweep, RoundsAHalfStepToTheEvenCount) {
    ScriptedPlatform platform;
    TakeThree();
    Sweep(RetroVariable::Rossi, {"0", "3", "2"}); // round(2.5)
    EXPECT_EQ(Bandwidths(), (std::vector<double>{0.00000001, 2.00000001}));
}

TEST(Sweep, HasOneStepForAStepFarBeyondTheRange) {
    ScriptedPlatform platform;
    TakeThree();
    Sweep(RetroVariable::Rossi, {"0.5", "1", "100"});
    EXPECT_EQ(Bandwidths(), (std::vector<double>{0.5}));
}

TEST(Sweep, KeepsTheTablesOfTheUnadjustedVariable) {
    ScriptedPlatform platform;
    TakeThree();
    Sweep(RetroVariable::Unadjusted, {"1", "2", "1"});
    ASSERT_EQ(ws.BandwidthCount, 2);
    EXPECT_EQ(ws.BandwidthList.UpperBound(), 2); // the element behind the last step stays zero
    EXPECT_EQ(ws.BandwidthList(2), 0);
    EXPECT_EQ(ws.SweepStat(1), ws.GlobalU);
    EXPECT_EQ(ws.SweepChi(1), ws.ScoreChi);
    EXPECT_EQ(ws.SweepDF(1), ws.ScoreDF);
    EXPECT_EQ(ws.SweepPValue(1), ChiSquarePValue(ws.ScoreChi, ws.ScoreDF));
    EXPECT_EQ(ws.SweepChiCritical(1), ChiCritical(0.05, ws.ScoreDF));
    ExpectZero(ws.SweepMaxM);
    ExpectZero(ws.SweepMCritical);
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        EXPECT_EQ(ws.StatisticTable(i, 0), LocalAt(RetroVariable::Unadjusted, 1, i));
    EXPECT_EQ(ws.ChartData.UpperBound1(), 1);
    EXPECT_EQ(ws.ChartData(1, 0), ws.SweepChi(1));
    EXPECT_EQ(ws.ChartData(1, 1), ws.SweepChiCritical(1));
}

TEST(Sweep, KeepsTheTablesOfTheAdjustedVariable) {
    ScriptedPlatform platform;
    TakeThree();
    Sweep(RetroVariable::AdjustedPoisson, {"1", "2", "1"});
    EXPECT_EQ(ws.SweepStat(1), ws.GlobalUAdjusted);
    EXPECT_EQ(ws.SweepMaxM(1), ws.LocalMSorted(3));
    EXPECT_GT(ws.SweepMCritical(0), ws.SweepMCritical(1));
    EXPECT_EQ(ws.StatisticTable(3, 1), ws.LocalUAdjusted(3));
    EXPECT_EQ(ws.ChartData(0, 0), ws.SweepChi(0));
}

TEST(Sweep, LeavesTheScoreTablesOfAnMVariableZero) {
    ScriptedPlatform platform;
    TakeThree();
    Sweep(RetroVariable::Unadjusted, {"1", "2", "1"});
    Sweep(RetroVariable::FreemanTukey, {"1", "2", "1"});
    EXPECT_EQ(ws.SweepStat(1), ws.LocalMSorted(3));
    for (const auto* values :
         {&ws.SweepChi, &ws.SweepChiCritical, &ws.SweepDF, &ws.SweepPValue, &ws.SweepMaxM})
        ExpectZero(*values);
    EXPECT_EQ(ws.ChartData(0, 0), ws.SweepStat(0));
    EXPECT_EQ(ws.ChartData(0, 1), ws.SweepMCritical(0));
    EXPECT_EQ(ws.StatisticTable(1, 0), LocalAt(RetroVariable::FreemanTukey, 1, 1));
}

TEST(Sweep, GoesOnWhereTheCriticalMHasNoValue) {
    // Three Regions: x = (0.81 s^2 + 1) * 0.2 / 3 is 1 or more from s = 4.16 on.
    ScriptedPlatform platform;
    TakeThree();
    platform.ExpectMessage("Error!");
    const Rows rows = Sweep(RetroVariable::Rossi, {"2", "6", "2"});
    ASSERT_EQ(rows.size(), 6u);
    EXPECT_NE(rows[2].substr(12), "  0.00");
    EXPECT_NE(rows[3].substr(12), "  0.00");
    EXPECT_EQ(rows[4].substr(12), "  0.00");
    EXPECT_EQ(ws.SweepMCritical(2), 0);
}

TEST(Sweep, RefusesTextsBeforeAnythingElse) {
    ScriptedPlatform platform;
    TakeThree();
    Rows rows;
    const auto addRow = [&](const std::string& row) { rows.push_back(row); };
    platform.ExpectMessage("A range of bandwidth parameters should be numeric.");
    EXPECT_FALSE(RunSweep(RetroVariable::Rossi, {"x", "2", "1"}, PolygonRules(), addRow));
    platform.ExpectMessage("Ivalid range of bandwidth was input. Check the parameters!");
    EXPECT_FALSE(RunSweep(RetroVariable::Rossi, {"2", "1", "1"}, PolygonRules(), addRow));
    EXPECT_TRUE(rows.empty());
    EXPECT_FALSE(platform.BusyPointer());
    EXPECT_FALSE(ws.BandwidthList.IsAllocated());
}

TEST(Sweep, CountsStepsInSixteenBits) {
    ScriptedPlatform platform;
    TakeThree();
    for (const char* step : {"0.00001", "1e-300", "1e-320"})
        EXPECT_EQ(ErrorNumberOf([&] { Sweep(RetroVariable::Rossi, {"0", "1", step}); }), Overflow) << step;
    EXPECT_FALSE(platform.BusyPointer());
}

TEST(Sweep, KeepsEarlierRowsAndTheBusyPointerAfterAFault) {
    ScriptedPlatform platform;
    TakeThree();
    Rows rows;
    // The second bandwidth is 1e200, whose square overflows.
    EXPECT_EQ(ErrorNumberOf([&] {
                  RunSweep(RetroVariable::Rossi, {"1", "2e200", "1e200"}, PolygonRules(),
                           [&](const std::string& row) { rows.push_back(row); });
              }),
              Overflow);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[2].substr(0, 6), " 1.000");
    EXPECT_TRUE(platform.BusyPointer());
    EXPECT_EQ(ws.BandwidthList(0), 1);
    EXPECT_EQ(ws.LocalM(1), ws.StatisticTable(1, 0)); // of the last step that ended well
}

TEST(Sweep, SelectsAStepForTheMap) {
    ScriptedPlatform platform;
    TakeThree();
    Sweep(RetroVariable::Rossi, {"1", "2", "0.5"});
    SelectSweepStep(1);
    EXPECT_EQ(ws.CurrentSigma, 1.5);
    for (std::ptrdiff_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(ws.DisplayClassValues(i), ws.StatisticTable(i, 1));
        EXPECT_EQ(ws.DisplayDrawValues(i), ws.StatisticTable(i, 1));
    }
}

TEST(Sweep, FindsTheStepOfARow) {
    ws = Workspace{};
    ws.BandwidthCount = 3;
    const std::ptrdiff_t steps[] = {-1, -1, 0, 1, 2, -1, -1};
    for (std::ptrdiff_t row = 0; row < 7; ++row)
        EXPECT_EQ(SweepStepOfRow(row), steps[row]) << row;
    EXPECT_EQ(SweepStepOfRow(-1), -1);
}

TEST(Sweep, NamesTheSeriesOfItsChart) {
    EXPECT_STREQ(SweepStatCaption(RetroVariable::Unadjusted), "Chi");
    EXPECT_STREQ(SweepCriticalCaption(RetroVariable::AdjustedPoisson), "Chi*");
    EXPECT_STREQ(SweepStatCaption(RetroVariable::FreemanTukey), "M");
    EXPECT_STREQ(SweepCriticalCaption(RetroVariable::Rossi), "M*");
}

TEST(Sweep, TakesTheCountOfAPointDatasetAndItsShortLabels) {
    ScriptedPlatform platform;
    TakeFivePoints();
    Sweep(RetroVariable::Rossi, {"0.5", "1", "0.25"}, PointRules());
    EXPECT_EQ(ws.NumRegion, 5);
    EXPECT_EQ(ws.ChartLabels, (Rows{"0.50", "0.75", "1.00"}));
}

// A machine that has just what a sweep needs, and has less of it once the distances are kept.
TEST(Sweep, AsksForItsMemoryBeforeItStartsAndLessWhatItHolds) {
    ScriptedPlatform platform;
    TakeThree();
    constexpr std::uint64_t table = 4 * 4 * 8, statisticTable = 4 * 3 * 8; // of three Regions and two steps
    std::uint64_t all = 5 * table + statisticTable;
    int asked = 0, askedBefore = 0;
    ForceAvailableMemory([&] {
        ++asked;
        return all - 8 * static_cast<std::uint64_t>(ws.Distances.Squared.Count());
    });
    RunSweep(RetroVariable::AdjustedPoisson, {"1", "2", "1"}, PolygonRules(), [&](const std::string&) {
        if (askedBefore == 0) askedBefore = asked;
    });
    EXPECT_EQ(ws.Distances.Squared.Count(), 3);
    EXPECT_EQ(asked, askedBefore);                          // not in the middle
    Sweep(RetroVariable::AdjustedPoisson, {"1", "2", "1"}); // a second one is not refused
    all = 5 * table + statisticTable - 1;
    EXPECT_EQ(ErrorNumberOf([] {
                  RunSweep(RetroVariable::Unadjusted, {"1", "2", "1"}, PolygonRules(), {});
              }),
              OutOfMemory);
    all = table;
    RunSingleProcedures(RetroVariable::Rossi);
    RunSingleProcedures(RetroVariable::Rossi);
    all = table - 1;
    EXPECT_EQ(ErrorNumberOf([] { RunSingleProcedures(RetroVariable::Rossi); }), OutOfMemory);
    ForceAvailableMemory({});
}

// The point screen counts its Regions by the points also where a shapefile is open; the study area is that
// one's.
TEST(Sweep, OfPointsCountsTheRegionsByThePoints) {
    ScriptedPlatform platform;
    for (const auto& [rules, count] : {std::pair{&PointRules(), 3}, std::pair{&PolygonRules(), 2}}) {
        TakeThree();
        ws.bTextfileData = ws.bShapefileData = true;
        ws.NumTextRegion = 3;
        ws.NumRegion = 2;
        Sweep(RetroVariable::FreemanTukey, {"0.5", "1", "0.5"}, *rules);
        EXPECT_EQ(ws.NumRegion, count);
        EXPECT_EQ(ws.StatisticTable.UpperBound1(), count);
    }
}

namespace {

/// The steps that a share of the sweep over these texts computes.
std::vector<SweepStep> StepsOf(RetroVariable variable, const SweepTexts& texts, const SweepShare& share) {
    EXPECT_TRUE(RunSweepShare(variable, texts, PolygonRules(), share, [](const std::string&) {}));
    std::vector<SweepStep> steps;
    for (std::ptrdiff_t k = 0; k < ws.BandwidthCount; ++k)
        if (share.Holds(k)) steps.push_back(StepOfSweep(k));
    return steps;
}

} // namespace

TEST(Sweep, InSharesHasTheStepsOfTheWhole) {
    ScriptedPlatform platform;
    const SweepTexts texts{"0.2", "1.1", "0.35"}; // 0.2, 0.55, 0.9, and 1.25, which is stored as 1.1
    for (const auto variable : {RetroVariable::Unadjusted, RetroVariable::AdjustedPoisson,
                                RetroVariable::FreemanTukey, RetroVariable::Rossi}) {
        TakeThree();
        const auto whole = StepsOf(variable, texts, {1, 1});
        ASSERT_EQ(whole.size(), 4u);
        EXPECT_NE(whole[1], whole[3]);
        EXPECT_EQ(StepsOf(variable, texts, {1, 3}), (std::vector{whole[0], whole[3]}));
        EXPECT_EQ(StepsOf(variable, texts, {2, 3}), std::vector{whole[1]});
        EXPECT_EQ(StepsOf(variable, texts, {3, 3}), std::vector{whole[2]});
        EXPECT_TRUE(StepsOf(variable, texts, {6, 6}).empty());
    }
}

TEST(Sweep, CountsTheStepsOfAShare) {
    const SweepShare shares[] = {{1, 3}, {2, 3}, {3, 3}, {9, 9}};
    const std::ptrdiff_t counts[] = {3, 2, 2, 0}; // of the steps 0 to 6
    for (size_t i = 0; i < 4; ++i) {
        std::ptrdiff_t held = 0;
        for (std::ptrdiff_t k = 0; k < 7; ++k)
            held += shares[i].Holds(k) ? 1 : 0;
        EXPECT_EQ(held, counts[i]) << i;
        EXPECT_EQ(shares[i].CountOf(7), counts[i]) << i;
    }
}

TEST(Sweep, OfAShareHasItsRowsAndItsFaultsAlone) {
    ScriptedPlatform platform;
    TakeThree();
    Rows rows;
    const auto addRow = [&](const std::string& row) { rows.push_back(row); };
    const SweepTexts texts{"1", "2e200", "1e200"}; // the second and the third overflow
    EXPECT_TRUE(RunSweepShare(RetroVariable::Rossi, texts, PolygonRules(), {1, 3}, addRow));
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[2].substr(0, 6), " 1.000");
    EXPECT_EQ(ErrorNumberOf([&] {
                  RunSweepShare(RetroVariable::Rossi, texts, PolygonRules(), {2, 3}, addRow);
              }),
              Overflow);
}

// The numbers are not of these Regions: nothing is computed but what follows from them.
TEST(Sweep, IsJoinedOutOfStepsWithoutTheRoomToComputeThem) {
    ScriptedPlatform platform;
    TakeThree();
    SweepStep first{12, 4, 8, 1.5, Array1<double>(3)}, second{10, 9, 3, 2.5, Array1<double>(3)};
    first.Local(2) = 7;
    second.Local(3) = -6;
    ForceAvailableMemory([] { return 4 * 3 * 8; }); // the table of statistics
    Rows rows;
    ASSERT_TRUE(JoinSweep(
        RetroVariable::AdjustedPoisson, {"1", "2", "1"}, PolygonRules(),
        [&](std::ptrdiff_t k) -> const SweepStep& { return k == 0 ? first : second; },
        [&](const std::string& row) { rows.push_back(row); }));
    ForceAvailableMemory({});
    EXPECT_EQ(StepOfSweep(0), first);
    EXPECT_EQ(StepOfSweep(1), second);
    EXPECT_EQ(rows.size(), 5u);
    EXPECT_EQ(ws.SweepPValue(1), ChiSquarePValue(9, 3));
    EXPECT_EQ(ws.SweepChiCritical(1), ChiCritical(0.05, 3));
    EXPECT_EQ(ws.ChartData(1, 0), 9);
    SelectSweepStep(1);
    EXPECT_EQ(ws.DisplayDrawValues(3), -6);
}
