#include "core/retrospective/Weights.h"

#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/RetroData.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

bool IsZero(const Table<double>& table) {
    for (std::ptrdiff_t i = 0; i <= table.UpperBound1(); ++i)
        for (std::ptrdiff_t j = 0; j <= table.UpperBound2(); ++j)
            if (table(i, j) != 0) return false;
    return true;
}

bool IsZero(const KernelWeights& weights) {
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        for (std::ptrdiff_t j = 1; j <= ws.NumRegion; ++j)
            if (weights(i, j) != 0) return false;
    return true;
}

void ExpectScoreWeightsZero() {
    for (const auto* table :
         {&ws.ScoreGramPlain, &ws.ScoreGramAdjusted, &ws.WeightUnadjusted, &ws.WeightAdjusted})
        EXPECT_TRUE(IsZero(*table));
}

const std::vector<RetroRegion> Pair{{0, 0, 7, 4}, {1, 0, 13, 16}};

} // namespace

TEST(BuildScoreWeights, FillsItsMatrices) {
    TakeRetroRegions(Pair, 2);
    ws.CurrentSigma = 1;
    BuildScoreWeights();
    // a and b of a row: 1 and exp(-1/2) over the root of 1 + exp(-1); shares 0.2 and 0.8.
    const double a = 0.8550196364002437, b = 0.5185956241330958;
    const double same = 1, cross = 2 * a * b; // a a + b b and a b + b a
    EXPECT_NEAR(ws.WeightUnadjusted(1, 2), b, 1e-14);
    EXPECT_NEAR(ws.ScoreGramPlain(0, 0), same, 1e-14);
    EXPECT_NEAR(ws.ScoreGramPlain(1, 0), cross, 1e-14);
    EXPECT_NEAR(ws.ScoreGramAdjusted(0, 0), same / 0.2, 1e-13);
    EXPECT_NEAR(ws.ScoreGramAdjusted(0, 1), cross / 0.4, 1e-13);
    EXPECT_NEAR(ws.ScoreGramAdjusted(1, 1), same / 0.8, 1e-13);
    EXPECT_NEAR(ws.WeightAdjusted(1, 1), a / 2, 1e-14);
    EXPECT_NEAR(ws.WeightAdjusted(1, 2), b / 4, 1e-14);
    EXPECT_NEAR(ws.WeightAdjusted(2, 1), b / 2, 1e-14);
}

TEST(BuildScoreWeights, IsOneForASingleRegion) {
    TakeRetroRegions({{3, 4, 5, 4}}, 0); // no area is asked for
    ws.CurrentSigma = 2;
    BuildScoreWeights();
    EXPECT_EQ(ws.WeightUnadjusted(1, 1), 1);
    EXPECT_EQ(ws.ScoreGramPlain(0, 0), 1);
    EXPECT_EQ(ws.WeightAdjusted(1, 1), 0.5);
}

TEST(BuildScoreWeights, SumsTheGramDownTheColumns) {
    // Three Regions in a row: W is not symmetric, and W'W is not WW', whose diagonal is 1 throughout.
    TakeRetroRegions({{0, 0, 1, 1}, {1, 0, 1, 1}, {2, 0, 1, 1}}, 3);
    ws.CurrentSigma = 1;
    BuildScoreWeights();
    const auto& w = ws.WeightUnadjusted;
    EXPECT_NE(w(1, 2), w(2, 1));
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        for (std::ptrdiff_t j = 1; j <= 3; ++j)
            EXPECT_EQ(ws.ScoreGramPlain(i - 1, j - 1),
                      w(1, i) * w(1, j) + w(2, i) * w(2, j) + w(3, i) * w(3, j));
    EXPECT_GT(ws.ScoreGramPlain(1, 1), 1.01);
}

TEST(BuildScoreWeights, StopsAtAnExpectedCountThatIsNotAboveZero) {
    TakeRetroRegions(Pair, 2);
    ws.CurrentSigma = 1;
    BuildScoreWeights();
    ws.ExpCount(2) = 0;
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), DivisionByZero);
    ExpectScoreWeightsZero();
    ws.ExpCount(2) = -1;
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), InvalidProcedureCall);
    ExpectScoreWeightsZero();
}

TEST(BuildScoreWeights, StopsAtAShareOfZero) {
    TakeRetroRegions(Pair, 2);
    ws.CurrentSigma = 1;
    ws.ExpRatio(1) = 0;
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), DivisionByZero);
    ExpectScoreWeightsZero();
}

TEST(BuildScoreWeights, StopsWithoutAStudyArea) {
    TakeRetroRegions(Pair, 0);
    ws.CurrentSigma = 1;
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), DivisionByZero);
    ExpectScoreWeightsZero();
    TakeRetroRegions({{1, 1, 3, 3}, {1, 1, 3, 3}}, 0); // 0 / 0
    ws.CurrentSigma = 1;
    EXPECT_NE(ErrorNumberOf(BuildScoreWeights), 0);
    ExpectScoreWeightsZero();
}

TEST(BuildMWeights, FillsItsOwnMatrixAlone) {
    TakeRetroRegions(Pair, 2);
    ws.CurrentSigma = 1;
    ws.ExpCount(2) = 0; // the expected counts are not looked at
    BuildMWeights();
    EXPECT_NEAR(ws.WeightM(1, 1), 0.8550196364002437, 1e-14);
    EXPECT_NEAR(ws.WeightM(2, 1), 0.5185956241330958, 1e-14);
    EXPECT_FALSE(ws.WeightUnadjusted.IsAllocated());
}

TEST(BuildMWeights, TellsASigmaWhoseSquareIsTooLargeOrZero) {
    TakeRetroRegions(Pair, 2);
    ws.CurrentSigma = 1e200;
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    EXPECT_TRUE(IsZero(ws.WeightM));
    ws.CurrentSigma = 1e-200;
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), DivisionByZero);
    EXPECT_TRUE(IsZero(ws.WeightM));
    ws.CurrentSigma = 1e-310; // the peak overflows before that division
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    EXPECT_TRUE(IsZero(ws.WeightM));
}

TEST(BuildMWeights, CountsRegionsInSixteenBits) {
    ws = Workspace{};
    ws.bShapefileData = true;
    ws.NumRegion = 32768;
    EXPECT_EQ(ErrorNumberOf(BuildMWeights), Overflow);
    EXPECT_EQ(ErrorNumberOf(BuildScoreWeights), Overflow);
    EXPECT_FALSE(ws.WeightM.IsAllocated());
}

TEST(TakePointDataset, LeavesAPolygonDatasetAsItIs) {
    TakeRetroRegions(Pair, 2);
    ws.NumTextRegion = 9;
    ws.bTextfileData = true; // both flags: a shapefile all the same
    TakePointDataset();
    EXPECT_EQ(ws.NumRegion, 2);
    EXPECT_EQ(ws.TotalShapeArea, 2);
}

TEST(TakePointDataset, TakesCountAndAreaOfAPointDataset) {
    TakeFivePoints();
    EXPECT_EQ(ws.NumRegion, 0);
    TakePointDataset();
    EXPECT_EQ(ws.NumRegion, 5);
    EXPECT_GT(ws.TotalShapeArea, 0);
}
