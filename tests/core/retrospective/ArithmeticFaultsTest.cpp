// Real procedures under the flags that are shipped: a compiler that moves a division past the test of the
// flags, or folds it away, shows here.
#include "core/numeric/RunProcedure.h"

#include "core/retrospective/MStatistic.h"
#include "core/retrospective/PValues.h"
#include "core/retrospective/ScoreStatistic.h"
#include "core/retrospective/Weights.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

/// A polygon dataset of n Regions in a row, one unit apart, with 4 cases where 4 are expected.
void Fill(std::int32_t n, double area) {
    ws = Workspace{};
    ws.bShapefileData = true;
    ws.NumRegion = n;
    ws.TotalShapeArea = area;
    ws.CurrentSigma = 1;
    ws.AlphaLevel = 0.05;
    ws.RegionCentroid.ReDim(n);
    for (auto* values : {&ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        values->ReDim(n);
    for (std::int32_t i = 1; i <= n; ++i) {
        ws.RegionCentroid(i) = {std::to_string(i), static_cast<double>(i), 0};
        ws.ObsCount(i) = ws.ExpCount(i) = 4;
        ws.ExpRatio(i) = 1.0 / n;
    }
    ws.TotalObs = 4.0 * n;
}

/// Weights of a dataset that has none of the faults, for the procedures behind them.
void FillWithWeights(std::int32_t n) {
    Fill(n, n);
    BuildScoreWeights();
    BuildMWeights();
}

void ExpectZeroWeightM(std::ptrdiff_t n) {
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            EXPECT_EQ(ws.WeightM(i, j), 0) << i << " " << j;
}

void ExpectZeroMatrices(std::ptrdiff_t n) {
    for (const auto* table : {&ws.WeightUnadjusted, &ws.WeightAdjusted})
        EXPECT_EQ(*table, Table<double>(n, n));
    for (const auto* table : {&ws.ScoreGramPlain, &ws.ScoreGramAdjusted})
        EXPECT_EQ(*table, Table<double>(n - 1, n - 1));
}

/// What is expected of a Region may be neither nothing nor negative.
void ExpectFaultsOf(double& expected) {
    expected = 0;
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), DivisionByZero);
    ExpectZeroMatrices(2);
    expected = -0.5;
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), InvalidProcedureCall);
    ExpectZeroMatrices(2);
}

using Arrays = std::initializer_list<const Array1<double>*>;

/// The score arrays and the four of the map.
void ExpectZeroScore(const Array1<double>& u, const Array1<double>& z, std::ptrdiff_t n) {
    for (const auto* values :
         Arrays{&u, &z, &ws.MapClassScore, &ws.MapDrawScore, &ws.DisplayClassValues, &ws.DisplayDrawValues})
        EXPECT_EQ(*values, Array1<double>(n));
}

void ExpectZeroM(const Array1<double>& scores, std::ptrdiff_t n) {
    for (const auto* values : Arrays{&scores, &ws.LocalM, &ws.LocalMSorted, &ws.MapDrawM, &ws.MapClassM,
                                     &ws.DisplayClassValues, &ws.DisplayDrawValues})
        EXPECT_EQ(*values, Array1<double>(n));
}

Table<double> TableOf(const double (&values)[3][3]) {
    Table<double> table(2, 2);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            table(i, j) = values[i][j];
    return table;
}

} // namespace

TEST(Faults, OfAnEmptyStudyAreaStopTheWeights) {
    Fill(2, 0);
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), DivisionByZero);
    ExpectZeroWeightM(2);
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), DivisionByZero);
    ExpectZeroMatrices(2);
}

TEST(Faults, OfTwoRegionsInOnePlaceStopTheWeightsToo) {
    Fill(2, 0);
    ws.RegionCentroid(2) = ws.RegionCentroid(1);
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), InvalidProcedureCall); // 0 / 0
    ExpectZeroWeightM(2);
}

TEST(Faults, AreNoneWhereARegionIsAlone) {
    Fill(1, 0);
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), 0);
    EXPECT_EQ(ws.WeightM(1, 1), 1);
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), 0);
    EXPECT_EQ(ws.ScoreGramPlain(0, 0), 1);
}

