#include "core/prospective/PointCusum.h"

#include "core/display/MapSizes.h"
#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumInput.h"
#include "core/prospective/CusumParameters.h"
#include "core/prospective/CusumRows.h"
#include "core/prospective/CusumTestTables.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace vastrel;

namespace {

/// Loads a dataset and plots it on the map with its opening size.
PointCusum Loaded(const std::string& ids, const std::string& z) {
    PointCusum watch;
    EXPECT_TRUE(LoadIDXY(watch, ids));
    EXPECT_TRUE(LoadNewZScore(watch, z));
    PointView view;
    view.PointZoom = ProspectivePointMapZoom.Start;
    PlotAllPoints(view, ProspectivePointSurface(), watch.RegionX, watch.RegionY);
    return watch;
}

void TakeParameters(const std::string& sigma) {
    const CusumTexts texts{"0.5", "9.3", sigma};
    EXPECT_TRUE(TakeCusumParameters(texts));
    TakeCusumSigma(texts.Sigma);
}

std::string Sample(const std::string& name) {
    return InProject("samples/") + name;
}

class PointCusumRun : public testing::Test {
protected:
    PointCusumRun() {
        ws = Workspace{};
        TakeParameters("0");
    }

    PointCusum Loaded(const std::string& ids, const std::string& z) {
        return ::Loaded(folder_.Write("ids.txt", ids), folder_.Write("z.txt", z));
    }
    bool LoadSaved(PointCusum& watch, const std::string& bytes) {
        return LoadOldCusum(watch, folder_.Write("saved.txt", bytes));
    }

    TemporaryFolder folder_;
};

constexpr const char* FourPoints = "A,0,0\nB,10,0\nC,10,10\nD,0,10\n";

} // namespace

TEST_F(PointCusumRun, FromZeroFillsTheNewTables) {
    auto watch = Loaded(FourPoints, "1,1\n2,-4\n0,0\n-1,2\n");
    RunPointCusum(watch, StartOption::Zero);
    EXPECT_EQ(watch.CusumNew, TableOf({{0.5, 1}, {1.5, 0}, {0, 0}, {0, 1.5}}));
    EXPECT_EQ(FromOne(watch.MaxNew), (Numbers{1.5, 1.5}));
    EXPECT_EQ(FromOne(watch.MaxRegionNew), (Texts{"B", "D"}));
    EXPECT_EQ(FromOne(watch.LabelNew), (Texts{"A", "B", "C", "D"}));
    EXPECT_FALSE(watch.CusumAll.IsAllocated());
    EXPECT_EQ(ws.NumRegion, 0);
    EXPECT_EQ(ws.TotalShapeArea, 0); // the store keeps that of the polygons
}

TEST_F(PointCusumRun, FromFIRStartsAtHalfTheThreshold) {
    auto watch = Loaded(FourPoints, "1\n2\n0\n-6\n");
    RunPointCusum(watch, StartOption::FIR);
    EXPECT_DOUBLE_EQ(watch.CusumNew(1, 1), 4.65 + 1 - 0.5);
    EXPECT_DOUBLE_EQ(watch.CusumNew(3, 1), 4.65 - 0.5);
    EXPECT_EQ(watch.CusumNew(4, 1), 0);
}

TEST_F(PointCusumRun, FromPreviousFillsTheTablesOfAllPeriods) {
    auto watch = Loaded(FourPoints, "1,-4,2\n0.5,0.5,5\n0,0,0\n0,0,0\n");
    ASSERT_TRUE(LoadSaved(watch, "0.5,-1,0,2,3\n0.5,-2,4,0,1.25\n0,0,0,0,0\n0,0,0,0,0\n"));
    RunPointCusum(watch, StartOption::Previous);
    EXPECT_EQ(watch.PeriodCount(StartOption::Previous), 8);
    EXPECT_EQ(RowOf(watch.CusumAll, 1), (Numbers{0.5, -1, 0, 2, 3, 3.5, 0, 1.5}));
    EXPECT_EQ(FromOne(watch.MaxAll), (Numbers{0.5, 0, 4, 2, 3, 3.5, 1.25, 5.75}));
    EXPECT_EQ(FromOne(watch.MaxRegionAll), (Texts{"A", "", "B", "A", "A", "A", "B", "B"}));
    EXPECT_EQ(FromOne(watch.LabelAll), (Texts{"A", "B", "C", "D"}));
    EXPECT_FALSE(watch.CusumNew.IsAllocated());
    EXPECT_EQ(watch.OldCusum(1, 2), -1);
}

