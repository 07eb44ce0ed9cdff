#include "core/retrospective/PointDataset.h"

#include "core/retrospective/Weights.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"
#include "support/Arrays.h"
#include "support/PeakMemory.h"
#include "support/ProjectFolder.h"
#include "support/RaisedError.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <unistd.h>

using namespace vastrel;

namespace {

using Values = std::vector<double>;

constexpr const char* ThreeRegions = "A,1.5,-2,20500,17\n"
                                     "B,0,1e2,3310,2\n"
                                     "C,4,.25,77,1\n";

bool LoadBytes(const std::string& bytes, PointFormat format) {
    const TemporaryFolder folder;
    return LoadPointDataset(folder.Write("points.txt", bytes), format);
}

/// A fresh store, and the number of the error that the load stops with.
long ErrorOf(const std::string& bytes, PointFormat format = PointFormat::PopCase) {
    ws = Workspace{};
    return ErrorNumberOf([&] { LoadBytes(bytes, format); });
}

std::string DescriptionOfLoad(const std::string& bytes, PointFormat format = PointFormat::PopCase) {
    ws = Workspace{};
    return ErrorDescriptionOf([&] { LoadBytes(bytes, format); });
}

std::vector<std::string> IDs() {
    std::vector<std::string> ids;
    for (const auto& region : From1(ws.RegionCentroid))
        ids.push_back(region.ID);
    return ids;
}

/// What the load may change, to be compared before and after.
struct Loaded {
    double NumTextRegion = ws.NumTextRegion;
    Array1<RegionPoint> RegionCentroid = ws.RegionCentroid;
    Array1<double> PopBase = ws.PopBase, ObsCount = ws.ObsCount, ExpCount = ws.ExpCount,
                   ExpRatio = ws.ExpRatio;
    double TotalObs = ws.TotalObs;
    Array1<PlotPoint> PlottedPoints = ws.PlottedPoints;
    double ScaleX = ws.ScaleX, ScaleY = ws.ScaleY;
    bool operator==(const Loaded&) const = default;
};

/// A store with a dataset of two Regions that was plotted.
void LoadTwoRegions() {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("old 1,1,2,3,4\nold 2,5,6,7,8\n", PointFormat::ObsExp));
    ws.PlottedPoints.ReDim(2);
    ws.ScaleX = ws.ScaleY = 3;
}

bool HoldsOnlyFiniteNumbers() {
    for (const auto* values : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        for (const double value : From1(*values))
            if (!std::isfinite(value)) return false;
    return std::isfinite(ws.TotalObs);
}

} // namespace

TEST(PointDataset, ReadsPopulationAndCases) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes(ThreeRegions, PointFormat::PopCase));
    EXPECT_EQ(ws.NumTextRegion, 3);
    EXPECT_EQ(From1(ws.RegionCentroid),
              (std::vector<RegionPoint>{{"A", 1.5, -2}, {"B", 0, 100}, {"C", 4, 0.25}}));
    EXPECT_EQ(From1(ws.PopBase), (Values{20500, 3310, 77}));
    EXPECT_EQ(From1(ws.ObsCount), (Values{17, 2, 1}));
    EXPECT_EQ(ws.TotalObs, 20);
    EXPECT_EQ(ws.TotalPop, 0); // of shapefiles only
    // population / 23887 by Python
    EXPECT_EQ(From1(ws.ExpRatio), (Values{0x1.b766f59d777c4p-1, 0x1.1bca1d41fc3fcp-3, 0x1.a683120973d76p-9}));
}

TEST(PointDataset, ReadsObservedAndExpectedCounts) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("1,0,0,3,2.5\n2,1,0,0,1.1\n3,0,1,4,3.4\n", PointFormat::ObsExp));
    EXPECT_EQ(From1(ws.ObsCount), (Values{3, 0, 4}));
    EXPECT_EQ(From1(ws.ExpCount), (Values{2.5, 1.1, 3.4}));
    EXPECT_EQ(From1(ws.PopBase), (Values{0, 0, 0}));
    EXPECT_EQ(ws.TotalObs, 7);
    // expected / 7 by Python: over the observed total, not over their own
    EXPECT_EQ(From1(ws.ExpRatio), (Values{0x1.6db6db6db6db7p-2, 0x1.41d41d41d41d5p-3, 0x1.f15f15f15f15fp-2}));
}