TEST(Faults, OfExpectedCountsStopTheScoreWeights) {
    Fill(2, 2);
    ExpectFaultsOf(ws.ExpCount(2));
}

TEST(Faults, OfExpectedSharesStopTheScoreWeights) {
    Fill(2, 2);
    ExpectFaultsOf(ws.ExpRatio(1));
}

TEST(Faults, OfABandwidthBeyondItsSquareStopTheWeights) {
    Fill(2, 2);
    ws.CurrentSigma = 1e155;
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    ExpectZeroWeightM(2);
    ws.CurrentSigma = 1e-200; // its square is 0
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), DivisionByZero);
    ExpectZeroWeightM(2);
}

TEST(Faults, AreNoneOfASquareThatNobodyAsksFor) {
    Fill(1, 1);
    ws.CurrentSigma = 1e155; // its square is too large, and one Region has no neighbour
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), 0);
    EXPECT_NEAR(ws.WeightM(1, 1), 1, 1e-3); // of a length with few digits
    ws.CurrentSigma = 1e165;
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), DivisionByZero); // by a length of 0
    ExpectZeroWeightM(1);
    ws.CurrentSigma = 1e-160;
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow); // of the square of 1 / sigma
}

TEST(Faults, OfMissingPlacesLeaveNoWeights) {
    Fill(2, 2);
    ws.RegionCentroid.ReDim(1);
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), SubscriptOutOfRange);
    ExpectZeroWeightM(2);
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), SubscriptOutOfRange);
    ExpectZeroMatrices(2);
}

TEST(Faults, OfCoordinatesBeyondTheirSquareStopTheWeights) {
    Fill(2, 2);
    ws.RegionCentroid(2).X = 1e200;
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    ExpectZeroWeightM(2);
}

TEST(Faults, OfTheTotalStopTheLocalScores) {
    FillWithWeights(2);
    ws.TotalObs = 0;
    EXPECT_EQ(ErrorNumberOf(LocalScoreUnadjusted), DivisionByZero);
    ExpectZeroScore(ws.LocalU, ws.LocalZ, 2);
    EXPECT_EQ(ws.GlobalU, 0);
    EXPECT_EQ(ErrorNumberOf(LocalScoreAdjusted), DivisionByZero);
    ExpectZeroScore(ws.LocalUAdjusted, ws.LocalZAdjusted, 2);
    EXPECT_EQ(ws.GlobalUAdjusted, 0);
}

TEST(Faults, OfTheVarianceStopTheLocalScores) {
    // One Region has the weight 1: its variance is E - E / T. With T = 1 it is 0, with T = 0.5 below 0.
    FillWithWeights(1);
    ws.ObsCount(1) = 5;
    ws.TotalObs = 1;
    EXPECT_EQ(ErrorNumberOf(LocalScoreUnadjusted), DivisionByZero);
    ExpectZeroScore(ws.LocalU, ws.LocalZ, 1);
    EXPECT_EQ(ws.GlobalU, 0);
    ws.TotalObs = 0.5;
    EXPECT_EQ(ErrorNumberOf(LocalScoreUnadjusted), InvalidProcedureCall);
    ExpectZeroScore(ws.LocalU, ws.LocalZ, 1);
    EXPECT_EQ(ws.GlobalU, 0);
}

TEST(Faults, OfTheTracesStopTheMoments) {
    const auto expectZero = [] {
        EXPECT_EQ(ws.ScoreMean, 0);
        EXPECT_EQ(ws.ScoreVar, 0);
        EXPECT_EQ(ws.ScoreDF, 0);
        ws.ScoreMean = ws.ScoreVar = ws.ScoreDF = 7;
    };
    FillWithWeights(3);
    ws.ExpRatio(1) = ws.ExpRatio(2) = 0.25;
    ws.ExpRatio(3) = 0.5;
    ws.ScoreMean = ws.ScoreVar = ws.ScoreDF = 7;
    // The traces of A = P (D - Q), A^2 and A^3 by hand, in fractions: 0, 1/16, 0.
    const auto noThird = TableOf({{-1, -1, -1}, {-1, -1, 0}, {-1, 0, 0}});
    EXPECT_EQ(ErrorNumberOf([&] { ScoreMoments(noThird); }), DivisionByZero);
    expectZero();
    // -1/8, -7/64, 11/512: the power 1.5 of a number below 0
    const auto negativeSecond = TableOf({{-1, -1, -1}, {-1, -1, 0}, {1, -1, 0}});
    EXPECT_EQ(ErrorNumberOf([&] { ScoreMoments(negativeSecond); }), InvalidProcedureCall);
    expectZero();
    const double large = 1e160; // its square stops the matrix library, which has a number of its own
    const auto beyond = TableOf({{large, 0, 0}, {0, large, 0}, {0, 0, large}});
    EXPECT_EQ(ErrorNumberOf([&] { ScoreMoments(beyond); }), 5022);
    expectZero();
}

