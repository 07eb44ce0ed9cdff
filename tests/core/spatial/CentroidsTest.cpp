#include "core/spatial/Centroids.h"

#include "core/export/ExportDataset.h"
#include "core/platform/RunTimeError.h"
#include "core/prospective/PolygonCusum.h"
#include "core/retrospective/Weights.h"
#include "core/spatial/CPolygon.h"
#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/ShapefileBytes.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

void AddRegion(const std::vector<Ring>& rings) {
    auto polygon = std::make_shared<CPolygon>();
    for (const auto& ring : rings) {
        CPart part;
        for (const auto& [x, y] : ring)
            part.Add(CPoint(x, y));
        polygon->Add(std::move(part));
    }
    ws.ShpPolygons.Add(polygon);
    ++ws.NumRegion;
}

void Compute() {
    ComputeShapeAreas();
    ComputeCentroids();
}

class Centroids : public ::testing::Test {
protected:
    Centroids() { ws = Workspace{}; }
};

/// A closed ring of n vertices around a rectangle n - 3 wide, all but two of them on its lower side.
Ring LongRing(int n) {
    Ring ring = {{0, 0}, {0, 1}};
    for (int k = n - 3; k >= 0; --k)
        ring.push_back({static_cast<double>(k), k == n - 3 ? 1.0 : 0.0});
    return ring;
}

} // namespace

TEST_F(Centroids, OfAClockwiseSquareIsItsMiddle) {
    AddRegion({ClockwiseSquare(0, 0, 1)});
    Compute();
    EXPECT_EQ(ws.TotalShapeArea, 1);
    EXPECT_EQ(ws.ShpPartArea(1, 1), (PartAreaRecord{1, 1, 1}));
    EXPECT_EQ(ws.RegionCentroid(1).ID, "1");
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(1).X, 0.5);
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(1).Y, 0.5);
}

TEST_F(Centroids, OfACounterClockwiseSquareIsNegated) {
    AddRegion({CounterClockwiseSquare(0, 0, 1)});
    Compute();
    EXPECT_EQ(ws.TotalShapeArea, 1);
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(1).X, -0.5);
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(1).Y, -0.5);
}

TEST_F(Centroids, OfSeveralPartsAreWeightedByArea) {
    // A square of area 1 around (0.5, 0.5) and a rectangle of area 3 around (10.5, 1.5):
    // (0.5 + 3 * 10.5) / 4 = 8, (0.5 + 3 * 1.5) / 4 = 1.25.
    AddRegion({ClockwiseSquare(0, 0, 1), {{10, 0}, {10, 3}, {11, 3}, {11, 0}, {10, 0}}});
    Compute();
    EXPECT_EQ(ws.TotalShapeArea, 4);
    EXPECT_EQ(ws.ShpPartArea(1, 1), (PartAreaRecord{1, 1, 4}));
    EXPECT_EQ(ws.ShpPartArea(1, 2), (PartAreaRecord{1, 3, 0}));
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(1).X, 8);
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(1).Y, 1.25);
}

TEST_F(Centroids, AreDrawnThroughTheOriginByAHole) {
    // Square of area 16 around (2, 2) with a hole of area 4 around (2, 2): net area 12. The hole's centroid
    // is negated: 2 * 16 / 12 - 2 * 4 / 12 = 2; seen from elsewhere it would not be the middle: the same
    // shifted by 10 in x: 12 * 16 / 12 - 12 * 4 / 12 = 12.
    AddRegion({ClockwiseSquare(0, 0, 4), CounterClockwiseSquare(1, 1, 2)});
    // A hole beside the middle, around (1, 1) with area 1: net 15; (2 * 16 - 1) / 15 = 31 / 15.
    AddRegion({ClockwiseSquare(0, 0, 4), CounterClockwiseSquare(0.5, 0.5, 1)});
    Compute();
    EXPECT_EQ(ws.ShpPartArea(1, 1).RegionArea, 12);
    EXPECT_EQ(ws.ShpPartArea(1, 2).PartArea, 4);
    EXPECT_EQ(ws.TotalShapeArea, 27);
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(1).X, 2);
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(2).Y, 31.0 / 15);
}

TEST_F(Centroids, LeaveRingsOpenThatDoNotRepeatTheirFirstPoint) {
    // Without the edge from (1, 0) back to (0, 0) nothing is missing from the sum, but without that from
    // (3, 3) to (2, 2) something is: the sum over two of three edges is half of (0 - 4) + (6 - ...).
    // Edges (2,2)-(2,4): 4*2 - 2*2 = 4; (2,4)-(4,4): 4*2 - 4*4 = -8; sum -4, half -2.
    AddRegion({{{2, 2}, {2, 4}, {4, 4}}});
    ComputeShapeAreas();
    EXPECT_EQ(ws.TotalShapeArea, 2);
}

TEST_F(Centroids, StopAtAPartOfZeroArea) {
    AddRegion({ClockwiseSquare(0, 0, 1)});
    AddRegion({{{0, 0}, {1, 1}, {0, 0}}});
    ComputeShapeAreas();
    ws.RegionCentroid.ReDim(2); // of a dataset before
    EXPECT_EQ(ErrorOf(ComputeCentroids).Description, "Division by zero\nPart 1 of Region 2.");
    EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
    EXPECT_EQ(ws.TotalShapeArea, 0);
}