TEST_F(PointCusumRun, DoesNothingWithoutAStartOption) {
    auto watch = Loaded(FourPoints, "1\n2\n3\n4\n");
    RunPointCusum(watch, StartOption::None);
    EXPECT_FALSE(watch.CusumNew.IsAllocated());
}

TEST_F(PointCusumRun, StopsAtMoreZScoresThanIds) {
    auto watch = Loaded(FourPoints, "1\n2\n3\n4\n5\n");
    EXPECT_EQ(ErrorOf([&] { RunPointCusum(watch, StartOption::Zero); }), SubscriptOutOfRange);
    EXPECT_EQ(watch.CusumNew, Table<double>(5, 1));
    EXPECT_EQ(FromOne(watch.MaxRegionNew), Texts{""});
}

TEST_F(PointCusumRun, UsesTheLinesOfTheZScoresWhereTheyAreFewer) {
    auto watch = Loaded(FourPoints, "1\n2\n");
    RunPointCusum(watch, StartOption::Zero);
    EXPECT_EQ(watch.CusumNew, TableOf({{0.5}, {1.5}}));
    EXPECT_EQ(FromOne(watch.LabelNew), (Texts{"A", "B"}));
    const double areaOfTwo = watch.StudyArea;
    auto all = Loaded(FourPoints, "1\n2\n3\n4\n");
    RunPointCusum(all, StartOption::Zero);
    EXPECT_EQ(areaOfTwo, all.StudyArea); // the hull has all ids
    EXPECT_GT(areaOfTwo, 0);
}

TEST_F(PointCusumRun, StopsWhereTheSavedTableHasAnotherSize) {
    for (const char* saved : {"1\n2\n3\n", "1\n2\n3\n4\n5\n"}) {
        auto watch = Loaded(FourPoints, "1\n2\n3\n4\n");
        ASSERT_TRUE(LoadSaved(watch, saved));
        EXPECT_EQ(ErrorOf([&] { RunPointCusum(watch, StartOption::Previous); }), SubscriptOutOfRange);
        EXPECT_EQ(watch.CusumAll, Table<double>(4, 2));
        EXPECT_EQ(FromOne(watch.MaxAll), (Numbers{0, 0}));
    }
}

TEST_F(PointCusumRun, StopsWithoutASavedTable) {
    auto watch = Loaded(FourPoints, "1\n2\n3\n4\n");
    EXPECT_EQ(ErrorOf([&] { RunPointCusum(watch, StartOption::Previous); }), SubscriptOutOfRange);
}

// The hull of a square from its corner at 0: the two sides that do not touch the corner sum up to its area.
TEST_F(PointCusumRun, TakesTheStudyAreaOfTheMapAtEachRun) {
    auto watch = Loaded(FourPoints, "1\n2\n3\n4\n");
    for (const std::int32_t side : {3, 5}) {
        ws.PlottedPoints.ReDim(4);
        const PlotPoint corners[] = {{0, 0}, {side, 0}, {side, side}, {0, side}};
        for (int i = 1; i <= 4; ++i)
            ws.PlottedPoints(i) = corners[i - 1];
        ws.ScaleX = ws.ScaleY = 1;
        RunPointCusum(watch, StartOption::Zero);
        EXPECT_EQ(watch.StudyArea, side * side);
    }
}

TEST_F(PointCusumRun, StopsAtAStudyAreaOfZero) {
    auto watch = Loaded("A,1,1\nB,2,1\n", "1\n2\n"); // in one line: never plotted
    EXPECT_EQ(ErrorOf([&] { RunPointCusum(watch, StartOption::Zero); }), DivisionByZero);
    EXPECT_EQ(watch.CusumNew, Table<double>(2, 1));
    auto together = Loaded("A,1,1\nB,1,1\n", "1\n2\n");
    EXPECT_EQ(ErrorOf([&] { RunPointCusum(together, StartOption::Zero); }), InvalidProcedureCall);
}

TEST_F(PointCusumRun, RunsWithOneRegionAndNoStudyArea) {
    for (const char* sigma : {"0", "1"}) {
        auto watch = Loaded("A,1,1\n", "3,3,3\n");
        TakeParameters(sigma);
        RunPointCusum(watch, StartOption::Zero);
        EXPECT_EQ(watch.CusumNew, TableOf({{2.5, 5, 7.5}}));
    }
}

TEST_F(PointCusumRun, CountsTheSavedAndTheNewPeriodsInSixteenBits) {
    auto watch = Loaded("A,1,1\n", "3\n");
    watch.OldPeriodCount = 32767;
    EXPECT_EQ(ErrorOf([&] { RunPointCusum(watch, StartOption::Previous); }), Overflow);
}

