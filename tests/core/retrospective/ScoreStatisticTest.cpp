#include "core/retrospective/ScoreStatistic.h"

#include "core/retrospective/PValues.h"
#include "core/retrospective/Weights.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/RetroData.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

/// Two Regions so far apart for their bandwidth that W is the identity.
void TakeIdentityPair(double obs1, double obs2, double exp1, double exp2) {
    TakeRetroRegions({{0, 0, obs1, exp1}, {1, 0, obs2, exp2}}, 2);
    ws.CurrentSigma = 0.00000001;
    BuildScoreWeights();
}

void ExpectElements(const Array1<double>& values, double first, double second) {
    ASSERT_EQ(values.UpperBound(), 2);
    EXPECT_NEAR(values(1), first, 1e-14);
    EXPECT_NEAR(values(2), second, 1e-14);
}

} // namespace

TEST(LocalScoreUnadjusted, StandardisesByThePlainVariance) {
    TakeIdentityPair(7, 3, 6, 4);
    LocalScoreUnadjusted();
    ExpectElements(ws.LocalU, 1, -1);
    // (o - e) / sqrt(e * (1 - 1 / T)): the variances are 5.4 and 3.6.
    ExpectElements(ws.LocalZ, 1 / std::sqrt(5.4), -1 / std::sqrt(3.6));
    EXPECT_EQ(ws.GlobalU, 2);
    for (const auto* map :
         {&ws.MapClassScore, &ws.MapDrawScore, &ws.DisplayClassValues, &ws.DisplayDrawValues})
        EXPECT_EQ(*map, ws.LocalU);
}

TEST(LocalScoreUnadjusted, DoesNotSquareTheSubtractedSum) {
    // Weights 0.5 and 2, expected 4 and 6, T = 10: b = 1 + 24 = 25, c = (2 + 12) / 10 = 1.4.
    TakeIdentityPair(8, 2, 4, 6);
    ws.WeightUnadjusted(1, 1) = 0.5;
    ws.WeightUnadjusted(1, 2) = 2;
    LocalScoreUnadjusted();
    EXPECT_EQ(ws.LocalU(1), 4 * 0.5 - 4 * 2);
    EXPECT_NEAR(ws.LocalZ(1), -6 / std::sqrt(23.6), 1e-14);
}

TEST(LocalScoreAdjusted, UsesTheScaledWeights) {
    TakeIdentityPair(7, 3, 5, 5);
    LocalScoreAdjusted();
    const double w = 1 / std::sqrt(5);
    ExpectElements(ws.LocalUAdjusted, 2 * w, -2 * w);
    // b = w^2 e = 1, c = e w / T = 5 w / 10.
    ExpectElements(ws.LocalZAdjusted, 2 * w / std::sqrt(1 - w / 2), -2 * w / std::sqrt(1 - w / 2));
    EXPECT_NEAR(ws.GlobalUAdjusted, 1.6, 1e-14);
    EXPECT_EQ(ws.DisplayDrawValues, ws.LocalUAdjusted);
    EXPECT_FALSE(ws.LocalU.IsAllocated()); // the other variant's arrays stay as they were
}

// Two equal shares and no smoothing: V has 1/4 on the diagonal and -1/4 beside it, so that the traces of V,
// V^2 and V^3 are 1/2, 1/4 and 1/8, and the score test is Pearson's chi-squared test of one degree of
// freedom: (7 - 5)^2 / 5 + (3 - 5)^2 / 5 = 1.6.

TEST(ScoreMoments, AreThoseOfPearsonsTestWithoutSmoothing) {
    TakeIdentityPair(7, 3, 5, 5);
    ScoreMomentsPlain();
    EXPECT_NEAR(ws.ScoreDF, 1, 1e-14);
    EXPECT_NEAR(ws.ScoreMean, 0.05, 1e-15);
    EXPECT_NEAR(ws.ScoreVar, 0.005, 1e-15);
    ScoreMomentsAdjusted(); // the Gram matrix is doubled
    EXPECT_NEAR(ws.ScoreDF, 1, 1e-14);
    EXPECT_NEAR(ws.ScoreMean, 0.1, 1e-15);
    EXPECT_NEAR(ws.ScoreVar, 0.02, 1e-15);
}

