#include "core/spatial/CPoint.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/ShapeErrors.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

using Line = std::vector<CPoint>;

template <typename Shape>
Shape ShapeOf(const std::vector<Line>& parts) {
    Shape shape;
    for (const auto& points : parts) {
        CPart part;
        for (const auto& point : points)
            part.Add(point);
        shape.Add(part);
    }
    return shape;
}

const Line Square = {{0, 0}, {0, 1}, {1, 1}, {1, 0}, {0, 0}};

} // namespace

TEST(CPoint, IsItsOwnBox) {
    const CPoint point(3, -4);
    EXPECT_EQ(point.Left(), 3);
    EXPECT_EQ(point.Right(), 3);
    EXPECT_EQ(point.Top(), -4);
    EXPECT_EQ(point.Bottom(), -4);
    EXPECT_FALSE(point.IsNull());
}

TEST(IShape, DoesNothingByItself) {
    IShape shape;
    shape.MakeNull(true);
    EXPECT_FALSE(shape.IsNull());
    EXPECT_EQ(shape.Top() + shape.Bottom() + shape.Left() + shape.Right(), 0);
    EXPECT_EQ(shape.Distance(CPoint(1, 1)), 0);
}

TEST(CPointDistance, ToAPointIsEuclidean) {
    EXPECT_EQ(CPoint(0, 0).Distance(CPoint(3, 4)), 5);
    EXPECT_EQ(CPoint(2, 7).Distance(CPoint(2, 7)), 0);
}

TEST(CPointDistance, RefusesANullShapeOnEitherSide) {
    CPoint null;
    null.MakeNull(true);
    for (const auto& error :
         {ErrorOf([&] { CPoint().Distance(null); }), ErrorOf([&] { null.Distance(CPoint()); })}) {
        EXPECT_EQ(error.Number, DistanceToNullShape);
        EXPECT_EQ(error.Source, "CPoint::IShape_Distance");
        EXPECT_EQ(error.Description, "Cannot compute distance to a null shape");
    }
}

TEST(CPointDistance, IsZeroForOtherShapes) {
    EXPECT_EQ(CPoint(9, 9).Distance(CMultiPoint()), 0);
    EXPECT_EQ(CPoint(9, 9).Distance(IShape()), 0);
}

TEST(CPointDistance, TakesTheFootOnASegmentAtTheNearestVertex) {
    // Above (3, 0) on a line from 0 to 10.
    EXPECT_DOUBLE_EQ(CPoint(3, 4).Distance(ShapeOf<CPolyLine>({{{0, 0}, {10, 0}}})), 4);
    // Middle vertex of three, the foot on the segment behind it: (12, 1) is 1 above the line.
    EXPECT_DOUBLE_EQ(CPoint(12, 1).Distance(ShapeOf<CPolyLine>({{{0, 0}, {10, 0}, {20, 0}}})), 1);
}

TEST(CPointDistance, KeepsTheEarlierOfEqualVertices) {
    // (0, 0) and (1, 0) are equally far from (0.5, -1). At the first, only the segment up the left side is
    // tried, and its foot lies behind: what stays is the distance to the corner, sqrt(0.25 + 1).
    EXPECT_DOUBLE_EQ(CPoint(0.5, -1).Distance(ShapeOf<CPolygon>({Square})), std::sqrt(1.25));
}

TEST(CPointDistance, TriesBothSegmentsAtAMiddleVertex) {
    // The nearest vertex is the corner (10, 0) of an angle whose sides go left and up. A point is 1 from the
    // side before the corner, another 1 from the side behind it.
    const auto angle = ShapeOf<CPolyLine>({{{0, 0}, {10, 0}, {10, 20}, {30, 20}}});
    EXPECT_DOUBLE_EQ(CPoint(8, -1).Distance(angle), 1);
    EXPECT_DOUBLE_EQ(CPoint(11, 3).Distance(angle), 1);
    EXPECT_DOUBLE_EQ(CPoint(13, -4).Distance(angle), 5); // beyond both: the corner itself
    const auto ring = ShapeOf<CPolygon>({{{0, 0}, {0, 20}, {10, 20}, {10, 0}, {0, 0}}});
    EXPECT_DOUBLE_EQ(CPoint(7, 21).Distance(ring), 1);  // corner 3, the side before it
    EXPECT_DOUBLE_EQ(CPoint(12, 17).Distance(ring), 2); // corner 3, the side behind it
}