TEST_F(PointCusumRun, UsesNoPlottedPointsOfAnEarlierDataset) {
    Loaded(FourPoints, "1\n2\n3\n4\n");
    PointCusum watch;
    LoadIDXY(watch, folder_.Write("ids.txt", "A,0,0\nB,7,3\nC,5,9\nD,1,8\n"));
    LoadNewZScore(watch, folder_ / "z.txt");
    EXPECT_EQ(ErrorOf([&] { RunPointCusum(watch, StartOption::Zero); }), DivisionByZero);
}

TEST_F(PointCusumRun, LeavesNothingOfAnEarlierRun) {
    auto watch = Loaded(FourPoints, "9,9\n9,9\n9,9\n9,9\n");
    RunPointCusum(watch, StartOption::Zero);
    LoadNewZScore(watch, folder_.Write("z.txt", "-1\n-1\n-1\n-1\n"));
    RunPointCusum(watch, StartOption::Zero);
    EXPECT_EQ(watch.CusumNew, Table<double>(4, 1));
    EXPECT_EQ(FromOne(watch.MaxRegionNew), Texts{""});
}

// ---- The sample country. Its figures come from the calculations of samples/check and, for the smoothed
// watch, from a Python calculation from the plotted positions on, which shares no code with the program.

namespace {

std::vector<size_t> SignalCounts(const Table<double>& cusum, std::ptrdiff_t n) {
    std::vector<size_t> counts;
    for (std::ptrdiff_t t = 1; t <= cusum.UpperBound2(); ++t)
        counts.push_back(SignaledRegions(cusum, n, t, ws.HValue).size());
    return counts;
}

Texts SignalIDs(const PointCusum& watch, const Table<double>& cusum, std::ptrdiff_t period) {
    Texts ids;
    for (const auto i : SignaledRegions(cusum, watch.N, period, ws.HValue))
        ids.push_back(watch.RegionIDs(i));
    return ids;
}

const std::vector<size_t> Outbreak{2, 6, 13, 16, 17, 19, 19}; // of the periods 18 to 24

} // namespace

TEST_F(PointCusumRun, FindsTheOutbreakOfTheSample) {
    auto watch = ::Loaded(Sample("watch_xy.txt"), Sample("watch_z.txt"));
    RunPointCusum(watch, StartOption::Zero);
    std::vector<size_t> expected(17, 0);
    expected.insert(expected.end(), Outbreak.begin(), Outbreak.end());
    EXPECT_EQ(SignalCounts(watch.CusumNew, watch.N), expected);
    EXPECT_EQ(SignalIDs(watch, watch.CusumNew, 18), (Texts{"H0311", "H0514"}));
    EXPECT_EQ(PeriodRow(24, watch.MaxNew(24), watch.MaxRegionNew(24)), "   24    39.22                H0411");
    EXPECT_EQ(SignalIDs(watch, watch.CusumNew, 24),
              (Texts{"H0311", "H0312", "H0313", "H0411", "H0412", "H0413", "H0414", "H0510", "H0511", "H0512",
                     "H0513", "H0514", "H0611", "H0612", "H0613", "H0614", "H0711", "H0712", "H0713"}));
}

TEST_F(PointCusumRun, FindsTheOutbreakBehindSavedPeriods) {
    auto watch = ::Loaded(Sample("watch_xy.txt"), Sample("watch_z.txt"));
    ASSERT_TRUE(LoadOldCusum(watch, Sample("watch_previous.txt")));
    RunPointCusum(watch, StartOption::Previous);
    std::vector<size_t> expected(12 + 17, 0);
    expected.insert(expected.end(), Outbreak.begin(), Outbreak.end());
    EXPECT_EQ(SignalCounts(watch.CusumAll, watch.N), expected);
}

TEST_F(PointCusumRun, FindsTheOutbreakOnePeriodEarlierWithASpatialFilter) {
    TakeParameters("1");
    auto watch = ::Loaded(Sample("watch_xy.txt"), Sample("watch_z.txt"));
    RunPointCusum(watch, StartOption::Zero);
    EXPECT_NEAR(watch.StudyArea, 73631.44396053859, 1e-8);
    std::vector<size_t> expected(16, 0);
    for (const size_t count : std::vector<size_t>{16, 19, 23, 28, 29, 30, 32, 33})
        expected.push_back(count);
    EXPECT_EQ(SignalCounts(watch.CusumNew, watch.N), expected);
    EXPECT_NEAR(watch.MaxNew(24), 85.36993599332239, 1e-11);
    EXPECT_EQ(watch.MaxRegionNew(24), "H0412");
}

// ---- Real series