TEST(FinishScore, ScalesTheTwoVariantsDifferently) {
    TakeIdentityPair(7, 3, 5, 5);
    LocalScoreUnadjusted();
    ScoreMomentsPlain();
    FinishScoreUnadjusted(); // (8 / 100 - 0.05) / sqrt(0.005)
    EXPECT_NEAR(ws.ScoreZ, 0.6 / std::sqrt(2), 1e-13);
    EXPECT_NEAR(ws.ScoreChi, 1.6, 1e-13);

    LocalScoreAdjusted();
    ScoreMomentsAdjusted();
    FinishScoreAdjusted(); // (1.6 / 10 - 0.1) / sqrt(0.02)
    EXPECT_NEAR(ws.ScoreZ, 0.6 / std::sqrt(2), 1e-13);
    EXPECT_NEAR(ws.ScoreChi, 1.6, 1e-13);
}

TEST(FinishScore, LiesBelowItsDegreesOfFreedomWhereAllIsAsExpected) {
    TakeRetroRegions({{0, 0, 4, 4}, {1, 0, 9, 9}, {0, 1, 7, 7}}, 3);
    ws.CurrentSigma = 1;
    BuildScoreWeights();
    LocalScoreUnadjusted();
    ScoreMomentsPlain();
    FinishScoreUnadjusted();
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        EXPECT_EQ(ws.LocalU(i), 0);
    EXPECT_EQ(ws.GlobalU, 0);
    EXPECT_DOUBLE_EQ(ws.ScoreZ, -ws.ScoreMean / std::sqrt(ws.ScoreVar));
    EXPECT_LT(ws.ScoreChi, ws.ScoreDF);
}

TEST(LocalScoreUnadjusted, LeavesZerosAfterAVarianceThatIsNotAboveZero) {
    TakeRetroRegions({{0, 0, 1, 1}}, 1); // b = 1, c = 1
    ws.CurrentSigma = 1;
    BuildScoreWeights();
    ws.ObsCount(1) = 3;
    EXPECT_EQ(ErrorNumberOf(LocalScoreUnadjusted), DivisionByZero);
    for (const auto* values : {&ws.LocalU, &ws.LocalZ, &ws.MapClassScore, &ws.MapDrawScore,
                               &ws.DisplayClassValues, &ws.DisplayDrawValues})
        EXPECT_EQ(*values, Array1<double>(1));
    EXPECT_EQ(ws.GlobalU, 0);

    ws.TotalObs = 0.5; // c = 2
    EXPECT_EQ(ErrorNumberOf(LocalScoreUnadjusted), InvalidProcedureCall);
    EXPECT_EQ(ws.LocalZ, Array1<double>(1));
}

TEST(LocalScoreUnadjusted, StopsWithoutObservedCases) {
    TakeIdentityPair(7, 3, 5, 5);
    LocalScoreUnadjusted();
    ws.TotalObs = 0;
    EXPECT_EQ(ErrorNumberOf(LocalScoreUnadjusted), DivisionByZero);
    EXPECT_EQ(ws.LocalU, Array1<double>(2));
    EXPECT_EQ(ws.GlobalU, 0);
}

TEST(ScoreMoments, LeaveZerosWhereOneRegionHasAllShares) {
    TakeIdentityPair(7, 3, 5, 5);
    ScoreMomentsPlain();
    ws.ExpRatio(1) = 1;
    ws.ExpRatio(2) = 0;
    EXPECT_NE(ErrorNumberOf(ScoreMomentsPlain), 0);
    EXPECT_EQ(ws.ScoreMean, 0);
    EXPECT_EQ(ws.ScoreVar, 0);
    EXPECT_EQ(ws.ScoreDF, 0);
}

TEST(ScoreMoments, StopInTheMatrixLibraryWithoutAMatrix) {
    TakeIdentityPair(7, 3, 5, 5);
    ScoreMomentsPlain();
    ws.ScoreGramPlain.Clear();
    EXPECT_EQ(ErrorNumberOf(ScoreMomentsPlain), 5022);
    EXPECT_EQ(ws.ScoreDF, 0);
}

TEST(FinishScore, LeavesZerosWithoutAVariance) {
    TakeIdentityPair(7, 3, 5, 5);
    LocalScoreUnadjusted();
    ScoreMomentsPlain();
    FinishScoreUnadjusted();
    ws.ScoreVar = 0;
    EXPECT_EQ(ErrorNumberOf(FinishScoreUnadjusted), DivisionByZero);
    EXPECT_EQ(ws.ScoreZ, 0);
    EXPECT_EQ(ws.ScoreChi, 0);
    ws.GlobalUAdjusted = 1;
    EXPECT_EQ(ErrorNumberOf(FinishScoreAdjusted), DivisionByZero);
}
