#include "validation/Counts.h"

#include "validation/RandomNumbers.h"
#include "validation/Workers.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;
using namespace vastrel::validation;

namespace {

double ColumnTotal(const Table<double>& counts, std::ptrdiff_t column) {
    double total = 0;
    for (std::ptrdiff_t i = 1; i <= counts.UpperBound1(); ++i)
        total += counts(i, column);
    return total;
}

} // namespace

TEST(Counts, MultinomialOnesSumToTheTotal) {
    const auto map = UnequalMap(4);
    const auto blocks = DrawCounts("test", CountModel::Multinomial, ExpectedCounts(map, 5), 300);
    ASSERT_EQ(blocks.size(), 2U);
    ASSERT_EQ(blocks[1].UpperBound2(), 50);
    for (std::ptrdiff_t column = 1; column <= 50; ++column)
        EXPECT_EQ(ColumnTotal(blocks[1], column), 80);
}

// A Poisson count has its mean for mean and variance; of 40,000 counts the mean lies within 5 standard
// errors, and the variance within 5 %.
TEST(Counts, PoissonOnesHaveTheirMeanAndVariance) {
    for (const double mean : {0.3, 7.0, 1200.0}) {
        const PoissonDraw draw(mean);
        RandomNumbers random("test", 1);
        const int n = 40'000;
        double sum = 0, squares = 0;
        for (int i = 0; i < n; ++i) {
            const double count = draw(random);
            sum += count;
            squares += (count - mean) * (count - mean);
        }
        EXPECT_NEAR(sum / n, mean, 5 * std::sqrt(mean / n));
        EXPECT_NEAR(squares / n, mean, 0.05 * mean);
    }
}

TEST(Counts, NormalNumbersHaveTheirTails) {
    RandomNumbers random("test", 2);
    const int n = 100'000;
    int beyond = 0, farOut = 0;
    double sum = 0, squares = 0;
    for (int i = 0; i < n; ++i) {
        const double z = random.Normal();
        beyond += z > 1.6448536;
        farOut += std::abs(z) > 3.5;
        sum += z;
        squares += z * z;
    }
    EXPECT_NEAR(farOut, 46.5, 5 * std::sqrt(46.5)); // 0.000465 of them
    EXPECT_NEAR(squares / n, 1, 5 * std::sqrt(2.0 / n));
    EXPECT_NEAR(beyond, 0.05 * n, 5 * std::sqrt(0.05 * 0.95 * n));
    EXPECT_NEAR(sum / n, 0, 5 / std::sqrt(n));
}

TEST(Counts, DoNotDependOnTheWorkersAndGoOnWhereMoreAreDrawn) {
    const auto expected = ExpectedCounts(GridMap(5), 3);
    UseWorkers(1);
    const auto alone = DrawCounts("test", CountModel::Poisson, expected, 400);
    UseWorkers(3);
    const auto together = DrawCounts("test", CountModel::Poisson, expected, 700);
    UseWorkers(1);
    EXPECT_EQ(alone.at(0), together.at(0));
    for (std::ptrdiff_t i = 1; i <= 25; ++i)
        EXPECT_EQ(alone.at(1)(i, 150), together.at(1)(i, 150));
    EXPECT_NE(alone.at(0), DrawCounts("another", CountModel::Poisson, expected, 400).at(0));
}

TEST(Counts, OfAClusterAreRaisedInItsDiscAndSumToTheSame) {
    const auto map = GridMap(5);
    EXPECT_EQ(MiddleRegion(map), 13);
    const auto disc = Disc(map, 0.2);
    EXPECT_EQ(disc, (std::vector<std::ptrdiff_t>{13, 8, 12, 14, 18})); // the middle and its four sides
    const auto means = WithCluster(ExpectedCounts(map, 6), disc, 2);
    // 20 regions of 1 and 5 of 2 make 30 parts of 150 cases.
    EXPECT_NEAR(means(13), 10, 1e-9);
    EXPECT_NEAR(means(1), 5, 1e-9);
}
