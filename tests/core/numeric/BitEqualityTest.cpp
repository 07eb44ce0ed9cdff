#include "core/retrospective/RetroProcedures.h"

#include "core/display/PointMap.h"
#include "core/platform/RunTimeError.h"
#include "core/retrospective/Bandwidth.h"
#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/PointDataset.h"
#include "core/retrospective/ScoreStatistic.h"
#include "core/retrospective/Sweep.h"
#include "core/retrospective/Weights.h"
#include "core/spatial/StudyArea.h"
#include "support/ForcedMachine.h"
#include "support/PlainRetrospective.h"
#include "support/ProjectFolder.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>

using namespace vastrel;

namespace {

constexpr RetroVariable Variables[] = {RetroVariable::Unadjusted, RetroVariable::AdjustedPoisson,
                                       RetroVariable::FreemanTukey, RetroVariable::Rossi};

/// The 207 Regions of the sample country, their study area as a polygon dataset would bring it, so that every
/// run starts from the same.
Workspace Country() {
    ws = Workspace{};
    ws.bTextfileData = true;
    LoadPointDataset(InProject("samples/country_pop.txt"), PointFormat::PopCase);
    ws.bTextfileData = false;
    ws.bShapefileData = true;
    ws.NumRegion = static_cast<std::int32_t>(ws.NumTextRegion);
    ws.TotalShapeArea = 400.0 * ws.NumRegion;
    ws.AlphaLevel = 0.05;
    return ws;
}

// ---- Comparison by bits

bool SameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool SameBits(const Array1<double>& a, const Array1<double>& b) {
    return a.UpperBound() == b.UpperBound() && std::equal(a.data(), a.data() + (a.UpperBound() + 1), b.data(),
                                                          [](double x, double y) { return SameBits(x, y); });
}

bool SameBits(const Table<double>& a, const Table<double>& b) {
    if (a.UpperBound1() != b.UpperBound1() || a.UpperBound2() != b.UpperBound2()) return false;
    for (std::ptrdiff_t i = 0; i <= a.UpperBound1(); ++i)
        for (std::ptrdiff_t j = 0; j <= a.UpperBound2(); ++j)
            if (!SameBits(a(i, j), b(i, j))) return false;
    return true;
}

/// Every result of a run that the store holds, named.
template <typename Compare>
void ForEachResult(const Workspace& a, const Workspace& b, Compare compare) {
    compare("CurrentSigma", a.CurrentSigma, b.CurrentSigma);
    compare("LocalU", a.LocalU, b.LocalU);
    compare("LocalZ", a.LocalZ, b.LocalZ);
    compare("LocalUAdjusted", a.LocalUAdjusted, b.LocalUAdjusted);
    compare("LocalZAdjusted", a.LocalZAdjusted, b.LocalZAdjusted);
    compare("GlobalU", a.GlobalU, b.GlobalU);
    compare("GlobalUAdjusted", a.GlobalUAdjusted, b.GlobalUAdjusted);
    compare("ScoreMean", a.ScoreMean, b.ScoreMean);
    compare("ScoreVar", a.ScoreVar, b.ScoreVar);
    compare("ScoreDF", a.ScoreDF, b.ScoreDF);
    compare("ScoreZ", a.ScoreZ, b.ScoreZ);
    compare("ScoreChi", a.ScoreChi, b.ScoreChi);
    compare("MapClassScore", a.MapClassScore, b.MapClassScore);
    compare("MapDrawScore", a.MapDrawScore, b.MapDrawScore);
    compare("DevPearson", a.DevPearson, b.DevPearson);
    compare("DevFreemanTukey", a.DevFreemanTukey, b.DevFreemanTukey);
    compare("DevRossi", a.DevRossi, b.DevRossi);
    compare("LocalM", a.LocalM, b.LocalM);
    compare("MapDrawM", a.MapDrawM, b.MapDrawM);
    compare("MapClassM", a.MapClassM, b.MapClassM);
    compare("DisplayClassValues", a.DisplayClassValues, b.DisplayClassValues);
    compare("DisplayDrawValues", a.DisplayDrawValues, b.DisplayDrawValues);
    compare("SigmaTo", a.SigmaTo, b.SigmaTo);
    compare("BandwidthList", a.BandwidthList, b.BandwidthList);
    compare("SweepStat", a.SweepStat, b.SweepStat);
    compare("SweepChi", a.SweepChi, b.SweepChi);
    compare("SweepChiCritical", a.SweepChiCritical, b.SweepChiCritical);
    compare("SweepDF", a.SweepDF, b.SweepDF);
    compare("SweepPValue", a.SweepPValue, b.SweepPValue);
    compare("SweepMaxM", a.SweepMaxM, b.SweepMaxM);
    compare("SweepMCritical", a.SweepMCritical, b.SweepMCritical);
    compare("StatisticTable", a.StatisticTable, b.StatisticTable);
    compare("ChartData", a.ChartData, b.ChartData);
}

void ExpectSameResults(const Workspace& plain) {
    ForEachResult(ws, plain, [](const char* name, const auto& got, const auto& expected) {
        EXPECT_TRUE(SameBits(got, expected)) << name;
    });
    EXPECT_EQ(ws.BandwidthCount, plain.BandwidthCount);
}

} // namespace

