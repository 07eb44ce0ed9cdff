#include "validation/RunLengthEquation.h"

#include <gtest/gtest.h>

using namespace vastrel::validation;

// The run lengths of one region that books and papers on control charts give for k 0.5.
TEST(RunLengthEquation, GivesTheKnownRunLengths) {
    EXPECT_NEAR(AverageRunLength(0.5, 4), 335.4, 0.3);
    EXPECT_NEAR(AverageRunLength(0.5, 5), 930.9, 1);
    EXPECT_NEAR(AverageRunLength(0.5, 4.389), 500, 0.5);
    EXPECT_NEAR(AverageRunLength(0.5, 5.071), 1000, 1);
}

TEST(RunLengthEquation, GivesTheKnownDelays) {
    EXPECT_NEAR(AverageRunLength(0.5, 4, 0, 1), 8.38, 0.01);
    EXPECT_NEAR(AverageRunLength(0.5, 5, 0, 1), 10.4, 0.05);
    EXPECT_NEAR(AverageRunLength(0.5, 5, 2.5, 1), 6.35, 0.05); // from half the threshold
}

// From a threshold of 0 on any score above k signals: 1 / (1 - F(0.5)) periods, F(0.5) being 0.69146.
TEST(RunLengthEquation, OfNoThresholdWaitsForOneHighScore) {
    EXPECT_NEAR(AverageRunLength(0.5, 1e-9), 1 / (1 - 0.6914624613), 1e-6);
}

TEST(RunLengthEquation, FindsTheThresholdOfARunLength) {
    EXPECT_NEAR(ThresholdFor(0.5, 500), 4.389, 0.001);
    EXPECT_NEAR(ThresholdFor(0.25, 100), 4.418, 0.001); // 100.0 by the equation at this h
    for (const double k : {0.25, 1.0})
        for (const double wanted : {100.0, 10'000.0})
            EXPECT_NEAR(AverageRunLength(k, ThresholdFor(k, wanted)), wanted, 1e-4 * wanted);
}
