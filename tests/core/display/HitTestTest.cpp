#include "core/display/HitTest.h"

#include "core/spatial/CPolygon.h"
#include "support/RaisedError.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

void AddPolygon(const std::vector<Ring>& rings) {
    auto polygon = std::make_shared<CPolygon>();
    for (const Ring& ring : rings) {
        CPart part;
        for (const Vertex& vertex : ring)
            part.Add(CPoint(vertex.X, vertex.Y));
        polygon->Add(std::move(part));
    }
    ws.ShpPolygons.Add(polygon);
}

/// A view in which the map position of a click (x, y) is (x, 100 - y).
class HitTest : public ::testing::Test {
protected:
    HitTest() {
        ws = Workspace{};
        ws.SelectedRegion = 77;
        ws.PolygonView.MapScaleX = ws.PolygonView.MapScaleY = 1;
        ws.PolygonView.DrawnHeight = 100;
    }

    static std::int32_t At(double mapX, double mapY) { return HitTestRegion(mapX, 100 - mapY).Region; }
};

} // namespace

TEST_F(HitTest, FindsTheRegionAndLeavesThePositionOfTheClick) {
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    AddPolygon({ClockwiseSquare(20, 0, 10)});
    AddPolygon({ClockwiseSquare(40, 0, 10)});
    const RegionHit hit = HitTestRegion(42.5, 97);
    EXPECT_EQ(hit.Region, 2);
    EXPECT_EQ(hit.At, (MousePosition{42.5F, 3}));
    EXPECT_EQ(ws.SelectedRegion, 2);
    EXPECT_EQ(At(5, 5), 0);
    EXPECT_EQ(At(25, 5), 1);
}

TEST_F(HitTest, SelectsTheFirstRegionOnEmptyGround) {
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    AddPolygon({ClockwiseSquare(20, 0, 10)});
    EXPECT_EQ(At(90, 90), 0);
    EXPECT_EQ(ws.SelectedRegion, 0);
}

TEST_F(HitTest, SelectsTheFirstRegionWithoutAnyPolygon) {
    EXPECT_EQ(At(5, 5), 0);
    EXPECT_EQ(ws.SelectedRegion, 0);
}

TEST_F(HitTest, GivesTheFirstOfTwoOverlappingSingleParts) {
    AddPolygon({ClockwiseSquare(90, 90, 5)});
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    EXPECT_EQ(At(5, 5), 1);
}

TEST_F(HitTest, GivesTheLastOfOverlappingPolygonsOfSeveralParts) {
    for (int i = 0; i < 3; ++i)
        AddPolygon({ClockwiseSquare(0, 0, 10), ClockwiseSquare(50, 0, 10)});
    EXPECT_EQ(At(5, 5), 2);
    EXPECT_EQ(At(55, 5), 2);
}

TEST_F(HitTest, LetsASinglePartWinOverWhatCameBeforeAndAfter) {
    AddPolygon({ClockwiseSquare(0, 0, 10), ClockwiseSquare(50, 0, 10)});
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    AddPolygon({ClockwiseSquare(0, 0, 10), ClockwiseSquare(50, 0, 10)});
    EXPECT_EQ(At(5, 5), 1);
    EXPECT_EQ(At(55, 5), 2); // outside the single part the last of the others wins
}

TEST_F(HitTest, SelectsThePolygonOfAHole) {
    AddPolygon({ClockwiseSquare(90, 90, 5)});
    AddPolygon({ClockwiseSquare(0, 0, 30), CounterClockwiseSquare(10, 10, 10)});
    EXPECT_EQ(At(15, 15), 1);
    EXPECT_EQ(At(5, 5), 1);
}

TEST_F(HitTest, PassesOverPolygonsWithoutAPartAndCountsThem) {
    AddPolygon({});
    AddPolygon({});
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    EXPECT_EQ(At(5, 5), 2);
}

TEST_F(HitTest, PassesOverPartsOfOneVertex) {
    AddPolygon({{{5, 5}}});
    AddPolygon({{}, {{5, 5}}, ClockwiseSquare(0, 0, 10)});
    EXPECT_EQ(At(5, 5), 1);
}

// The closing vertex stands for no vertex of its own: of an open ring the last vertex is lost, so that this
// square is the triangle on its diagonal.
TEST_F(HitTest, LeavesOutTheLastVertexAlsoOfAnOpenRing) {
    AddPolygon({ClockwiseSquare(90, 90, 5)});
    AddPolygon({{{0, 0}, {0, 10}, {10, 10}, {10, 0}}});
    EXPECT_EQ(At(2, 8), 1);
    EXPECT_EQ(At(8, 2), 0);
}

TEST_F(HitTest, TakesTheLastDragIn) {
    AddPolygon({ClockwiseSquare(90, 90, 5)});
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    ws.PolygonView.PanDX = 30;
    EXPECT_EQ(HitTestRegion(35, 95).Region, 1);
    EXPECT_EQ(HitTestRegion(5, 95).Region, 0);
}

// A square of 0.002 round the click has dot products of 0.0000025 at most, below the 0.0001 that counts as
// none; enlarged a hundred times they are 0.02.
TEST_F(HitTest, EnlargesBeforeItMeasures) {
    AddPolygon({ClockwiseSquare(90, 90, 5)});
    AddPolygon({ClockwiseSquare(4, 4, 0.002)});
    EXPECT_EQ(At(4.0005, 4.0005), 1);
    EXPECT_EQ(At(4.01, 4.01), 0);
}

// Enlarged, click and vertices lie near 12345678.9, where 32-bit floats are whole numbers. Both stay between
// them.
TEST_F(HitTest, EnlargesIn64Bits) {
    const double click = 123456.7890625; // a 32-bit float itself
    for (const auto& [border, region] : {std::pair{123456.7885, 2}, std::pair{123456.7895, 1}}) {
        ws.ShpPolygons.Clear();
        AddPolygon({ClockwiseSquare(0, 0, 1)});
        AddPolygon({ClockwiseSquare(border - 10, 0, 10)});
        AddPolygon({ClockwiseSquare(border, 0, 10)});
        EXPECT_EQ(At(click, 5), region) << region;
    }
}

TEST_F(HitTest, StopsWithoutAScaleAndSelectsTheFirst) {
    AddPolygon({ClockwiseSquare(0, 0, 10)});
    ws.PolygonView.MapScaleX = 0;
    EXPECT_EQ(ErrorNumberOf([] { At(5, 5); }), DivisionByZero);
    EXPECT_EQ(ws.SelectedRegion, 0);
}

TEST_F(HitTest, StopsWhereAProductDoesNotFitIn32Bits) {
    AddPolygon({ClockwiseSquare(-1e20, -1e20, 2e20)});
    EXPECT_EQ(ErrorNumberOf([] { At(5, 5); }), Overflow);
    EXPECT_EQ(ws.SelectedRegion, 0);
}