TEST(BitEquality, SingleRunsEqualThePlainLoopsInEveryBitOnEveryMachine) {
    const Workspace dataset = Country();
    for (const auto variable : Variables)
        for (const double sigma : {SigmaForZero, 0.7}) {
            Workspace plain = dataset;
            plain.CurrentSigma = sigma;
            PlainSingle(variable, plain);
            SCOPED_TRACE(testing::Message()
                         << "variable " << static_cast<int>(variable) << ", sigma " << sigma);
            OnEveryMachine([&] {
                ws = dataset;
                ws.CurrentSigma = sigma;
                RunSingleProcedures(variable);
                ExpectSameResults(plain);
            });
        }
}

TEST(BitEquality, SweepsEqualThePlainLoopsInEveryBitOnEveryMachine) {
    ScriptedPlatform platform;
    const Workspace dataset = Country();
    for (const auto variable : Variables) {
        Workspace plain = dataset;
        PlainSweep(variable, 0.2, 2, 0.9, plain);
        SCOPED_TRACE(testing::Message() << "variable " << static_cast<int>(variable));
        OnEveryMachine([&] {
            ws = dataset;
            ASSERT_TRUE(RunSweep(variable, {"0.2", "2", "0.9"}, PolygonRules(), [](const std::string&) {}));
            ExpectSameResults(plain);
        });
    }
}

TEST(BitEquality, MatricesEqualThePlainOnes) {
    Workspace plain = Country();
    plain.CurrentSigma = ws.CurrentSigma = 0.7;
    PlainSingle(RetroVariable::AdjustedPoisson, plain);
    BuildScoreWeights();
    BuildMWeights();
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        for (std::ptrdiff_t j = 1; j <= ws.NumRegion; ++j)
            EXPECT_TRUE(SameBits(ws.WeightM(i, j), plain.WeightUnadjusted(i, j))) << i << " " << j;
    EXPECT_TRUE(SameBits(ws.WeightUnadjusted, plain.WeightUnadjusted));
    EXPECT_TRUE(SameBits(ws.WeightAdjusted, plain.WeightAdjusted));
    EXPECT_TRUE(SameBits(ws.ScoreGramPlain, plain.ScoreGramPlain));
    EXPECT_TRUE(SameBits(ws.ScoreGramAdjusted, plain.ScoreGramAdjusted));
}

TEST(BitEquality, ChangedPositionsAreSeen) {
    Workspace plain = Country();
    ws.CurrentSigma = plain.CurrentSigma = 1;
    RunSingleProcedures(RetroVariable::Rossi);
    ws.RegionCentroid(5).Y += 0.25;
    plain.RegionCentroid(5).Y += 0.25;
    PlainSingle(RetroVariable::Rossi, plain);
    RunSingleProcedures(RetroVariable::Rossi);
    ExpectSameResults(plain);
    std::swap(ws.RegionCentroid(1), ws.RegionCentroid(2));
    std::swap(plain.RegionCentroid(1), plain.RegionCentroid(2));
    PlainSingle(RetroVariable::Rossi, plain);
    RunSingleProcedures(RetroVariable::Rossi);
    ExpectSameResults(plain);
}

TEST(BitEquality, AFaultOfTheDistancesIsToldAtEveryRun) {
    Country();
    ws.CurrentSigma = 1;
    ws.RegionCentroid(3).X = 1e200; // its square overflows
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), Overflow);
}

TEST(BitEquality, MatricesAreGivenBackWithTheirLastReader) {
    for (const auto variable : Variables) {
        Country();
        ws.CurrentSigma = 1;
        RunSingleProcedures(variable);
        EXPECT_FALSE(ws.WeightM.IsAllocated());
        for (const auto* table :
             {&ws.WeightUnadjusted, &ws.WeightAdjusted, &ws.ScoreGramPlain, &ws.ScoreGramAdjusted})
            EXPECT_FALSE(table->IsAllocated());
    }
}

TEST(BitEquality, ARunBeyondTheMemoryStopsBeforeItStarts) {
    // 32767 Regions and their tables: 5 * 32768^2 * 8 bytes are 40 GiB.
    Country();
    ws.NumRegion = 32767;
    ws.LocalU.ReDim(3);
    try {
        PrepareRun(RetroVariable::Unadjusted);
        GTEST_SKIP() << "This machine has the memory.";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), OutOfMemory);
        EXPECT_NE(error.Description().find("40960 MB"), std::string::npos) << error.Description();
    }
    EXPECT_EQ(ErrorNumberOf([] { RunSingleProcedures(RetroVariable::Unadjusted); }), OutOfMemory);
    EXPECT_EQ(ws.LocalU.UpperBound(), 3); // nothing was begun
    ws.NumRegion = 32768;
    EXPECT_EQ(ErrorNumberOf([] { PrepareRun(RetroVariable::Rossi); }), Overflow);
}

TEST(BitEquality, PValuesEqualThePlainIntegration) {
    for (const double z : {0.0, 1e-9, 0.00005, 1.0, 1.96, -3.0, 4.5, -4.7, -45.0})
        EXPECT_TRUE(SameBits(NormalPValue(z), PlainNormalPValue(z))) << z;
}