TEST(PointDataset, TakesTheRateBeforeThePopulation) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("1,0,0,16244,35\n2,1,0,24945,0\n3,0,1,14738,0\n", PointFormat::PopCase));
    // (35 / 55927) * population by Python. (35 * population) / 55927 ends in aaf, 154 and 3fc.
    EXPECT_EQ(From1(ws.ExpCount), (Values{0x1.454dd6af36ab0p+3, 0x1.f38d1b7cbd155p+3, 0x1.27250dd40c3fdp+3}));
}

TEST(PointDataset, LeavesTheNumberOfRegionsToTheTests) {
    ws = Workspace{};
    ws.NumRegion = 99;
    ASSERT_TRUE(LoadBytes(ThreeRegions, PointFormat::PopCase));
    EXPECT_EQ(ws.NumRegion, 99);
    ws.bTextfileData = true;
    TakePointDataset();
    EXPECT_EQ(ws.NumRegion, 3);
}

TEST(PointDataset, ReplacesAnEarlierOneWhole) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes(ThreeRegions, PointFormat::PopCase));
    ws.PlottedPoints.ReDim(3);
    ws.ScaleX = ws.ScaleY = 3;
    const auto mapped = {&ws.MapClassScore, &ws.MapDrawScore,       &ws.MapClassM,
                         &ws.MapDrawM,      &ws.DisplayClassValues, &ws.DisplayDrawValues};
    for (auto* values : mapped)
        values->ReDim(3);
    ws.StatisticTable.ReDim(3, 2);
    ASSERT_TRUE(LoadBytes("X,7,8,2,1\n", PointFormat::ObsExp));
    EXPECT_FALSE(ws.StatisticTable.IsAllocated());
    for (const auto* values : mapped)
        EXPECT_FALSE(values->IsAllocated());
    EXPECT_EQ(ws.NumTextRegion, 1);
    EXPECT_EQ(IDs(), (std::vector<std::string>{"X"}));
    EXPECT_EQ(From1(ws.PopBase), (Values{0})); // not the population of before
    EXPECT_EQ(ErrorNumberOf([] { ws.ObsCount(2); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([] { ws.RegionCentroid(2); }), SubscriptOutOfRange);
    EXPECT_FALSE(ws.PlottedPoints.IsAllocated());
    EXPECT_EQ(ws.ScaleX, 0);
    EXPECT_EQ(ws.ScaleY, 0);
}

TEST(PointDataset, ReadsARecordAlone) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("only,5,6,100,3", PointFormat::PopCase));
    EXPECT_EQ(ws.NumTextRegion, 1);
    EXPECT_EQ(ws.ExpCount(1), (3.0 / 100) * 100);
    EXPECT_EQ(ws.ExpRatio(1), 1);
    ws.bTextfileData = true;
    ws.CurrentSigma = 1;
    BuildScoreWeights(); // no study area, and none needed
    EXPECT_EQ(ws.NumRegion, 1);
    EXPECT_EQ(ws.WeightUnadjusted(1, 1), 1);
}

TEST(PointDataset, ReadsNothingWithoutAFormat) {
    LoadTwoRegions();
    const double total = ws.TotalObs;
    ASSERT_TRUE(LoadBytes("A,x,y,z,u\nB\n\n", PointFormat::None)); // no field is looked at
    EXPECT_EQ(ws.NumTextRegion, 3);
    EXPECT_EQ(IDs(), (std::vector<std::string>(3)));
    for (const auto* values : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        EXPECT_EQ(*values, Array1<double>(3));
    EXPECT_EQ(ws.TotalObs, total);
}

TEST(PointDataset, ReadsTheSampleDataset) {
    ws = Workspace{};
    ASSERT_TRUE(LoadPointDataset(InProject("samples/country_pop.txt"), PointFormat::PopCase));
    EXPECT_EQ(ws.NumTextRegion, 207); // these four as the samples' own notes have them
    EXPECT_EQ(ws.TotalObs, 5234);
    double population = 0;
    for (const double value : From1(ws.PopBase))
        population += value;
    EXPECT_EQ(population, 4964953);
    EXPECT_EQ(*std::min_element(ws.PopBase.data() + 1, ws.PopBase.data() + 208), 2782);
}

TEST(PointDataset, KeepsAnIdAsItStands) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("  New York ,0,0,1,1\n,1,0,1,1\n\"x\",0,1,1,1\nZ\xFCrich,0,0,1,1\n東京,2,2,1,1\n",
                          PointFormat::ObsExp));
    EXPECT_EQ(IDs(), (std::vector<std::string>{"  New York ", "", "\"x\"", "Zürich", "東京"}));
}

