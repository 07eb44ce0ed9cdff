#include "core/prospective/CusumEngine.h"

#include "core/platform/AvailableMemory.h"
#include "core/prospective/CusumTestTables.h"
#include "support/Arrays.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

const double Root5 = std::sqrt(5.0);

/// Two Regions at a distance of 1 in an area in which their weight is half the weight of a Region on itself:
/// exp(-1 / (2 * (area / 2))) = 1/2 for an area of 1 / ln 2.
struct HalfWeight {
    Array1<double> X = ArrayFrom1<double>({3, 3}), Y = ArrayFrom1<double>({7, 8});
    double Area = 1 / std::log(2.0);
};

const Array1<std::string> AB = ArrayFrom1<std::string>({"A", "B"});

} // namespace

// ---- Weights

TEST(BuildCusumWeights, ScalesRowsToLengthOne) {
    const HalfWeight two;
    const auto w = BuildCusumWeights(two.X, two.Y, 2, two.Area, 1);
    // (1, 1/2) over its length, root(5) / 2.
    EXPECT_NEAR(w(1, 1), 2 / Root5, 1e-15);
    EXPECT_NEAR(w(1, 2), 1 / Root5, 1e-15);
    EXPECT_NEAR(w(2, 1), 1 / Root5, 1e-15);
    EXPECT_NEAR(w(2, 2), 2 / Root5, 1e-15);
}

TEST(BuildCusumWeights, TakesSigmaAsAMultipleOfTheMeanArea) {
    const HalfWeight two;
    // Twice the sigma: the fourth root of a half between the two.
    const double e = std::pow(0.5, 0.25);
    const auto w = BuildCusumWeights(two.X, two.Y, 2, two.Area, 2);
    EXPECT_NEAR(w(1, 2), e / std::sqrt(1 + e * e), 1e-15);
}