TEST(CPointDistance, TakesTheSmallestOverAllParts) {
    // Three parts side by side, each nearest at its first vertex; the sides go up from y = 0.
    const std::vector<Line> parts{{{0, 0}, {0, 50}}, {{20, 0}, {20, 50}}, {{40, 0}, {40, 50}}};
    for (const auto& [x, distance] : {std::pair{3.0, 3.0}, std::pair{18.0, 2.0}, std::pair{45.0, 5.0}}) {
        EXPECT_DOUBLE_EQ(CPoint(x, 10).Distance(ShapeOf<CPolyLine>(parts)), distance) << x;
        EXPECT_DOUBLE_EQ(CPoint(x, 10).Distance(ShapeOf<CPolygon>(parts)), distance) << x;
    }
    // The corner of one part may beat the foot on another, whichever comes first.
    const Line upright{{0, -10}, {0, 50}}, corner{{15, 0}, {15, 50}};
    for (const auto& both : {std::vector<Line>{upright, corner}, {corner, upright}})
        EXPECT_DOUBLE_EQ(CPoint(11, -3).Distance(ShapeOf<CPolygon>(both)), 5);
}

TEST(CPointDistance, TreatsAPointInsideLikeAnyOther) {
    // Nearest corner (0, 0); the left side is 0.25 away.
    EXPECT_DOUBLE_EQ(CPoint(0.25, 0.3).Distance(ShapeOf<CPolygon>({Square})), 0.25);
}

TEST(CPointDistance, TakesThePartCountForTheLastVertex) {
    // Two parts; the nearest vertex of the second is its vertex 2, which passes for the last one. Only the
    // segment back to vertex 1 is tried, so that the distance is that to the vertex, sqrt(4 + 1), not 1.
    const auto line = ShapeOf<CPolyLine>({{{100, 100}, {101, 200}}, {{0, 0}, {10, 0}, {20, 0}}});
    EXPECT_DOUBLE_EQ(CPoint(12, 1).Distance(line), std::sqrt(5.0));
    // On the other side of the vertex that segment is the right one.
    EXPECT_DOUBLE_EQ(CPoint(8, 1).Distance(line), 1);
}

TEST(CPointDistance, AddressesThatVertexByThePartIndex) {
    // The nearest vertex of part 1 is its vertex 2 = the number of parts: vertices 1 and 0 of the part are
    // asked for, and the second does not exist.
    const auto line = ShapeOf<CPolyLine>({{{0, 0}, {10, 0}}, {{100, 100}, {101, 200}}});
    EXPECT_EQ(ErrorNumberOf([&] { CPoint(11, 1).Distance(line); }), SubscriptOutOfRange);
}

TEST(CPointDistance, StopsAtVerticesThatDoNotExist) {
    const CPoint far(30, 1);
    EXPECT_EQ(ErrorNumberOf([&] {
                  far.Distance(ShapeOf<CPolyLine>({{{0, 0}, {10, 0}, {20, 0}}}));
              }),
              SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { far.Distance(ShapeOf<CPolyLine>({{{0, 0}}})); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { far.Distance(ShapeOf<CPolyLine>({{}})); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { far.Distance(CPolygon()); }), SubscriptOutOfRange);
}

TEST(CPointDistance, StopsAtASegmentOfNoLength) {
    EXPECT_EQ(ErrorNumberOf([] {
                  CPoint(1, 1).Distance(ShapeOf<CPolyLine>({{{0, 0}, {0, 0}}}));
              }),
              DivisionByZero);
}

TEST(CPointDistance, StopsAtAnOverflow) {
    EXPECT_EQ(ErrorNumberOf([] { CPoint(1e300, 0).Distance(CPoint(-1e300, 0)); }), Overflow);
}

TEST(ShapeDistance, OfOtherShapesIsNotImplemented) {
    const CMultiPoint points;
    const CPolyLine line;
    const CPolygon polygon;
    const CRect rect;
    for (const IShape* shape : std::initializer_list<const IShape*>{&points, &line, &polygon, &rect}) {
        ScriptedPlatform platform;
        platform.ExpectMessage("NOT IMPLEMENTED", "Vastrel", Message::Icon::Plain);
        EXPECT_EQ(shape->Distance(CPoint(1, 2)), 0) << shape->ClassName();
    }
}