TEST(PointDataset, ReadsBlanksRoundNumbers) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("A, 1 ,\t2,+3 , 4e0\n", PointFormat::ObsExp));
    EXPECT_EQ(From1(ws.RegionCentroid), (std::vector<RegionPoint>{{"A", 1, 2}}));
    EXPECT_EQ(ws.ObsCount(1), 3);
    EXPECT_EQ(ws.ExpCount(1), 4);
}

TEST(PointDataset, IgnoresFurtherFieldsOfALaterLine) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("A,0,0,1,1\nB,1,1,2,2,extra,more\n", PointFormat::ObsExp));
    EXPECT_EQ(From1(ws.ObsCount), (Values{1, 2}));
}

TEST(PointDataset, MisreadsACommaInTheIdOfALaterLine) {
    ws = Workspace{};
    ASSERT_TRUE(LoadBytes("A,0,0,1,1\n12,5,6,7,8,9\n", PointFormat::ObsExp)); // "12,5" was the id
    EXPECT_EQ(From1(ws.RegionCentroid), (std::vector<RegionPoint>{{"A", 0, 0}, {"12", 5, 6}}));
    EXPECT_EQ(From1(ws.ObsCount), (Values{1, 7}));
    EXPECT_EQ(ErrorOf("A,0,0,1,1\nYork, New,5,6,7,8\n"), TypeMismatch); // " New" is no x
}

TEST(PointDataset, TakesEveryKindOfLineEnd) {
    for (const char* bytes : {"A,1,2,3,4\nB,5,6,7,8\n", "A,1,2,3,4\r\nB,5,6,7,8\r\n",
                              "A,1,2,3,4\rB,5,6,7,8\r", "A,1,2,3,4\nB,5,6,7,8", "A,1,2,3,4\r\nB,5,6,7,8",
                              "\xEF\xBB\xBF"
                              "A,1,2,3,4\nB,5,6,7,8\n"}) {
        ws = Workspace{};
        ASSERT_TRUE(LoadBytes(bytes, PointFormat::ObsExp)) << bytes;
        EXPECT_EQ(From1(ws.RegionCentroid), (std::vector<RegionPoint>{{"A", 1, 2}, {"B", 5, 6}})) << bytes;
        EXPECT_EQ(From1(ws.ExpCount), (Values{4, 8})) << bytes;
    }
}

TEST(PointDataset, CountsAnEmptyLineAsARecordAndStopsThere) {
    EXPECT_EQ(ErrorOf("A,1,2,3,4\n\n"), SubscriptOutOfRange);
    EXPECT_EQ(ws.NumTextRegion, 2);
    EXPECT_EQ(ErrorOf("A,1,2,3,4\n\nB,5,6,7,8\n"), SubscriptOutOfRange);
    EXPECT_EQ(DescriptionOfLoad("A,1,2,3,4\n\n"),
              "Subscript out of range\nline 2 of points.txt has 0 fields, field 1 is missing.");
}

TEST(PointDataset, RefusesAFirstLineWithoutFiveFields) {
    for (const char* bytes : {"A,1,2,3\nB,1,2,3,4\n", "A,1,2,3,4,5\n", "York, New,1,2,3,4\n", "A\n", "\n",
                              "\nA,1,2,3,4\n", "A;1;2;3;4\n", "A\t1\t2\t3\t4\n"}) {
        LoadTwoRegions();
        const Loaded before;
        EXPECT_FALSE(LoadBytes(bytes, PointFormat::ObsExp)) << bytes;
        EXPECT_EQ(Loaded(), before) << bytes;
    }
}

