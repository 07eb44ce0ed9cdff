#include "core/export/ExportDataset.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/AttributeRows.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/ShapeDataset.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"
#include "support/AttributeData.h"
#include "support/ProjectFolder.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"
#include "support/SmoothedScores.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

class Export : public testing::Test {
protected:
    /// Three Regions with two periods: observed in columns 1 and 2, expected in 3 and 4.
    Export() {
        OpenTable(Folder,
                  {{"KEY", 'C', 4}, {"O1", 'N', 4}, {"O2", 'N', 4}, {"E1", 'N', 8, 2}, {"E2", 'N', 8, 2}},
                  {{"a", "9", "0", "4", "1"}, {"b", "4", "3", "4", "4"}, {"c", "1", "16", "1", "9"}}, 3);
        ws.RegionCentroid.ReDim(3);
        ws.RegionCentroid(1) = {"1", 0, 0};
        ws.RegionCentroid(2) = {"2", 3, 4};
        ws.RegionCentroid(3) = {"3", 0, 10};
        ws.TotalShapeArea = 75;
        Choose(1, 2, 3, 4);
    }
    static void Choose(int obsFrom, int obsTo, int expFrom, int expTo) {
        ws.ObsFromIndex = obsFrom;
        ws.ObsToIndex = obsTo;
        ws.ExpFromIndex = expFrom;
        ws.ExpToIndex = expTo;
    }

    TemporaryFolder Folder;
    ScriptedPlatform Script;
};

using Lines = std::vector<std::string>;

} // namespace

// With sigma 0 z is the deviation: (9 - 4) / 2, (0 - 1) / 1; 0, (3 - 4) / 2; 0, (16 - 9) / 3.
TEST_F(Export, GivesTheDeviationsForABandwidthOfZero) {
    EXPECT_TRUE(ComputeExport(ExportOption::Poisson));
    EXPECT_EQ(ws.ExportSigma, 1e-9);
    EXPECT_EQ(ExportLines(), (Lines{"2.5000,-1.0000", "0.0000,-0.5000", "0.0000,2.3333"}));
    for (int i = 1; i <= 3; ++i)
        for (int j = 1; j <= 3; ++j)
            EXPECT_EQ(ws.ExportWeights(i, j), i == j ? 1 : 0);
    EXPECT_EQ(ws.ExportDeviation(3), 7.0 / 3);
    EXPECT_EQ(ws.ExportZ(3), 7.0 / 3);
    EXPECT_EQ(ws.ExportObs(3), 16);
    EXPECT_EQ(ws.ExportExp(3), 9);
}

// Freeman-Tukey: 3 + sqrt(10) - sqrt(17) = 2.039172; sqrt(0) + 1 - sqrt(5) = -1.236068. Rossi: 9 / 4; (0 - 3)
// / 2; (4 - 12 + 8) / 4; (3 - 12 + 2 sqrt(12)) / 4 = -0.517949; 0; (16 - 27 + 24) / 6 = 2.166667.
TEST_F(Export, ServesTheOtherOptions) {
    EXPECT_TRUE(ComputeExport(ExportOption::Standard));
    EXPECT_EQ(ExportLines()[0], "2.0392,-1.2361");
    EXPECT_TRUE(ComputeExport(ExportOption::Rossi));
    EXPECT_EQ(ExportLines(), (Lines{"2.2500,-1.5000", "0.0000,-0.5179", "0.0000,2.1667"}));
}

TEST_F(Export, SmoothsWithRowsOfLengthOne) {
    ws.ExportSigma = 1;
    EXPECT_TRUE(ComputeExport(ExportOption::Poisson));
    const auto first = SmoothedAnotherWay({2.5L, 0, 0}, 1);
    const auto second = SmoothedAnotherWay({-1, -0.5L, 7 / 3.0L}, 1);
    for (int i = 1; i <= 3; ++i) {
        double length = 0;
        for (int j = 1; j <= 3; ++j)
            length += ws.ExportWeights(i, j) * ws.ExportWeights(i, j);
        EXPECT_NEAR(length, 1, 1e-15);
        EXPECT_NEAR(ws.ExportTable(i, 1), first[static_cast<size_t>(i - 1)], 1e-14);
        EXPECT_NEAR(ws.ExportTable(i, 2), second[static_cast<size_t>(i - 1)], 1e-14);
    }
}

