#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/ShapeErrors.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

template <typename Shape>
std::vector<double> BoxOf(const Shape& shape) {
    return {shape.Left(), shape.Right(), shape.Bottom(), shape.Top()};
}
using Box = std::vector<double>;

CPart PartOf(std::initializer_list<CPoint> points) {
    CPart part;
    for (const auto& point : points)
        part.Add(point);
    return part;
}

} // namespace

TEST(CRect, MakeXYSetsTheSecondXTwice) {
    CRect rect;
    rect.SetBottom(77);
    rect.MakeXY(1, 2, 3, 4);
    EXPECT_EQ(BoxOf(rect), (Box{1, 4, 77, 2}));
}

TEST(CRect, MakesAndEmpties) {
    CRect rect;
    rect.Make({1, 9}, {5, 2});
    EXPECT_EQ(BoxOf(rect), (Box{1, 5, 2, 9}));
    rect.MakeEmpty();
    EXPECT_EQ(BoxOf(rect), (Box{0, 0, 0, 0}));
    EXPECT_FALSE(rect.IsNull());
    rect.MakeNull(true);
    EXPECT_TRUE(rect.IsNull());
}

TEST(CRect, OtherBoxesStartEmpty) {
    EXPECT_EQ(BoxOf(CShape()), (Box{0, 0, 0, 0}));
    EXPECT_STREQ(CNullShape().ClassName(), "CNullShape");
}

TEST(CPart, OfOnePointHasABoxWithoutSize) {
    EXPECT_EQ(BoxOf(PartOf({{3, -4}})), (Box{3, 3, -4, -4}));
}

TEST(CPart, MovesItsEdgesOutwardsOnly) {
    const CPart part = PartOf({{1, 1}, {5, -2}, {3, 0}, {-1, 7}});
    EXPECT_EQ(BoxOf(part), (Box{-1, 5, -2, 7}));
    EXPECT_EQ(part.Count(), 4);
    EXPECT_EQ(part.Item(2).X, 5);
}

TEST(CPart, RebuildsItsBoxAfterARemoval) {
    CPart part = PartOf({{1, 1}, {5, -2}, {3, 0}});
    part.Remove(2);
    EXPECT_EQ(BoxOf(part), (Box{1, 3, 0, 1}));
    EXPECT_EQ(part.Count(), 2);
    EXPECT_EQ(part.Item(2).X, 3);
}

TEST(CPart, KeepsItsBoxWhenTheLastPointGoes) {
    CPart part = PartOf({{3, 4}});
    part.Remove(1);
    EXPECT_EQ(part.Count(), 0);
    EXPECT_EQ(BoxOf(part), (Box{3, 3, 4, 4}));
}

TEST(CPart, HasEdgesThatCanBeSet) {
    CPart part;
    part.SetLeft(1);
    part.SetRight(2);
    part.SetBottom(3);
    part.SetTop(4);
    EXPECT_EQ(BoxOf(part), (Box{1, 2, 3, 4}));
}

TEST(CompositeShape, TakesTheFirstBoxAndMovesOutwards) {
    CPolygon polygon;
    polygon.TakeBox(-100, -100, 100, 100); // as a file tells it
    polygon.Add(PartOf({{1, 2}, {3, 4}}));
    EXPECT_EQ(BoxOf(polygon), (Box{1, 3, 2, 4}));
    polygon.Add(PartOf({{0, 3}, {2, 9}}));
    EXPECT_EQ(BoxOf(polygon), (Box{0, 3, 2, 9}));
    EXPECT_EQ(polygon.Count(), 2);
}

TEST(CompositeShape, KeepsItsBoxAfterARemoval) {
    CMultiPoint points;
    points.Add(CPoint(1, 1));
    points.Add(CPoint(9, 9));
    points.Remove(2);
    EXPECT_EQ(points.Count(), 1);
    EXPECT_EQ(BoxOf(points), (Box{1, 9, 1, 9}));
    CPolyLine line;
    line.Add(PartOf({{1, 1}, {2, 5}}));
    line.Remove(1);
    EXPECT_EQ(BoxOf(line), (Box{1, 2, 1, 5}));
}

TEST(CompositeShape, StartsEmptyAndNotNull) {
    CPolygon polygon;
    EXPECT_EQ(BoxOf(polygon), (Box{0, 0, 0, 0}));
    EXPECT_FALSE(polygon.IsNull());
    polygon.MakeNull(true);
    EXPECT_TRUE(polygon.IsNull());
}

TEST(CompositeShape, RefusesItemsOfAnotherClass) {
    CPart part = PartOf({{1, 2}});
    CMultiPoint points;
    CPolyLine line;
    CPolygon polygon;
    points.Add(CPoint(1, 2));
    line.Add(part);
    polygon.Add(part);
    struct Case {
        std::function<void()> Call;
        const char* Source;
        const char* Description;
    };
    const Case cases[] = {
        {[&] { part.Add(CRect()); }, "CPart::Add", "CPart can only accept objects of type CPoint"},
        {[&] { points.Add(part); }, "CMultiPoint::Add",
         "CMultiPoint Add can only accept objects of type CPoints"},
        {[&] { line.Add(CPoint(9, 9)); }, "CPolyLine::Add",
         "CPolyLine Add can only accept objects of type CPart"},
        {[&] { polygon.Add(CPoint(9, 9)); }, "CPolygon::Add",
         "CPolygon Add can only accept objects of type CPart"},
    };
    for (const auto& [call, source, description] : cases) {
        const auto error = ErrorOf(call);
        EXPECT_EQ(error.Number, WrongItemClass) << error;
        EXPECT_EQ(error.Source, source);
        EXPECT_EQ(error.Description, description);
    }
    for (const IShape* shape : std::initializer_list<const IShape*>{&points, &line, &polygon})
        EXPECT_EQ(BoxOf(*shape), (Box{1, 1, 2, 2})) << shape->ClassName();
    EXPECT_EQ(part.Count() + points.Count() + line.Count() + polygon.Count(), 4);
}

TEST(CompositeShape, RaisesABadIndexWithTheClassesOwnSource) {
    CPart part;
    CMultiPoint points;
    CPolyLine line;
    CPolygon polygon;
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[&] { part.Remove(1); }, "CPart::Remove"},
        {[&] { points.Remove(0); }, "CMultiPoint::Remove"},
        {[&] { line.Remove(-1); }, "CPolyLine::Remove"},
        {[&] { polygon.Remove(1); }, "C_Polygon::Remove"},
    };
    for (const auto& [call, source] : cases) {
        const auto error = ErrorOf(call);
        EXPECT_EQ(error.Number, SubscriptOutOfRange) << error;
        EXPECT_EQ(error.Source, source);
    }
    EXPECT_EQ(ErrorNumberOf([&] { polygon.Item(1); }), SubscriptOutOfRange);
}
