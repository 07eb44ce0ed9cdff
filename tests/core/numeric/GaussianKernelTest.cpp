#include "core/numeric/GaussianKernel.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

struct Place {
    double X, Y;
};

/// The kernel itself: the lengths of its rows are 1.
KernelWeights KernelOf(const std::vector<Place>& places, double area, double sigma) {
    const auto n = static_cast<std::ptrdiff_t>(places.size());
    Array1<RegionPoint> at(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        at(i) = {"", places[static_cast<size_t>(i - 1)].X, places[static_cast<size_t>(i - 1)].Y};
    PairDistances distances;
    TakeDistances(at, n, distances);
    KernelWeights kernel;
    GaussianKernel(distances.Squared, area, sigma, kernel);
    return kernel;
}

} // namespace

TEST(GaussianKernel, HasItsPeakOnTheDiagonal) {
    // 1 / sqrt(3.14159265), worked out with forty digits.
    EXPECT_DOUBLE_EQ(KernelOf({{0, 0}, {1, 0}}, 2, 1)(1, 1), 0.5641895838700965);
    EXPECT_DOUBLE_EQ(KernelOf({{0, 0}, {1, 0}}, 2, 4)(2, 2), 0.5641895838700965 / 4);
}

TEST(GaussianKernel, ScalesTheDistanceByTheMeanArea) {
    // Distance 5, sigma 2, four square units a Region: 25 / (2 * 4 * 4) = 0.78125.
    const auto kernel = KernelOf({{1, 1}, {4, 5}}, 8, 2);
    EXPECT_DOUBLE_EQ(kernel(1, 2) / kernel(1, 1), std::exp(-0.78125));
    EXPECT_EQ(kernel(1, 2), kernel(2, 1));
}

TEST(GaussianKernel, GivesTheDiagonalValueToCoincidentPlaces) {
    const auto kernel = KernelOf({{3, 4}, {3, 4}, {9, 9}}, 3, 1);
    EXPECT_EQ(kernel(1, 1), kernel(1, 2));
    EXPECT_EQ(kernel(1, 3), kernel(2, 3));
}

TEST(GaussianKernel, HasOnlyItsRegions) {
    const auto kernel = KernelOf({{0, 0}, {1, 0}}, 2, 1);
    for (const auto& [i, j] : {std::pair{0, 1}, {1, 0}, {0, 0}, {1, 3}, {3, 3}, {-1, 2}, {-1, -1}})
        EXPECT_EQ(ErrorNumberOf([&, i = i, j = j] { (void)kernel(i, j); }), SubscriptOutOfRange)
            << i << " " << j;
}

TEST(GaussianKernel, MayTakeThePlaceOfTheDistances) {
    const auto apart = KernelOf({{0, 0}, {3, 4}, {0, 4}}, 3, 0.7);
    KernelWeights kernel;
    kernel.Values.ReDimUnset(3);
    const double squared[] = {25, 16, 9};
    std::copy(std::begin(squared), std::end(squared), kernel.Values.All());
    GaussianKernel(kernel.Values, 3, 0.7, kernel);
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        for (std::ptrdiff_t j = 1; j <= 3; ++j)
            EXPECT_EQ(kernel(i, j), apart(i, j)) << i << " " << j;
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