TEST(BuildCusumWeights, IsTheIdentityForSigmaZero) {
    const auto x = ArrayFrom1<double>({0, 0.001, 5}), y = ArrayFrom1<double>({0, 0, 2});
    EXPECT_EQ(BuildCusumWeights(x, y, 3, 10, CusumSigmaForZero), TableOf({{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
    EXPECT_EQ(CusumSigmaForZero, 0.000000001);
}

TEST(BuildCusumWeights, GivesOneRegionTheWeightOneAtEverySigma) {
    const auto at = ArrayFrom1<double>({4});
    for (const double sigma : {CusumSigmaForZero, 0.5, 1.0, 1000.0})
        for (const double area : {0.0, 10.0})
            EXPECT_EQ(BuildCusumWeights(at, at, 1, area, sigma)(1, 1), 1) << sigma;
}

TEST(BuildCusumWeights, TellsASigmaWhoseSquareIsTooLarge) {
    EXPECT_EQ(ErrorNumberOf([] {
                  BuildCusumWeights(ArrayFrom1<double>({0, 1}), ArrayFrom1<double>({0, 0}), 2, 2, 1e200);
              }),
              Overflow);
}

TEST(BuildCusumWeights, AsksForTheWeightsAndTheKernelAtOnce) {
    static std::uint64_t left; // a table of 4 x 4 elements and half of one
    const auto x = ArrayFrom1<double>({1, 2, 4}), y = ArrayFrom1<double>({1, 2, 5});
    ForceAvailableMemory([] { return left; });
    left = 24 * 8 - 1;
    EXPECT_EQ(ErrorNumberOf([&] { BuildCusumWeights(x, y, 3, 3, 1); }), OutOfMemory);
    left = 24 * 8;
    EXPECT_EQ(BuildCusumWeights(x, y, 3, 3, 1).UpperBound1(), 3);
    ForceAvailableMemory({});
}

TEST(BuildCusumWeights, GivesCoincidentPointsTheWeightOfTheDiagonal) {
    const auto x = ArrayFrom1<double>({4, 4}), y = ArrayFrom1<double>({1, 1});
    const auto w = BuildCusumWeights(x, y, 2, 10, 1);
    for (const double value : {w(1, 1), w(1, 2), w(2, 1), w(2, 2)})
        EXPECT_NEAR(value, std::sqrt(0.5), 1e-15);
}

TEST(BuildCusumWeights, UsesTheFirstNRegionsAndTheirMeanArea) {
    const auto x = ArrayFrom1<double>({3, 3, 50}), y = ArrayFrom1<double>({7, 8, 50});
    const HalfWeight two;
    EXPECT_EQ(BuildCusumWeights(x, y, 2, two.Area, 1), BuildCusumWeights(two.X, two.Y, 2, two.Area, 1));
}

TEST(BuildCusumWeights, StopsAtAnAreaOfZero) {
    const HalfWeight two;
    EXPECT_EQ(ErrorOf([&] { BuildCusumWeights(two.X, two.Y, 2, 0, 1); }), DivisionByZero);
}

TEST(BuildCusumWeights, StopsAtMoreRegionsThanPlaces) {
    const HalfWeight two;
    EXPECT_EQ(ErrorOf([&] { BuildCusumWeights(two.X, two.Y, 3, 1, 1); }), SubscriptOutOfRange);
}

// ---- Filter

TEST(FilterZScores, SumsTheWeightedScoresOfEachPeriod) {
    const auto w = TableOf({{0.5, 0.25}, {2, -1}});
    const auto z = TableOf({{4, 8, -2}, {12, 0, 6}});
    // By hand: 0.5 * 4 + 0.25 * 12 = 5, 2 * 4 - 12 = -4, ...
    EXPECT_EQ(FilterZScores(w, z, 2, 3), TableOf({{5, 4, 0.5}, {-4, 16, -10}}));
}

TEST(FilterZScores, EqualsItsInputForTheIdentity) {
    const auto z = TableOf({{0.1, -2.75}, {1e-300, 1e300}});
    EXPECT_EQ(FilterZScores(TableOf({{1, 0}, {0, 1}}), z, 2, 2), z);
}

TEST(FilterZScores, SumsFromZeroInTheOrderOfTheRegions) {
    // ((0 + 1) + 1e16) - 1e16 loses the 1; another order would keep it.
    const auto w = TableOf({{1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
    const auto z = TableOf({{1}, {1e16}, {-1e16}});
    EXPECT_EQ(FilterZScores(w, z, 3, 1)(1, 1), 0);
    const auto other = TableOf({{1e16}, {-1e16}, {1}});
    EXPECT_EQ(FilterZScores(w, other, 3, 1)(1, 1), 1);
}

TEST(FilterZScores, StopsAtTablesThatAreTooSmallAndAtOverflow) {
    const auto w = TableOf({{1, 0}, {0, 1}});
    const auto z = TableOf({{1, 2}, {3, 4}});
    EXPECT_EQ(ErrorOf([&] { FilterZScores(w, z, 2, 3); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { FilterZScores(w, z, 3, 2); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { FilterZScores(w, Table<double>(), 2, 2); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] {
                  FilterZScores(TableOf({{10, 0}, {0, 10}}), TableOf({{1e308}, {0}}), 2, 1);
              }),
              Overflow);
}

// ---- Recursion

TEST(RunCusum, SumsFromZeroAndIsBoundedThere) {
    OwnOutputs own(2, 4);
    const auto f = TableOf({{1.5, -2, 0.5, 3}, {0.25, 2.25, 1, -1}});
    RunCusum(f, 2, 4, 0.5, 0, AB, own.All());
    // A: 1, then 1 - 2 - 0.5 < 0, then exactly 0, then 2.5. B: 0 (below 0), 1.75, 2.25, 0.75.
    EXPECT_EQ(RowOf(own.Cusum, 1), (Numbers{1, 0, 0, 2.5}));
    EXPECT_EQ(RowOf(own.Cusum, 2), (Numbers{0, 1.75, 2.25, 0.75}));
    EXPECT_EQ(FromOne(own.MaxCusum), (Numbers{1, 1.75, 2.25, 2.5}));
    EXPECT_EQ(FromOne(own.MaxRegion), (Texts{"A", "B", "B", "A"}));
    EXPECT_EQ(FromOne(own.RegionLabel), (Texts{"A", "B"}));
}

TEST(RunCusum, StartsFIRAtHalfTheThreshold) {
    OwnOutputs own(2, 1);
    RunCusum(TableOf({{1}, {-7}}), 2, 1, 0.5, 9.3 / 2, AB, own.All());
    EXPECT_DOUBLE_EQ(own.Cusum(1, 1), 4.65 + 1 - 0.5);
    EXPECT_EQ(own.Cusum(2, 1), 0);
}

TEST(RunCusum, KeepsTheFirstOfEqualMaxima) {
    OwnOutputs own(2, 2);
    RunCusum(TableOf({{2, 1}, {2, 1}}), 2, 2, 0.5, 0, AB, own.All());
    EXPECT_EQ(FromOne(own.MaxRegion), (Texts{"A", "A"}));
}

TEST(RunCusum, LeavesTheMaximumEmptyWhereEveryCusumIsZero) {
    OwnOutputs own(2, 2);
    RunCusum(TableOf({{0.4, 0.5}, {-1, 0.1}}), 2, 2, 0.5, 0, AB, own.All());
    EXPECT_EQ(FromOne(own.MaxCusum), (Numbers{0, 0}));
    EXPECT_EQ(FromOne(own.MaxRegion), (Texts{"", ""}));
    EXPECT_EQ(FromOne(own.RegionLabel), (Texts{"A", "B"}));
}

TEST(RunCusum, NeverResets) {
    OwnOutputs own(1, 4);
    RunCusum(TableOf({{6, 6, 0.5, -2}}), 1, 4, 0.5, 0, AB, own.All());
    EXPECT_EQ(RowOf(own.Cusum, 1), (Numbers{5.5, 11, 11, 8.5}));
}

TEST(RunCusum, LeavesZerosAfterAFault) {
    OwnOutputs own(2, 2);
    own.MaxRegion(1) = "left over";
    EXPECT_EQ(ErrorOf([&] {
                  RunCusum(TableOf({{1e308, 1e308}, {1, 1}}), 2, 2, 0.5, 0, AB, own.All());
              }),
              Overflow);
    EXPECT_EQ(own.Cusum, Table<double>(2, 2));
    EXPECT_EQ(FromOne(own.MaxCusum), (Numbers{0, 0}));
    EXPECT_EQ(FromOne(own.MaxRegion), (Texts{"", ""}));
    EXPECT_EQ(FromOne(own.RegionLabel), (Texts{"", ""}));
}

TEST(RunCusum, StopsAtARegionWithoutALabel) {
    OwnOutputs own(3, 1);
    EXPECT_EQ(ErrorOf([&] {
                  RunCusum(TableOf({{1}, {2}, {3}}), 3, 1, 0.5, 0, AB, own.All());
              }),
              SubscriptOutOfRange);
    EXPECT_EQ(own.Cusum, Table<double>(3, 1));
}

TEST(CusumOutputs, CountsPeriodsInSixteenBits) {
    OwnOutputs own(1, 1);
    own.All().ReDim(1, 32767);
    EXPECT_EQ(own.MaxCusum.UpperBound(), 32767);
    EXPECT_EQ(ErrorOf([&] { own.All().ReDim(1, 32768); }), Overflow);
    EXPECT_FALSE(own.Cusum.IsAllocated());
    EXPECT_FALSE(own.MaxCusum.IsAllocated());
}

TEST(CusumOutputs, NameTheSizeOfATableBeyondTheMemory) {
    OwnOutputs own(1, 1);
    EXPECT_EQ(ErrorOf([&] { own.All().ReDim(1000000000, 30000); }), OutOfMemory);
    EXPECT_FALSE(own.Cusum.IsAllocated());
}

// ---- Continuation

namespace {

/// Five saved periods of two Regions, a negative number among them.
const Table<double> Saved = TableOf({{0.5, -1, 0, 2, 3}, {0.5, -2, 4, 0, 1.25}});
const Table<double> Three = TableOf({{1, -4, 2}, {0.5, 0.5, 5}});

} // namespace

TEST(ContinueCusum, OfPolygonsHoldsTheNewPeriodsAlone) {
    OwnOutputs own(2, 3);
    ContinueCusum(PolygonCusumRules(), Three, 2, 3, 0.5, {Saved, 2, 5}, AB, own.All());
    // A goes on from 3, B from 1.25.
    EXPECT_EQ(RowOf(own.Cusum, 1), (Numbers{3.5, 0, 1.5}));
    EXPECT_EQ(RowOf(own.Cusum, 2), (Numbers{1.25, 1.25, 5.75}));
    EXPECT_EQ(FromOne(own.MaxCusum), (Numbers{3.5, 1.25, 5.75}));
    EXPECT_EQ(FromOne(own.MaxRegion), (Texts{"A", "B", "B"}));
}

TEST(ContinueCusum, OfPointsHoldsTheSavedPeriodsInFront) {
    OwnOutputs own(2, 8);
    ContinueCusum(PointCusumRules(), Three, 2, 3, 0.5, {Saved, 2, 5}, AB, own.All());
    EXPECT_EQ(RowOf(own.Cusum, 1), (Numbers{0.5, -1, 0, 2, 3, 3.5, 0, 1.5}));
    EXPECT_EQ(RowOf(own.Cusum, 2), (Numbers{0.5, -2, 4, 0, 1.25, 1.25, 1.25, 5.75}));
    // Equal in period 1: the first. Nothing above 0 in period 2.
    EXPECT_EQ(FromOne(own.MaxCusum), (Numbers{0.5, 0, 4, 2, 3, 3.5, 1.25, 5.75}));
    EXPECT_EQ(FromOne(own.MaxRegion), (Texts{"A", "", "B", "A", "A", "A", "B", "B"}));
    EXPECT_EQ(FromOne(own.RegionLabel), (Texts{"A", "B"}));
}

TEST(ContinueCusum, LeavesANewPeriodOfZerosWithoutALabel) {
    OwnOutputs own(2, 6);
    ContinueCusum(PointCusumRules(), TableOf({{-9}, {-9}}), 2, 1, 0.5, {Saved, 2, 5}, AB, own.All());
    EXPECT_EQ(own.MaxCusum(6), 0);
    EXPECT_EQ(own.MaxRegion(6), "");
}

TEST(ContinueCusum, GoesOnFromANegativeSavedNumber) {
    OwnOutputs own(2, 3);
    ContinueCusum(PointCusumRules(), TableOf({{1}, {3}}), 2, 1, 0.5, {Saved, 2, 2}, AB, own.All());
    EXPECT_EQ(own.Cusum(1, 3), 0);   // 1 - 1 - 0.5
    EXPECT_EQ(own.Cusum(2, 3), 0.5); // 3 - 2 - 0.5
}

TEST(ContinueCusum, OfPointsStopsWhereTheSavedRowsDoNotFit) {
    for (const auto& saved : {TableOf({{1}}), TableOf({{1}, {2}, {3}})}) {
        OwnOutputs own(2, 4);
        EXPECT_EQ(ErrorOf([&] {
                      ContinueCusum(PointCusumRules(), Three, 2, 3, 0.5, {saved, saved.UpperBound1(), 1}, AB,
                                    own.All());
                  }),
                  SubscriptOutOfRange);
        EXPECT_EQ(own.Cusum, Table<double>(2, 4));
        EXPECT_EQ(FromOne(own.MaxCusum), (Numbers{0, 0, 0, 0}));
    }
}

TEST(ContinueCusum, StartsAtZeroFromATableWithoutColumns) {
    OwnOutputs own(2, 3), fromZero(2, 3);
    ContinueCusum(PolygonCusumRules(), Three, 2, 3, 0.5, {Table<double>(2, 0), 2, 0}, AB, own.All());
    RunCusum(Three, 2, 3, 0.5, 0, AB, fromZero.All());
    EXPECT_EQ(own.Cusum, fromZero.Cusum);
}

TEST(ContinueCusum, StopsWithoutASavedTable) {
    OwnOutputs own(2, 3);
    const Table<double> none;
    EXPECT_EQ(ErrorOf([&] {
                  ContinueCusum(PolygonCusumRules(), Three, 2, 3, 0.5, {none, 2, 0}, AB, own.All());
              }),
              SubscriptOutOfRange);
}

TEST(ContinueCusum, EqualsTheRunInOnePiece) {
    const auto whole = TableOf({{1, 0.25, 2, -1, 3}, {2, -4, 1, 1, 1}});
    OwnOutputs one(2, 5), first(2, 2), both(2, 5);
    RunCusum(whole, 2, 5, 0.5, 0, AB, one.All());
    RunCusum(TableOf({{1, 0.25}, {2, -4}}), 2, 2, 0.5, 0, AB, first.All());
    ContinueCusum(PointCusumRules(), TableOf({{2, -1, 3}, {1, 1, 1}}), 2, 3, 0.5, {first.Cusum, 2, 2}, AB,
                  both.All());
    EXPECT_EQ(both.Cusum, one.Cusum);
    EXPECT_EQ(both.MaxCusum, one.MaxCusum);
    EXPECT_EQ(both.MaxRegion, one.MaxRegion);
}

TEST(ColumnMaxima, TakesNegativeMaximaToo) {
    EXPECT_EQ(FromOne(ColumnMaxima(Saved, 2, 5)), (Numbers{0.5, -1, 4, 2, 3}));
    EXPECT_EQ(FromOne(ColumnMaxima(Saved, 1, 3)), (Numbers{0.5, -1, 0}));
    EXPECT_EQ(FromOne(ColumnMaxima(Saved, 0, 2)), (Numbers{0, 0}));
}

TEST(CusumRules, ServeFIROnPointsAlone) {
    for (const auto* rules : {&PolygonCusumRules(), &PointCusumRules()}) {
        EXPECT_TRUE(Serves(*rules, StartOption::Zero));
        EXPECT_TRUE(Serves(*rules, StartOption::Previous));
        EXPECT_FALSE(Serves(*rules, StartOption::None));
    }
    EXPECT_TRUE(Serves(PointCusumRules(), StartOption::FIR));
    EXPECT_FALSE(Serves(PolygonCusumRules(), StartOption::FIR));
}
