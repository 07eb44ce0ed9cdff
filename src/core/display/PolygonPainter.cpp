#include "core/display/PolygonPainter.h"

#include "core/display/CusumClasses.h"
#include "core/display/LegendClasses.h"
#include "core/display/PolygonFit.h"
#include "core/display/PolygonView.h"
#include "core/spatial/ShapeWalk.h"

#include <functional>

namespace vastrel {

namespace {

bool HasShapefile() {
    return !ws.ShapeFilePath.empty();
}

/// The fill of the Region of a record, counted from 0.
using FillOf = std::function<Colour(std::int32_t record)>;

/// Walks the file and paints each ring; without fills the fill stays as it was set.
void PaintRings(PlotSurface& picSHP, const FillOf& fillOf = {}) {
    std::vector<PlotPoint> corners;
    WalkRings(ws.ShapeFilePath, [&](std::int32_t record, const std::vector<PointXY>& ring) {
        corners.clear();
        for (const PointXY& vertex : ring)
            corners.push_back(WorldToPlot(vertex.X, vertex.Y));
        if (fillOf) picSHP.SetFill(fillOf(record));
        picSHP.Polygon(corners);
    });
}

void DrawOutlines(PlotSurface& picSHP, void (*computeView)(PlotSurface&)) {
    if (!HasShapefile()) return;
    picSHP.Erase();
    computeView(picSHP);
    PaintRings(picSHP);
    picSHP.Refresh();
}

void DrawClasses(PlotSurface& picSHP, const FillOf& fillOf) {
    if (!HasShapefile()) return;
    picSHP.Erase();
    ComputeView(picSHP);
    picSHP.SetFillStyle(FillStyle::Solid);
    PaintRings(picSHP, fillOf);
    picSHP.Refresh();
}

FillOf StatisticFill(const Array1<double>& values) {
    return [&values](std::int32_t record) { return ClassColor(values(record + 1)); };
}

} // namespace

void DrawPlainMap(PlotSurface& picSHP) {
    DrawOutlines(picSHP, ComputeView);
}

void DrawPlainMapNoPan(PlotSurface& picSHP) {
    DrawOutlines(picSHP, ComputeViewNoPan);
}

void DrawStatisticMap(PlotSurface& picSHP, const Array1<double>& values) {
    DrawClasses(picSHP, StatisticFill(values));
}

void DrawCusumMap(PlotSurface& picSHP, std::ptrdiff_t period) {
    DrawClasses(picSHP, [period](std::int32_t record) {
        return ws.bCusumRun ? CusumColor(record + 1, period) : Colours::White;
    });
}

void DrawHighlight(PlotSurface& picSHP, std::ptrdiff_t region) {
    if (!HasShapefile()) return;
    ComputeView(picSHP);
    picSHP.SetPen(Colours::Black);
    picSHP.SetFillStyle(FillStyle::Solid);
    // A range leaves no legend until one of its steps is picked: there are no classes to paint then.
    if (ws.bRetroMapping && ws.LegendLimits.IsAllocated())
        PaintRings(picSHP, StatisticFill(ws.DisplayDrawValues));
    PaintRings(picSHP,
               [region](std::int32_t record) { return record == region ? Colours::Yellow : Colours::White; });
    picSHP.Refresh();
}

void DrawCentroidPoints(PlotSurface& picSHP) {
    picSHP.SetLineWidth(3);
    for (std::int32_t i = 1; i <= ws.NumRegion; ++i) {
        const RegionPoint& centroid = ws.RegionCentroid(i);
        const auto at = UnroundedPositionOf(ws.PolygonView, centroid.X, centroid.Y);
        picSHP.Point(at.X, at.Y, Colours::Red);
    }
    picSHP.Refresh();
}

} // namespace vastrel