TEST_F(Export, TurnsTheSignsForANegativeBandwidth) {
    ws.ExportSigma = 2;
    ComputeExport(ExportOption::Rossi);
    const auto positive = ws.ExportTable;
    ws.ExportSigma = -2;
    EXPECT_TRUE(ComputeExport(ExportOption::Rossi));
    EXPECT_EQ(ws.ExportSigma, -2);
    for (int i = 1; i <= 3; ++i)
        for (int t = 1; t <= 2; ++t)
            EXPECT_EQ(ws.ExportTable(i, t), -positive(i, t));
}

TEST_F(Export, WritesOneColumnWithoutACommaForOnePeriod) {
    Choose(2, 2, 4, 4);
    EXPECT_TRUE(ComputeExport(ExportOption::Poisson));
    EXPECT_EQ(ExportLines(), (Lines{"-1.0000", "-0.5000", "2.3333"}));
}

TEST_F(Export, IsZeroWhereObservedAndExpectedAreTheSameColumns) {
    ws.ExportSigma = 1.5;
    Choose(3, 4, 3, 4);
    EXPECT_TRUE(ComputeExport(ExportOption::Poisson));
    EXPECT_EQ(ExportLines(), (Lines(3, "0.0000,0.0000")));
}

TEST_F(Export, DoesNothingWithoutAnOption) {
    ws.ExportTable.ReDim(9, 9);
    EXPECT_FALSE(ComputeExport(ExportOption::None));
    EXPECT_EQ(ws.ExportTable.UpperBound1(), 3);
    EXPECT_EQ(ws.ExportTable.UpperBound2(), 2);
    EXPECT_EQ(ws.ExportTable(1, 1), 0);
    EXPECT_FALSE(ws.ExportWeights.IsAllocated());
    EXPECT_EQ(ws.ExportSigma, 0);
}

TEST_F(Export, TakesARangeThatWasTurnedRoundAfterItsCheck) {
    Choose(2, 1, 3, 4);
    EXPECT_TRUE(ComputeExport(ExportOption::Poisson));
    EXPECT_EQ(ExportLines(), (Lines{"", "", ""})); // no period, a line a Region
    Choose(3, 1, 3, 4);
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), SubscriptOutOfRange);
}

// ---- Faults

TEST_F(Export, StopsAtAnExpectedCountOfZero) {
    Choose(1, 2, 4, 2); // expected: E2, then beyond the table
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), ItemNotFound);
    EXPECT_EQ(ws.ExportTable(1, 1), 8); // (9 - 1) / 1, the period before the fault
    EXPECT_EQ(ws.ExportTable(1, 2), 0);
    Choose(1, 1, 2, 2); // expected: O2, which begins with 0
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Rossi); }), DivisionByZero);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(ws.ExportDeviation(i), 0);
        EXPECT_EQ(ws.ExportZ(i), 0);
        EXPECT_EQ(ws.ExportTable(i, 1), 0);
    }
    EXPECT_TRUE(ComputeExport(ExportOption::Standard));
    EXPECT_EQ(ExportLines()[0], "5.1623"); // 3 + sqrt(10) - 1
}

TEST_F(Export, LeavesNoDeviationsOfTheRegionsBeforeAFault) {
    ws.ExportSigma = 1;
    BuildExportWeights();
    ws.ExportObs.ReDim(3);
    ws.ExportExp.ReDim(3);
    for (int i = 1; i <= 3; ++i) {
        ws.ExportObs(i) = 9;
        ws.ExportExp(i) = i < 3 ? 4 : 0;
    }
    EXPECT_EQ(ErrorNumberOf([] { ComputeExportZ(ExportOption::Poisson); }), DivisionByZero);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(ws.ExportDeviation(i), 0) << i;
        EXPECT_EQ(ws.ExportZ(i), 0) << i;
    }
}

TEST_F(Export, StopsForASigmaWhoseSquareIsNothing) {
    ws.ExportSigma = 1e-200;
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), DivisionByZero);
    for (int i = 1; i <= 3; ++i)
        for (int j = 1; j <= 3; ++j)
            EXPECT_EQ(ws.ExportWeights(i, j), 0);
}

TEST_F(Export, StopsForASigmaWhoseSquareIsTooLarge) {
    ws.ExportSigma = 1e200;
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), Overflow);
}

TEST_F(Export, StopsWhereTheMapHasNoArea) {
    ws.TotalShapeArea = 0;
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), DivisionByZero);
    EXPECT_EQ(ws.ExportWeights(1, 1), 0);
    EXPECT_EQ(ws.ExportTable(1, 1), 0);
}

