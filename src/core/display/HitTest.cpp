#include "core/display/HitTest.h"

#include "core/display/HitArithmetic.h"
#include "core/numeric/RunProcedure.h"
#include "core/spatial/CPolygon.h"

namespace vastrel {

namespace {

// Vertices and click are enlarged alike; both stay 64-bit floats.
constexpr double Enlarged = 100;

/// Whether the part holds the click. Its last vertex repeats the first and is left out.
bool PartHolds(const CPart& part, const PointXY& click) {
    ws.ShpPartPoints.ReDim(part.Count());
    std::ptrdiff_t k = 0;
    for (const CPoint& vertex : part)
        ws.ShpPartPoints(++k) = {vertex.X * Enlarged, vertex.Y * Enlarged};
    return InsidePart(click.X, click.Y, part.Count() - 1, ws.ShpPartPoints);
}

void Search(const MousePosition& at) {
    const PointXY click{at.X * Enlarged, at.Y * Enlarged};
    ws.SelectedRegion = 0;
    std::int32_t k = 0;
    for (const auto& polygon : ws.ShpPolygons) {
        for (const CPart& part : *polygon)
            if (PartHolds(part, click)) {
                ws.SelectedRegion = k;
                if (polygon->Count() == 1) return;
            }
        ++k;
    }
}

} // namespace

RegionHit HitTestRegion(double plotX, double plotY) {
    MousePosition at;
    RunProcedure(
        "HitTestRegion",
        [&] {
            at = PlotToWorld(plotX, plotY);
            Search(at);
        },
        [] { ws.SelectedRegion = 0; });
    return {ws.SelectedRegion, at};
}

} // namespace vastrel
