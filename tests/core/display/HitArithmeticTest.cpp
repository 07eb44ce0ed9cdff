#include "core/display/HitArithmetic.h"

#include "support/Arrays.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

constexpr double Pi = 3.14159265;

Array1<PointXY> Points(const std::vector<PointXY>& points) {
    return ArrayFrom1(points);
}

bool Holds(const std::vector<PointXY>& points, double x, double y) {
    return InsidePart(x, y, static_cast<std::ptrdiff_t>(points.size()), Points(points));
}

const std::vector<PointXY> Clockwise = {{0, 0}, {0, 200}, {200, 200}, {200, 0}};
const std::vector<PointXY> CounterClockwise = {{0, 0}, {200, 0}, {200, 200}, {0, 200}};

} // namespace

TEST(HitArithmetic, TakesAnglesFromFourQuadrants) {
    EXPECT_EQ(SafeAtan2(1, 1), std::atan(1.0));
    EXPECT_EQ(SafeAtan2(1, -1), Pi - std::atan(1.0));
    EXPECT_EQ(SafeAtan2(-1, -1), -(Pi - std::atan(1.0)));
    EXPECT_EQ(SafeAtan2(-1, 1), -std::atan(1.0));
}

TEST(HitArithmetic, UsesPiWithEightDecimals) {
    EXPECT_EQ(SafeAtan2(0, -1), 3.14159265);
    EXPECT_EQ(SafeAtan2(2, 0), 1.570796325);
    EXPECT_EQ(SafeAtan2(-2, 0), -1.570796325);
}

TEST(HitArithmetic, TakesASmallXForNone) {
    EXPECT_EQ(SafeAtan2(0, 0), 1.570796325);
    EXPECT_EQ(SafeAtan2(0.00001, 0.00009), 1.570796325);
    EXPECT_EQ(SafeAtan2(0.0001, 0.0001), std::atan(1.0));
    EXPECT_EQ(SafeAtan2(0.00001, -0.00009), Pi - Pi / 2);
}

TEST(HitArithmetic, TurnsLeftPositive) {
    EXPECT_EQ(TurnAngle({3, 0}, {0, 0}, {0, 5}), 1.570796325);
    EXPECT_EQ(TurnAngle({0, 5}, {0, 0}, {3, 0}), -1.570796325);
    EXPECT_EQ(TurnAngle({11, 10}, {10, 10}, {11, 11}), std::atan(1.0));
    EXPECT_EQ(TurnAngle({1, 1}, {1, 1}, {5, 7}), 1.570796325); // on a vertex: both products are 0
}

// 16777217 needs 25 bits and becomes 16777216; the cross product is -1.
TEST(HitArithmetic, RoundsTheProductsTo32Bits) {
    EXPECT_EQ(TurnAngle({16777217, 1}, {0, 0}, {1, 0}), -std::atan(1 / 16777216.0));
    EXPECT_NE(TurnAngle({16777217, 1}, {0, 0}, {1, 0}), -std::atan(1 / 16777217.0));
}

TEST(HitArithmetic, CountsRingsOfBothDirections) {
    EXPECT_TRUE(Holds(Clockwise, 50, 120));
    EXPECT_TRUE(Holds(CounterClockwise, 50, 120));
    EXPECT_FALSE(Holds(Clockwise, 250, 120));
    EXPECT_FALSE(Holds(CounterClockwise, -1, -1));
}

TEST(HitArithmetic, CountsARingThatWindsTwice) {
    EXPECT_TRUE(
        Holds({{0, 0}, {0, 200}, {200, 200}, {200, 0}, {0, 0}, {0, 200}, {200, 200}, {200, 0}}, 50, 120));
}

// A figure of eight: each loop has its own sense, and either is inside.
TEST(HitArithmetic, CountsBothLoopsOfAnEight) {
    const std::vector<PointXY> eight = {{0, 0}, {200, 200}, {200, 0}, {0, 200}};
    EXPECT_TRUE(Holds(eight, 20, 100));
    EXPECT_TRUE(Holds(eight, 180, 100));
    EXPECT_FALSE(Holds(eight, 100, 20));
}

// The two edges at the vertex give pi / 2 each, the two others pi / 4 each with the ring's own sign:
// pi - pi / 2 or pi + pi / 2.
TEST(HitArithmetic, IsInsideOnAVertexOfASquare) {
    EXPECT_TRUE(Holds(Clockwise, 0, 0));
    EXPECT_TRUE(Holds(CounterClockwise, 200, 200));
}

// The edge under the click gives +pi whatever the direction, the others -pi or +pi together.
TEST(HitArithmetic, IsInsideOnAnEdgeOnlyCounterClockwise) {
    EXPECT_FALSE(Holds(Clockwise, 100, 0));
    EXPECT_TRUE(Holds(CounterClockwise, 100, 0));
}

TEST(HitArithmetic, HoldsNothingInARingWithoutAPoint) {
    EXPECT_FALSE(InsidePart(0, 0, 0, Points({})));
    EXPECT_FALSE(InsidePart(0, 0, -1, Array1<PointXY>()));
}

// One point: the closing edge runs from it to itself, an angle of 0 from anywhere but the point.
TEST(HitArithmetic, HoldsNothingButThePointInARingOfOne) {
    EXPECT_FALSE(Holds({{5, 5}}, 7, 9));
    EXPECT_TRUE(Holds({{5, 5}}, 5, 5));
}

TEST(HitArithmetic, LooksAtTheGivenNumberOfPoints) {
    auto points = Clockwise;
    points.push_back({-1e6, -1e6});
    EXPECT_FALSE(InsidePart(-100, -1, 4, Points(points)));
}

// A comb of 3000 teeth below a click. In 64 bits the angles add up to 2e-9; the 32-bit sum strays to 1.3e-5,
// above the limit (both sums taken in Python, the 32-bit one by rounding through struct after each addition).
TEST(HitArithmetic, AddsIn32Bits) {
    std::vector<PointXY> comb;
    for (int i = 0; i < 3000; ++i) {
        comb.push_back({static_cast<double>(i), 0});
        comb.push_back({i + 0.5, 7});
    }
    comb.insert(comb.end(), {{3000, 0}, {3000, -5}, {0, -5}});
    EXPECT_TRUE(Holds(comb, 1500.25, 20));
    EXPECT_FALSE(Holds(comb, 1000, 9)); // 4.9e-6
}