// Whatever needs positions or area stops: none of them is left, of this dataset or of the one before.
TEST_F(Centroids, LeaveNothingBehindAFault) {
    const Ring flat{{0, 0}, {1, 1}, {0, 0}};
    AddRegion({ClockwiseSquare(0, 0, 1), ClockwiseSquare(3, 0, 1)});
    Compute();
    AddRegion({ClockwiseSquare(0, 0, 1), flat});
    ComputeShapeAreas();
    EXPECT_EQ(ErrorOf(ComputeCentroids).Description, "Division by zero\nPart 2 of Region 2.");
    EXPECT_EQ(ws.TotalShapeArea, 0);
    ws.ObsCount = ws.ExpCount = ws.ExpRatio = Array1<double>(2);
    ws.CurrentSigma = 1;
    for (auto* build : {BuildMWeights, BuildScoreWeights})
        EXPECT_EQ(ErrorNumberOf(build), SubscriptOutOfRange);
    ws.RunPeriodCount = 1;
    Table<double> z(2, 1);
    EXPECT_EQ(ErrorNumberOf([&] { RunPolygonCusum(z, StartOption::Zero, Array1<std::string>(2)); }),
              SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf(BuildExportWeights), SubscriptOutOfRange);

    ws = Workspace{};
    AddRegion({ClockwiseSquare(0, 0, 1)});
    Compute();
    AddRegion({ClockwiseSquare(0, 0, 1), ClockwiseSquare(0, 0, 1e200)});
    EXPECT_EQ(ErrorOf(ComputeShapeAreas).Description, "Overflow\nPart 2 of Region 2.");
    EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
    EXPECT_EQ(ws.TotalShapeArea, 0);
}

TEST_F(Centroids, StopAtPartsThatCancel) {
    AddRegion({ClockwiseSquare(0, 0, 1), CounterClockwiseSquare(5, 5, 1)});
    ComputeShapeAreas();
    EXPECT_EQ(ws.TotalShapeArea, 0);
    EXPECT_EQ(ErrorNumberOf(ComputeCentroids), DivisionByZero);
}

TEST_F(Centroids, TakeASingleVertexAsNoArea) {
    AddRegion({{{7, 8}}});
    AddRegion({{{7, 8}}, ClockwiseSquare(0, 0, 1)});
    Compute();
    EXPECT_EQ(ws.TotalShapeArea, 1);
    EXPECT_EQ(ws.RegionCentroid(1), (RegionPoint{"1", 0, 0}));
    EXPECT_DOUBLE_EQ(ws.RegionCentroid(2).X, 0.5);
}

TEST_F(Centroids, LeaveARegionWithoutPartsAtTheOrigin) {
    AddRegion({});
    AddRegion({ClockwiseSquare(0, 0, 2)});
    Compute();
    EXPECT_EQ(ws.TotalShapeArea, 4);
    EXPECT_EQ(ws.RegionCentroid(1), (RegionPoint{"1", 0, 0}));
}

// Then the table of areas has no place for the first part of a Region, which holds the area of the Region.
TEST_F(Centroids, StopWhereNoRegionHasAnyPart) {
    AddRegion({});
    AddRegion({});
    EXPECT_EQ(ErrorNumberOf(ComputeShapeAreas), SubscriptOutOfRange);
    EXPECT_EQ(ws.TotalShapeArea, 0);
}

TEST_F(Centroids, CountPointsIn16Bits) {
    AddRegion({LongRing(32767)});
    Compute();
    EXPECT_DOUBLE_EQ(ws.TotalShapeArea, 32764.0 - 0.5); // the rectangle less the triangle at its right end
    AddRegion({LongRing(32768)});
    EXPECT_EQ(ErrorNumberOf(ComputeShapeAreas), Overflow);
    EXPECT_EQ(ws.TotalShapeArea, 0);
}

TEST_F(Centroids, CountPartsIn16Bits) {
    AddRegion(std::vector<Ring>(32767, ClockwiseSquare(0, 0, 1)));
    ComputeShapeAreas();
    EXPECT_EQ(ws.TotalShapeArea, 32767);
    ws = Workspace{};
    AddRegion(std::vector<Ring>(32768, ClockwiseSquare(0, 0, 1)));
    EXPECT_EQ(ErrorNumberOf(ComputeShapeAreas), Overflow);
}

TEST_F(Centroids, NeedAsManyPolygonsAsRegions) {
    ws.NumRegion = 2; // as after the open of a point shapefile
    EXPECT_EQ(ErrorNumberOf(ComputeShapeAreas), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf(ComputeCentroids), SubscriptOutOfRange);
    EXPECT_FALSE(ws.RegionCentroid.IsAllocated());
}

TEST_F(Centroids, OfNoRegionsAreNone) {
    Compute();
    EXPECT_EQ(ws.RegionCentroid.UpperBound(), 0);
    EXPECT_EQ(ws.TotalShapeArea, 0);
}

TEST_F(Centroids, StopAtCoordinatesTooLarge) {
    AddRegion({ClockwiseSquare(0, 0, 1e200)});
    EXPECT_EQ(ErrorNumberOf(ComputeShapeAreas), Overflow);
    EXPECT_EQ(ws.TotalShapeArea, 0);
    EXPECT_EQ(ws.ShpPartArea(1, 1), PartAreaRecord{});
}