namespace {

struct Series {
    const char* Name;
    const char* Sigma;
    double LastMaximum; // from the Python calculation, as the area
};

class RealSeries : public testing::TestWithParam<Series> {
protected:
    void SetUp() override {
        ws = Workspace{};
        if (Path("xy").empty()) GTEST_SKIP() << "no real data here";
        TakeParameters(GetParam().Sigma);
    }
    static std::string Path(const std::string& part) {
        return RealData("prospect/" + std::string(GetParam().Name) + "_" + part + ".txt");
    }
};

/// The columns from..to of a file of numbers, both from 1, as texts.
std::string Columns(const std::string& path, size_t from, size_t to) {
    std::string bytes;
    const TextFile text(path);
    LineReader file(text);
    for (std::string line; file.NextLine(line);) {
        const auto fields = SplitAtCommas(line);
        for (size_t j = from; j <= to; ++j)
            bytes += fields.at(j - 1) + (j == to ? "\n" : ",");
    }
    return bytes;
}

/// A cusum file freed of its header and of the comma at each line's end.
std::string PlainTable(Texts lines) {
    lines.erase(lines.begin());
    for (auto& line : lines)
        line.pop_back();
    return JoinLines(lines);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Prospect, RealSeries,
    testing::Values(Series{"imd", "0", 31.28765100000001}, Series{"imd", "0.5", 29.218558788629004},
                    Series{"imd", "1", 8.770732665977715}, Series{"msl", "0", 156.597708},
                    Series{"msl", "0.5", 152.29754212486867}, Series{"msl", "1", 76.38392418351555}),
    [](const auto& test) {
        std::string name = std::string(test.param.Name) + "_" + test.param.Sigma;
        std::replace(name.begin(), name.end(), '.', '_');
        return name;
    });

TEST_P(RealSeries, EqualsTheHeightOfTheSumAboveItsLowestPoint) {
    auto watch = Loaded(Path("xy"), Path("z"));
    RunPointCusum(watch, StartOption::Zero);
    EXPECT_NEAR(watch.StudyArea, 255764.13335589544, 1e-8);
    const std::ptrdiff_t periods = watch.NewPeriodCount;
    EXPECT_NEAR(watch.MaxNew(periods), GetParam().LastMaximum, 1e-11);
    EXPECT_EQ(watch.MaxRegionNew(periods), "5");

    const auto f = FilterZScores(
        BuildCusumWeights(watch.RegionX, watch.RegionY, watch.N, watch.StudyArea, ws.CurrentSigma),
        watch.ZScore, watch.N, periods);
    if (GetParam().Sigma == std::string("0")) {
        EXPECT_EQ(f, watch.ZScore);
    }
    for (std::ptrdiff_t i = 1; i <= watch.N; ++i) {
        double sum = 0, lowest = 0;
        for (std::ptrdiff_t t = 1; t <= periods; ++t) {
            sum += f(i, t) - 0.5;
            lowest = std::min(lowest, sum);
            EXPECT_NEAR(watch.CusumNew(i, t), sum - lowest, 1e-11) << i << " " << t;
        }
    }
}

TEST_P(RealSeries, ContinuesFromItsSavedFirstHalf) {
    auto whole = Loaded(Path("xy"), Path("z"));
    RunPointCusum(whole, StartOption::Zero);
    const std::ptrdiff_t periods = whole.NewPeriodCount, half = periods / 2;
    const auto column = [](std::ptrdiff_t t) { return static_cast<size_t>(t); };

    const TemporaryFolder folder;
    auto watch = Loaded(Path("xy"), folder.Write("first.txt", Columns(Path("z"), 1, column(half))));
    RunPointCusum(watch, StartOption::Zero);
    const auto saved = CusumFileLines(watch.CusumNew, watch.N, half);

    ASSERT_TRUE(LoadOldCusum(watch, folder.Write("saved.txt", PlainTable(saved))));
    ASSERT_TRUE(LoadNewZScore(
        watch, folder.Write("second.txt", Columns(Path("z"), column(half + 1), column(periods)))));
    RunPointCusum(watch, StartOption::Previous);

    ASSERT_EQ(watch.PeriodCount(StartOption::Previous), periods);
    EXPECT_EQ(watch.MaxRegionAll, whole.MaxRegionNew);
    EXPECT_EQ(watch.LabelAll, whole.LabelNew);
    for (std::ptrdiff_t i = 1; i <= watch.N; ++i)
        for (std::ptrdiff_t t = 1; t <= periods; ++t) // 15 digits of numbers below 200
            EXPECT_NEAR(watch.CusumAll(i, t), whole.CusumNew(i, t), 1e-12) << i << " " << t;
}
