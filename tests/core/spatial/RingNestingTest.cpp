#include "core/spatial/RingNesting.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

using Rings = std::vector<ClosedRing>;

/// A closed square that runs counter-clockwise from its lower left corner.
ClosedRing Square(double x, double y, double side) {
    return {{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}, {x, y}};
}

ClosedRing Turned(ClosedRing ring) {
    return {ring.rbegin(), ring.rend()};
}

CPolygon PolygonOf(const std::vector<ClosedRing>& rings) {
    CPolygon polygon;
    for (const auto& ring : rings) {
        CPart part;
        for (const auto& vertex : ring)
            part.Add(CPoint(vertex.X, vertex.Y));
        polygon.Add(std::move(part));
    }
    return polygon;
}

std::vector<NestedRings> Nested(const std::vector<ClosedRing>& rings) {
    return NestRings(PolygonOf(rings));
}

} // namespace

TEST(RingNesting, TurnsTheOuterRingLeftAndItsHoleRight) {
    for (const auto& outer : {Square(0, 0, 9), Turned(Square(0, 0, 9))})
        for (const auto& hole : {Square(3, 3, 2), Turned(Square(3, 3, 2))}) {
            const auto nested = Nested({outer, hole});
            ASSERT_EQ(nested.size(), 1U);
            EXPECT_EQ(nested[0].Outer, Square(0, 0, 9));
            EXPECT_EQ(nested[0].Holes, Rings{Turned(Square(3, 3, 2))});
        }
}

TEST(RingNesting, KeepsPartsSideBySide) {
    const auto nested = Nested({Turned(Square(0, 0, 1)), Turned(Square(1, 0, 1))}); // they share an edge
    ASSERT_EQ(nested.size(), 2U);
    EXPECT_EQ(nested[0].Outer, Square(0, 0, 1));
    EXPECT_EQ(nested[1].Outer, Square(1, 0, 1));
    EXPECT_TRUE(nested[0].Holes.empty());
}

TEST(RingNesting, TakesAnIslandInALakeForAnOuterRing) {
    const auto nested = Nested({Square(2, 2, 6), Square(4, 4, 2), Square(0, 0, 20), Square(12, 12, 4)});
    ASSERT_EQ(nested.size(), 2U);
    EXPECT_EQ(nested[0].Outer, Square(4, 4, 2));
    EXPECT_TRUE(nested[0].Holes.empty());
    EXPECT_EQ(nested[1].Outer, Square(0, 0, 20));
    EXPECT_EQ(nested[1].Holes, (Rings{Turned(Square(2, 2, 6)), Turned(Square(12, 12, 4))}));
}

TEST(RingNesting, FindsAHoleWhoseVerticesAllLieOnItsOuterRing) {
    const ClosedRing diamond{{2, 0}, {4, 2}, {2, 4}, {0, 2}, {2, 0}};
    const auto nested = Nested({Square(0, 0, 4), diamond});
    ASSERT_EQ(nested.size(), 1U);
    EXPECT_EQ(nested[0].Holes, Rings{Turned(diamond)});
}

TEST(RingNesting, LeavesAPartInTheBayOfAnotherOutside) {
    const ClosedRing bay{{0, 0}, {9, 0}, {9, 9}, {7, 9}, {7, 3}, {2, 3}, {2, 9}, {0, 9}, {0, 0}};
    EXPECT_EQ(Nested({bay, Square(2, 3, 5)}).size(), 2U); // it fills the bay and shares three edges
}

TEST(RingNesting, TakesTheSameRingTwiceForTwoOuterRings) {
    EXPECT_EQ(Nested({Square(0, 0, 1), Turned(Square(0, 0, 1))}).size(), 2U); // neither is the larger one
}

TEST(RingNesting, ClosesAnOpenRing) {
    const auto nested = Nested({{{0, 0}, {2, 0}, {0, 2}}});
    ASSERT_EQ(nested.size(), 1U);
    EXPECT_EQ(nested[0].Outer, (ClosedRing{{0, 0}, {2, 0}, {0, 2}, {0, 0}}));
}

TEST(RingNesting, LeavesOutWhatEnclosesNothing) {
    EXPECT_TRUE(Nested({}).empty());
    EXPECT_TRUE(Nested({{}, {{1, 1}}, {{1, 1}, {2, 2}, {1, 1}}}).empty());
}

TEST(RingNesting, HoldsWhereCoordinatesAreLarge) {
    const double far = 5e6, small = 1.0 / 1024; // both of few binary digits, so that the corners are exact
    const auto nested =
        Nested({Turned(Square(far, far, 4 * small)), Square(far + small, far + small, small)});
    ASSERT_EQ(nested.size(), 1U);
    EXPECT_EQ(nested[0].Outer, Square(far, far, 4 * small));
    EXPECT_EQ(nested[0].Holes, Rings{Turned(Square(far + small, far + small, small))});
}
