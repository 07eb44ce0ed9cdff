#include "validation/Watch.h"

#include "validation/RunLengthEquation.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;
using namespace vastrel::validation;

namespace {

struct Mean {
    double Value = 0, StandardError = 0;
};

Mean RunLengthOf(const WatchedMap& watched, const Alarm& alarm, int runs) {
    const Watch watch(watched);
    RandomNumbers random("test", 3);
    double sum = 0, squares = 0;
    for (int i = 0; i < runs; ++i) {
        const auto first = static_cast<double>(watch.FirstSignals({alarm}, random).at(0));
        EXPECT_GT(first, 0);
        sum += first;
        squares += first * first;
    }
    return {sum / runs, std::sqrt((squares / runs - sum / runs * (sum / runs)) / runs)};
}

} // namespace

// Of four regions three never signal, and the fourth goes on from one stretch of periods to the next.
TEST(Watch, OfOneLivelyRegionHasTheRunLengthOfTheEquation) {
    const auto map = GridMap(2);
    const auto mean = RunLengthOf({&map, 0, 0.5, {}, {1, 2, 3}, -1000, 100'000}, {2.844, 0}, 3000);
    EXPECT_NEAR(mean.Value, AverageRunLength(0.5, 2.844), 4 * mean.StandardError);
    EXPECT_LT(mean.StandardError, 3);
}

TEST(Watch, FromHalfTheThresholdHasTheRunLengthOfTheEquation) {
    const auto map = GridMap(1);
    const auto mean = RunLengthOf({&map, 0, 0.5, {}, {1}, 1, 100'000}, {5, 2.5}, 3000);
    EXPECT_NEAR(mean.Value, AverageRunLength(0.5, 5, 2.5, 1), 4 * mean.StandardError);
    EXPECT_LT(mean.StandardError, 0.1);
}

// Scores of mean 1 raise a sum by 0.5 a period, so that h 150 takes about 300 periods, and the noise of a sum
// some 35: no stretch of periods is long enough alone.
TEST(Watch, CarriesTheSumsFromOneStretchOfPeriodsToTheNext) {
    for (const int side : {1, 2}) {
        const auto map = GridMap(side);
        RandomNumbers random("test", 6);
        const Watch watch({&map, 0, 0.5, {}, Disc(map, 1), 1, 1000});
        const long first = watch.FirstSignals({{150, 0}}, random).at(0);
        EXPECT_GT(first, 150);
        EXPECT_LT(first, 450);
    }
}

TEST(Watch, EndsAtItsLimit) {
    const auto map = GridMap(2);
    RandomNumbers random("test", 4);
    const Watch watch({&map, 1, 0.5, {}, {}, 0, 50});
    EXPECT_EQ(watch.FirstSignals({{1000, 0}, {-1, 0}}, random), (std::vector<long>{0, 1}));
}

// With one region the weight is 1 at any sigma; with four alike far apart it is about 1 at sigma 0.1.
TEST(Watch, OfCountsTakesTheTransformOfTheExport) {
    const auto map = GridMap(1);
    RandomNumbers random("test", 5);
    // Every count of mean 1e-9 is 0: its Freeman-Tukey deviation is 1 - 1, and no sum ever leaves 0.
    const Watch watch({&map, 0, 0.5, {ExportOption::Standard, 1e-9}, {}, 0, 1000});
    EXPECT_EQ(watch.FirstSignals({{0, 0}}, random).at(0), 0);
}

TEST(Watch, TakesTheThresholdOfTheCalculator) {
    // The worked numbers of the calculator: ARL0 100 and k 0.5.
    EXPECT_DOUBLE_EQ(CalculatedH(HValueOption::Overall, 0.5, 100, 1, 0), 2.844);
    EXPECT_DOUBLE_EQ(CalculatedH(HValueOption::Bonferroni, 0.5, 100, 100, 0), 7.354);
    EXPECT_DOUBLE_EQ(CalculatedH(HValueOption::Spatial, 0.5, 100, 100, 1), 6.764);
}