TEST(PointDataset, StopsAtAFileThatCannotBeRead) {
    LoadTwoRegions();
    const Loaded before;
    const TemporaryFolder folder;
    const auto errorOf = [](const std::string& path) {
        return ErrorNumberOf([&] { LoadPointDataset(path, PointFormat::ObsExp); });
    };
    EXPECT_EQ(errorOf(folder / "missing.txt"), FileNotFound);
    EXPECT_EQ(errorOf(folder.Path()), PathFileAccessError);
    EXPECT_EQ(errorOf(folder.Write("empty.txt", "")), InputPastEndOfFile);
    EXPECT_EQ(errorOf(folder.Write("mark.txt", "\xEF\xBB\xBF")), InputPastEndOfFile);
    EXPECT_EQ(Loaded(), before);
    if (geteuid() == 0) GTEST_SKIP() << "Root may read every file.";
    const std::string locked = folder.Write("locked.txt", ThreeRegions);
    std::filesystem::permissions(locked, std::filesystem::perms::none);
    EXPECT_EQ(errorOf(locked), PermissionDenied);
    EXPECT_EQ(Loaded(), before);
}

TEST(PointDataset, StopsAtALaterLineWithTooFewFields) {
    EXPECT_EQ(DescriptionOfLoad("A,1,2,3,4\nB,5,6,7\n"),
              "Subscript out of range\nline 2 of points.txt has 4 fields, field 5 is missing.");
    EXPECT_EQ(ErrorOf("A,1,2,3,4\nB\n"), SubscriptOutOfRange);
}

TEST(PointDataset, StopsAtATextInANumberColumnAndNamesTheLine) {
    EXPECT_EQ(DescriptionOfLoad("A,1,2,3,4\nB,5,six,7,8\n"),
              "Type mismatch\nline 2 of points.txt: \"six\" is not a number.");
    for (const char* line : {"B,,2,3,4", "B,1,,3,4", "B,1,2,,4", "B,1,2,3,", "B,1,2,3,4x", "B,nan,2,3,4",
                             "B,1,inf,3,4", "B,0x1,2,3,4", "B,1,2,3, "})
        EXPECT_EQ(ErrorOf(std::string("A,1,2,3,4\n") + line), TypeMismatch) << line;
}

TEST(PointDataset, TakesAHeaderLineForARecord) {
    EXPECT_EQ(DescriptionOfLoad(std::string("id,x,y,population,cases\n") + ThreeRegions),
              "Type mismatch\nline 1 of points.txt: \"x\" is not a number.");
    EXPECT_EQ(ws.NumTextRegion, 4);
}

TEST(PointDataset, StopsAtANumberThatIsTooLarge) {
    EXPECT_EQ(DescriptionOfLoad("A,1,2,3,4\nB,1e999,6,7,8\n"),
              "Overflow\nline 2 of points.txt: the number is too large.");
    EXPECT_TRUE(HoldsOnlyFiniteNumbers());
}

TEST(PointDataset, LeavesWhatItHadFilledWhereItStops) {
    LoadTwoRegions();
    EXPECT_EQ(ErrorNumberOf([] { LoadBytes("A,1,2,30,4\nB,5,6,70,x\nC,9,9,9,9\n", PointFormat::PopCase); }),
              TypeMismatch);
    EXPECT_EQ(ws.NumTextRegion, 3);
    EXPECT_EQ(From1(ws.RegionCentroid), (std::vector<RegionPoint>{{"A", 1, 2}, {"B", 5, 6}, {"", 0, 0}}));
    EXPECT_EQ(From1(ws.PopBase), (Values{30, 70, 0}));
    EXPECT_EQ(From1(ws.ObsCount), (Values{4, 0, 0}));
    EXPECT_EQ(From1(ws.ExpCount), (Values{0, 0, 0})); // nothing was derived yet
    EXPECT_EQ(From1(ws.ExpRatio), (Values{0, 0, 0}));
    EXPECT_FALSE(ws.PlottedPoints.IsAllocated());
}

TEST(PointDataset, StopsAtObservedCountsThatSumToZero) {
    EXPECT_EQ(ErrorOf("A,0,0,0,4\nB,1,1,0,5\n", PointFormat::ObsExp), DivisionByZero);
    EXPECT_EQ(From1(ws.ExpRatio), (Values{0, 0}));
    EXPECT_EQ(ws.TotalObs, 0);
    EXPECT_EQ(From1(ws.ExpCount), (Values{4, 5})); // read, not derived
    EXPECT_EQ(ErrorOf("A,0,0,2,4\nB,1,1,-2,5\n", PointFormat::ObsExp), DivisionByZero);
    EXPECT_EQ(ErrorOf("A,0,0,0,0\n", PointFormat::ObsExp), InvalidProcedureCall); // 0 / 0
    EXPECT_TRUE(HoldsOnlyFiniteNumbers());
}

