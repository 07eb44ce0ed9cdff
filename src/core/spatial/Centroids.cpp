#include "core/spatial/Centroids.h"

#include "core/numeric/CheckedDiv.h"
#include "core/numeric/Memory.h"
#include "core/numeric/RunProcedure.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/RingArithmetic.h"
#include "core/text/Numbers.h"
#include "core/workspace/Sorting.h"

#include <cmath>
#include <functional>

namespace vastrel {

namespace {

void TakePolygon(std::ptrdiff_t i) {
    ws.CurPolygon = ws.ShpPolygons.Item(i);
}

/// Copies the vertices of part j of the current polygon; their counter has 16 bits.
void TakePart(int j) {
    ws.CurPart = std::shared_ptr<CPart>(ws.CurPolygon, &ws.CurPolygon->Item(j));
    ws.ShpPartPoints.ReDim(Counter16(ws.CurPart->Count()));
    std::ptrdiff_t k = 0;
    for (const CPoint& point : *ws.CurPart)
        ws.ShpPartPoints(++k) = {point.X, point.Y};
}

/// Runs what is to be done with one part; an error in it names Region and part.
void AtPart(const char* name, std::ptrdiff_t i, int j, const std::function<void()>& compute) {
    try {
        RunProcedure(name, compute, [] {});
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Number(), error.Source(),
                           error.Description() + "\nPart " + std::to_string(j) + " of Region " +
                               std::to_string(i) + ".");
    }
}

int LargestPartCount() {
    Array1<std::int16_t> counts(ws.NumRegion);
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
        counts(i) = static_cast<std::int16_t>(Counter16(ws.ShpPolygons.Item(i)->Count()));
    SortIntegers(counts);
    return counts(ws.NumRegion);
}

void DimensionPartAreas() {
    const int parts = LargestPartCount();
    RequireMemory((ws.NumRegion + 1.0) * (parts + 1.0) * sizeof(PartAreaRecord), "ComputeShapeAreas");
    ws.ShpPartArea.ReDim(ws.NumRegion, parts);
}

void SumAreas() {
    ws.TotalShapeArea = 0;
    ws.ShpPartArea.Clear();
    DimensionPartAreas();
    for (std::int32_t i = 1; i <= ws.NumRegion; ++i) {
        TakePolygon(i);
        double regionSum = 0;
        for (int j = 1; j <= ws.CurPolygon->Count(); ++j) {
            AtPart("ComputeShapeAreas", i, j, [&] {
                TakePart(j);
                const double area = SignedRingArea(ws.ShpPartPoints);
                ws.ShpPartArea(i, j).PartArea = std::fabs(area);
                ws.ShpPartArea(i, j).RegionIndex = i;
                regionSum += area;
            });
        }
        ws.ShpPartArea(i, 1).RegionArea = std::fabs(regionSum); // error 9 where no Region has any part
        ws.TotalShapeArea += std::fabs(regionSum);
    }
}

/// Adds part j of the current polygon, which is Region i, to its centre.
void AddPart(std::ptrdiff_t i, int j, PointXY& centre) {
    TakePart(j);
    const double area = ws.ShpPartArea(i, j).PartArea;
    const PointXY part = RingCentroid(ws.ShpPartPoints, area);
    if (ws.CurPolygon->Count() == 1) {
        centre = part;
        return;
    }
    const double regionArea = ws.ShpPartArea(i, 1).RegionArea;
    centre.X += CheckedDiv(part.X * area, regionArea, "ComputeCentroids");
    centre.Y += CheckedDiv(part.Y * area, regionArea, "ComputeCentroids");
}

PointXY RegionCentre(std::ptrdiff_t i) {
    PointXY centre;
    for (int j = 1; j <= ws.CurPolygon->Count(); ++j)
        AtPart("ComputeCentroids", i, j, [&] { AddPart(i, j, centre); });
    return centre;
}

void FillCentroids() {
    ws.RegionCentroid.ReDim(ws.NumRegion);
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
        TakePolygon(i);
        const PointXY centre = RegionCentre(i);
        ws.RegionCentroid(i) = {std::to_string(i), centre.X, centre.Y};
    }
}

/// Neither positions nor an area, of this dataset or of the one before, for a run to go on with.
void DropPlaces() {
    ws.RegionCentroid.Clear();
    ws.TotalShapeArea = 0;
}

} // namespace

void ComputeShapeAreas() {
    RunProcedure("ComputeShapeAreas", SumAreas, [] {
        ws.ShpPartArea.SetZero();
        DropPlaces();
    });
}

void ComputeCentroids() {
    RunProcedure("ComputeCentroids", FillCentroids, DropPlaces);
}

} // namespace vastrel
