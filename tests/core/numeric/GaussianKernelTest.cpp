#include "core/numeric/GaussianKernel.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

struct Place {
    double X, Y;
};

Table<double> KernelOf(const std::vector<Place>& places, double area, double sigma, bool normalise) {
    const auto n = static_cast<std::ptrdiff_t>(places.size());
    Array1<RegionPoint> at(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        at(i) = {"", places[static_cast<size_t>(i - 1)].X, places[static_cast<size_t>(i - 1)].Y};
    Table<double> kernel(n, n);
    GaussianKernel(at, n, area, sigma, kernel);
    if (normalise) RowNormalise(kernel, n);
    return kernel;
}

} // namespace

TEST(GaussianKernel, HasItsPeakOnTheDiagonal) {
    // 1 / sqrt(3.14159265), worked out with forty digits.
    const auto kernel = KernelOf({{0, 0}, {1, 0}}, 2, 1, false);
    EXPECT_DOUBLE_EQ(kernel(1, 1), 0.5641895838700965);
    EXPECT_DOUBLE_EQ(KernelOf({{0, 0}, {1, 0}}, 2, 4, false)(2, 2), 0.5641895838700965 / 4);
}

TEST(GaussianKernel, ScalesTheDistanceByTheMeanArea) {
    // Distance 5, sigma 2, four square units a Region: 25 / (2 * 4 * 4) = 0.78125.
    const auto kernel = KernelOf({{1, 1}, {4, 5}}, 8, 2, false);
    EXPECT_DOUBLE_EQ(kernel(1, 2) / kernel(1, 1), std::exp(-0.78125));
    EXPECT_EQ(kernel(1, 2), kernel(2, 1));
}

TEST(GaussianKernel, KeepsRowAndColumnZeroEmpty) {
    const auto kernel = KernelOf({{0, 0}, {1, 0}}, 2, 1, true);
    for (std::ptrdiff_t i = 0; i <= 2; ++i) {
        EXPECT_EQ(kernel(i, 0), 0);
        EXPECT_EQ(kernel(0, i), 0);
    }
}

TEST(GaussianKernel, GivesTheDiagonalValueToCoincidentPlaces) {
    const auto kernel = KernelOf({{3, 4}, {3, 4}, {9, 9}}, 3, 1, true);
    EXPECT_EQ(kernel(1, 1), kernel(1, 2));
    for (std::ptrdiff_t j = 1; j <= 3; ++j)
        EXPECT_EQ(kernel(1, j), kernel(2, j)) << j;
}

TEST(RowNormalise, GivesRowsOfLengthOne) {
    // Two Regions at a distance of one mean side: 1 and exp(-1/2) over the root of 1 + exp(-1).
    const auto weights = KernelOf({{0, 0}, {1, 0}}, 2, 1, true);
    EXPECT_NEAR(weights(1, 1), 0.8550196364002437, 1e-14);
    EXPECT_NEAR(weights(1, 2), 0.5185956241330958, 1e-14);
    EXPECT_NEAR(weights(2, 1), 0.5185956241330958, 1e-14);
}

TEST(RowNormalise, IsTheIdentityForAVerySmallSigma) {
    const auto weights = KernelOf({{0, 0}, {1, 0}, {0, 2}}, 3, 0.00000001, true);
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        for (std::ptrdiff_t j = 1; j <= 3; ++j)
            EXPECT_EQ(weights(i, j), i == j ? 1 : 0) << i << " " << j;
}

TEST(RowNormalise, LevelsOutForAVeryLargeSigma) {
    const auto weights = KernelOf({{0, 0}, {1, 0}, {0, 2}, {5, 5}}, 4, 1e8, true);
    for (std::ptrdiff_t i = 1; i <= 4; ++i)
        for (std::ptrdiff_t j = 1; j <= 4; ++j)
            EXPECT_NEAR(weights(i, j), 0.5, 1e-14) << i << " " << j;
}

TEST(RowNormalise, FollowsTheRegionsWhenTwoAreSwapped) {
    const auto weights = KernelOf({{0, 0}, {1, 0}, {0, 2}}, 3, 0.7, true);
    const auto swapped = KernelOf({{0, 2}, {1, 0}, {0, 0}}, 3, 0.7, true);
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        for (std::ptrdiff_t j = 1; j <= 3; ++j)
            EXPECT_NEAR(weights(i, j), swapped(4 - i, 4 - j), 1e-15) << i << " " << j;
}

TEST(KernelScalings, DivideByRootsOfSharesAndOfExpectedCounts) {
    Table<double> gram(1, 1), plain(1, 1), weights(2, 2), adjusted(2, 2);
    gram(0, 0) = gram(1, 1) = 1;
    gram(0, 1) = gram(1, 0) = 0.5;
    Array1<double> shares(2), expected(2);
    shares(1) = 0.2;
    shares(2) = 0.8;
    ScaleGramByShares(gram, shares, 2, plain);
    EXPECT_DOUBLE_EQ(plain(0, 0), 5);
    EXPECT_DOUBLE_EQ(plain(0, 1), 1.25); // 0.5 / 0.4
    EXPECT_DOUBLE_EQ(plain(1, 0), 1.25);
    EXPECT_DOUBLE_EQ(plain(1, 1), 1.25);

    weights(1, 1) = weights(2, 1) = 6;
    weights(1, 2) = weights(2, 2) = 10;
    expected(1) = 4;
    expected(2) = 25;
    ScaleColumnsByExpected(weights, expected, 2, adjusted);
    EXPECT_EQ(adjusted(1, 1), 3);
    EXPECT_EQ(adjusted(2, 1), 3);
    EXPECT_EQ(adjusted(1, 2), 2);
    EXPECT_EQ(adjusted(2, 2), 2);
}