TEST(PointDataset, StopsAtAPopulationThatSumsToZero) {
    EXPECT_EQ(ErrorOf("A,0,0,0,4\nB,1,1,0,5\n", PointFormat::PopCase), DivisionByZero);
    EXPECT_EQ(From1(ws.ExpCount), (Values{0, 0}));
    EXPECT_EQ(From1(ws.ExpRatio), (Values{0, 0}));
    EXPECT_EQ(ws.TotalObs, 0);
    EXPECT_EQ(From1(ws.ObsCount), (Values{4, 5}));
    EXPECT_EQ(ErrorOf("A,0,0,5,4\nB,1,1,-5,5\n", PointFormat::PopCase), DivisionByZero);
    EXPECT_EQ(From1(ws.ExpCount), (Values{0, 0}));
    EXPECT_EQ(ErrorOf("A,0,0,0,0\n", PointFormat::PopCase), InvalidProcedureCall); // 0 / 0
    EXPECT_EQ(From1(ws.ExpCount), (Values{0}));
    EXPECT_TRUE(HoldsOnlyFiniteNumbers());
}

TEST(PointDataset, StopsAtSumsThatOverflow) {
    EXPECT_EQ(ErrorOf("A,0,0,1e308,1\nB,1,1,1e308,1\n", PointFormat::PopCase), Overflow);
    EXPECT_TRUE(HoldsOnlyFiniteNumbers());
    EXPECT_EQ(ErrorOf("A,0,0,1e308,1\nB,1,1,1e308,1\n", PointFormat::ObsExp), Overflow);
    EXPECT_TRUE(HoldsOnlyFiniteNumbers());
}

TEST(PointDataset, TakesCasesOfZeroInAPopulation) {
    EXPECT_EQ(ErrorOf("A,0,0,10,0\nB,1,1,30,0\n", PointFormat::PopCase), 0);
    EXPECT_EQ(From1(ws.ExpCount), (Values{0, 0}));
    EXPECT_EQ(From1(ws.ExpRatio), (Values{0.25, 0.75}));
}

TEST(PointDataset, RefusesALineOfAHundredMegabytes) {
    LoadTwoRegions();
    const Loaded before;
    const TemporaryFolder folder;
    for (const char* head : {"", "A,1,2,3,4\n"}) { // the long line first, and second
        const std::string path = folder.Write("huge.txt", head);
        std::filesystem::resize_file(path, HundredMegabytes);
        const auto memory = PeakMemory();
        const std::string line = *head == 0 ? "1" : "2";
        EXPECT_EQ(ErrorDescriptionOf([&] { LoadPointDataset(path, PointFormat::ObsExp); }),
                  "Out of string space\nline " + line + " of huge.txt is longer than the limit of 16 MB.");
        EXPECT_LT(PeakMemory() - memory,
                  WithinLimit(HundredMegabytes * 5 / 4)); // the file, and no copy of it
        EXPECT_EQ(Loaded(), before);
    }
}

TEST(PointDataset, SurvivesEveryTruncation) {
    const std::string bytes = "\xEF\xBB\xBF" + std::string("Z\xC3\xBCrich,1.5,-2,20,17\r\nB,0,1e2,30,2\n");
    for (size_t length = 0; length <= bytes.size(); ++length) {
        ws = Workspace{};
        bool loaded = false;
        const long error =
            ErrorNumberOf([&] { loaded = LoadBytes(bytes.substr(0, length), PointFormat::PopCase); });
        const bool known = error == 0 || error == SubscriptOutOfRange || error == TypeMismatch ||
                           error == InputPastEndOfFile;
        EXPECT_TRUE(known) << length << ": error " << error;
        EXPECT_TRUE(HoldsOnlyFiniteNumbers()) << length;
        // Whole from the last digit on, with or without the line end behind it.
        EXPECT_EQ(loaded && ws.NumTextRegion == 2, length >= bytes.size() - 1) << length;
    }
}