TEST_F(Export, StopsAtAValueThatNoCheckHasSeen) {
    OpenTable(Folder, {{"O1", 'N', 4}, {"O2", 'N', 4}, {"T", 'C', 4}}, {{"1", "2", "3"}, {"4", "*", "x"}}, 2);
    ws.RegionCentroid.ReDim(2);
    ws.RegionCentroid(2) = {"2", 3, 4};
    ws.TotalShapeArea = 1;
    Choose(0, 2, 0, 2);
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), InvalidUseOfNull);
    EXPECT_EQ(AttributeTable().Fields("O1").Value().Number(), 4); // on the row of the null
    Choose(2, 2, 0, 0);
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), TypeMismatch);
}

TEST_F(Export, RunsOffATableWithFewerRowsThanShapes) {
    ws.NumRegion = 4;
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), NoCurrentRecord);
    EXPECT_EQ(ws.ExportObs(3), 1);
    ws.AttributeRecordset.reset();
    EXPECT_EQ(ErrorNumberOf([] { ComputeExport(ExportOption::Poisson); }), ObjectNotSet);
}

TEST_F(Export, ReadsTheFirstRowsOfALongerTable) {
    ws.NumRegion = 2;
    EXPECT_TRUE(ComputeExport(ExportOption::Poisson));
    EXPECT_EQ(ExportLines(), (Lines{"2.5000,-1.0000", "0.0000,-0.5000"}));
}

// ---- Whole datasets, worked out another way to the four decimals

namespace {

int ColumnOf(const std::string& name) {
    const auto names = FieldNames();
    return static_cast<int>(std::find(names.begin(), names.end(), name) - names.begin());
}

/// The counts of one period of the table, by column.
std::vector<long double> CountsOf(int column) {
    std::vector<long double> counts;
    WalkRows([&](std::ptrdiff_t) { counts.push_back(AttributeTable().Fields(column).Value().Number()); });
    return counts;
}

struct Range {
    std::string First, Last;
};

/// Exports the open dataset with each option, and compares every number that would be written.
void ExpectAnotherComputation(const Range& observed, const Range& expected,
                              std::initializer_list<double> sigmas) {
    const std::pair<ExportOption, const char*> options[] = {{ExportOption::Poisson, "poisson"},
                                                            {ExportOption::Standard, "standard"},
                                                            {ExportOption::Rossi, "rossi"}};
    ComputeShapeAreas();
    ComputeCentroids();
    ws.ObsFromIndex = ColumnOf(observed.First);
    ws.ObsToIndex = ColumnOf(observed.Last);
    ws.ExpFromIndex = ColumnOf(expected.First);
    ws.ExpToIndex = ColumnOf(expected.Last);
    const int periods = ColumnOf(observed.Last) - ColumnOf(observed.First) + 1;
    for (const auto& [option, name] : options)
        for (const double sigma : sigmas) {
            ws.ExportSigma = sigma;
            ASSERT_TRUE(ComputeExport(option));
            Lines lines(static_cast<size_t>(ws.NumRegion));
            for (int t = 0; t < periods; ++t) {
                const auto o = CountsOf(ColumnOf(observed.First) + t),
                           e = CountsOf(ColumnOf(expected.First) + t);
                std::vector<long double> scores;
                for (size_t i = 0; i < lines.size(); ++i)
                    scores.push_back(ScoreAnotherWay(name, o[i], e[i]));
                const auto z = SmoothedAnotherWay(scores, sigma);
                for (size_t i = 0; i < lines.size(); ++i)
                    lines[i] += (t > 0 ? "," : "") + Num(z[i], "0.0000");
            }
            EXPECT_EQ(ExportLines(), lines) << name << " at " << sigma;
        }
}

} // namespace

TEST_F(Export, AgreesWithAnotherComputationOnTheSample) {
    const std::string path = InProject("samples/country.shp");
    ASSERT_TRUE(OpenShapeAttributes({path, "country.shp", false}));
    ReadShapeHeader();
    LoadShapes();
    ExpectAnotherComputation({"OBS01", "OBS24"}, {"EXP01", "EXP24"}, {0.5, 2});
}

TEST_F(Export, AgreesWithAnotherComputationOnTheGermanDistricts) {
    if (!OpenRealDataset(Folder, "imd_de/imd_de")) GTEST_SKIP() << "no real data";
    ExpectAnotherComputation({"IMD", "IMD"}, {"EXPECTED", "EXPECTED"}, {0.5, 1, 3});
    EXPECT_EQ(ws.NumRegion, 413);
}