TEST(Faults, OfAllSharesOnOneRegionStopTheMoments) {
    FillWithWeights(2);
    ws.ExpRatio(1) = 1;
    ws.ExpRatio(2) = 0;
    ws.ScoreMean = ws.ScoreVar = ws.ScoreDF = 7;
    EXPECT_EQ(ErrorNumberOf(ScoreMomentsPlain), InvalidProcedureCall); // 0 / 0
    EXPECT_EQ(ws.ScoreMean, 0);
    EXPECT_EQ(ws.ScoreVar, 0);
    EXPECT_EQ(ws.ScoreDF, 0);
}

TEST(Faults, OfTheMomentsStopTheApproximation) {
    FillWithWeights(2);
    ws.GlobalU = ws.GlobalUAdjusted = 9;
    ws.ScoreDF = 2;
    for (const auto finish : {FinishScoreUnadjusted, FinishScoreAdjusted}) {
        ws.ScoreZ = ws.ScoreChi = 7;
        ws.ScoreVar = 0;
        EXPECT_EQ(ErrorNumberOf(finish), DivisionByZero);
        EXPECT_EQ(ws.ScoreZ, 0);
        EXPECT_EQ(ws.ScoreChi, 0);
        ws.ScoreVar = -1;
        EXPECT_EQ(ErrorNumberOf(finish), InvalidProcedureCall);
        EXPECT_EQ(ws.ScoreZ, 0);
        EXPECT_EQ(ws.ScoreChi, 0);
    }
}

TEST(Faults, OfExpectedCountsStopTwoTransforms) {
    FillWithWeights(2);
    ws.ExpCount(2) = 0;
    EXPECT_EQ(ErrorNumberOf(MTransformPearson), DivisionByZero);
    ExpectZeroM(ws.DevPearson, 2);
    EXPECT_EQ(ErrorNumberOf(MTransformRossi), DivisionByZero);
    ExpectZeroM(ws.DevRossi, 2);
    EXPECT_EQ(ErrorNumberOf(MTransformFreemanTukey), 0);
    EXPECT_EQ(ws.DevFreemanTukey(2), std::sqrt(4.0) + std::sqrt(5.0) - 1);
}

TEST(Faults, OfNegativeCountsStopEveryTransform) {
    FillWithWeights(2);
    ws.ExpCount(2) = -1;
    EXPECT_EQ(ErrorNumberOf(MTransformPearson), InvalidProcedureCall);
    ExpectZeroM(ws.DevPearson, 2);
    EXPECT_EQ(ErrorNumberOf(MTransformFreemanTukey), InvalidProcedureCall);
    ExpectZeroM(ws.DevFreemanTukey, 2);
    EXPECT_EQ(ErrorNumberOf(MTransformRossi), InvalidProcedureCall);
    ExpectZeroM(ws.DevRossi, 2);
}

TEST(Faults, OfNoRegionsStopTheCriticalValue) {
    Fill(1, 1);
    ws.NumRegion = 0;
    EXPECT_EQ(ErrorNumberOf(MCriticalValue), DivisionByZero);
}

TEST(Faults, OfDegreesOfFreedomStopThePValues) {
    EXPECT_EQ(ErrorNumberOf([] { ChiSquarePValue(3, 0); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { ChiSquarePValue(-3, 2); }), InvalidProcedureCall);
    EXPECT_EQ(ErrorNumberOf([] { ChiCritical(0.05, 0); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { ChiCritical(0.05, -1); }), InvalidProcedureCall);
}
