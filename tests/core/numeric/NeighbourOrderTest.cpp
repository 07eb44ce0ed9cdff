#include "core/numeric/NeighbourOrder.h"

#include "core/numeric/KernelRows.h"
#include "support/PlainLoops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <random>

using namespace vastrel;

namespace {

using Order = VectorOrder;

Array1<RegionPoint> RandomPlaces(std::ptrdiff_t n) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(0, std::sqrt(n));
    Array1<RegionPoint> at(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        at(i) = {std::to_string(i), place(random), place(random)};
    return at;
}

/// How far it is from one to the next, all together.
double Length(const Order& order, const Array1<RegionPoint>& at) {
    double length = 0;
    for (size_t i = 1; i < order.size(); ++i)
        length += std::hypot(at(order[i] + 1).X - at(order[i - 1] + 1).X,
                             at(order[i] + 1).Y - at(order[i - 1] + 1).Y);
    return length;
}

Order Sorted(Order order) {
    std::sort(order.begin(), order.end());
    return order;
}

Order Counted(size_t n) {
    Order order(n);
    std::iota(order.begin(), order.end(), 0);
    return order;
}

} // namespace

TEST(NeighbourOrder, TakesEachRegionOnceAndNeighboursTogether) {
    const auto at = RandomPlaces(900);
    const Order order = NeighbourOrder(at, 900);
    EXPECT_EQ(Sorted(order), Counted(900));
    // Random places of the 30 x 30 square lie about 0.52 * 30 apart; in strips of 4 it is a few units.
    EXPECT_LT(Length(order, at), 900 * 3);
    EXPECT_GT(Length(Counted(900), at), 900 * 14);
}

// Three Regions to the square root of three; one strip holds them all, so they come from the bottom to the
// top.
TEST(NeighbourOrder, GoesUpwardWithinAStrip) {
    Array1<RegionPoint> at(3);
    at(1) = {"a", 0, 5};
    at(2) = {"b", 1, -2};
    at(3) = {"c", 2, 3};
    EXPECT_EQ(NeighbourOrder(at, 3), (Order{1, 2, 0}));
    EXPECT_TRUE(NeighbourOrder(at, 0).empty());
}

TEST(NeighbourOrder, OrdersWhatIsNoNumberToo) {
    auto at = RandomPlaces(50);
    for (std::ptrdiff_t i = 3; i <= 50; i += 7)
        at(i).X = at(i - 1).Y = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Sorted(NeighbourOrder(at, 50)), Counted(50));
}

TEST(NeighbourOrder, PutsATableBackIntoItsPlaces) {
    const Order order{2, 0, 1};
    Table<double> ordered(2, 2), table(2, 2);
    for (std::ptrdiff_t x = 0; x < 3; ++x)
        for (std::ptrdiff_t y = 0; y < 3; ++y)
            ordered(x, y) =
                static_cast<double>(10 * order[static_cast<size_t>(x)] + order[static_cast<size_t>(y)]);
    PutBack(ordered, order, table);
    for (std::ptrdiff_t i = 0; i < 3; ++i)
        for (std::ptrdiff_t j = 0; j < 3; ++j)
            EXPECT_EQ(table(i, j), static_cast<double>(10 * i + j));
}

namespace {

/// The squares of a lattice, row after row.
Array1<RegionPoint> Lattice(std::ptrdiff_t side) {
    Array1<RegionPoint> at(side * side);
    for (std::ptrdiff_t i = 0; i < side * side; ++i)
        at(i + 1) = {std::to_string(i), static_cast<double>(i % side), static_cast<double>(i / side)};
    return at;
}

void ExpectPlainGram(const Array1<RegionPoint>& at, double sigma) {
    const std::ptrdiff_t n = at.UpperBound();
    Table<double> w(n, n), ordered(n - 1, n - 1), gram(n - 1, n - 1), plain(n - 1, n - 1);
    PutWeights(GaussianWeights(at, n, static_cast<double>(n), sigma), w);
    const Order order = NeighbourOrder(at, n);
    const MatrixView weights{w.row(1) + 1, n, n, w.stride()};
    DenseGram(weights, order, ordered.row(0), ordered.stride());
    PutBack(ordered, order, gram);
    PlainGram(weights, plain.row(0), plain.stride());
    for (std::ptrdiff_t i = 0; i < n; ++i)
        EXPECT_EQ(std::memcmp(gram.row(i), plain.row(i), static_cast<size_t>(n) * sizeof(double)), 0)
            << "row " << i << " of " << n << " at " << sigma;
}

} // namespace

// At these bandwidths products of weights are ordinary, below the smallest normal number, or round to zero,
// and most of them are not felt.
TEST(NeighbourOrder, GramMatrixEqualsThePlainOneInEveryBit) {
    for (const std::ptrdiff_t n : {1, 2, 9, 60, 233, 900})
        for (const double sigma : {0.05, 0.1, 0.25, 1.0})
            ExpectPlainGram(RandomPlaces(n), sigma);
    for (const double sigma : {0.1, 0.3, 1.0})
        ExpectPlainGram(Lattice(29), sigma);
}
