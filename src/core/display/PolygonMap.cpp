#include "core/display/PolygonMap.h"

#include "core/display/LegendClasses.h"
#include "core/display/MapZoom.h"
#include "core/display/Pan.h"
#include "core/display/PolygonLegend.h"
#include "core/display/PolygonPainter.h"
#include "core/spatial/Centroids.h"

namespace vastrel {

namespace {

void ShowDisplayValues(const PolygonMap& map) {
    ShowRetroMap(map, ws.DisplayClassValues, ws.DisplayDrawValues);
}

void AddZoomSteps(int steps, double step) {
    for (int i = 0; i < steps; ++i)
        ws.MapZoom += step;
}

/// The steps of a press behind the first.
int FurtherSteps() {
    return (ws.bRetroMapping ? PolygonMapZoom.StepsOnStatisticMap : PolygonMapZoom.StepsOnOtherMaps) - 1;
}

} // namespace

void ShowRetroMap(const PolygonMap& map, Array1<double>& classValues, const Array1<double>& drawValues) {
    map.Form.Erase();
    BuildLegend(classValues, map.Variable);
    PrintPolygonLegend(map.Form, map.Variable);
    DrawStatisticMap(map.picSHP, drawValues);
}

void ClearPrint(const PolygonMap& map) {
    map.Form.Erase();
    map.Form.Refresh();
}

void RedrawByMode(const PolygonMap& map) {
    if (ws.bRetroMapping)
        ShowDisplayValues(map);
    else if (ws.bCusumMapping)
        DrawCusumMap(map.picSHP, ws.SelectedPeriod);
    else
        DrawPlainMap(map.picSHP);
}

bool HasRetroMap() {
    return ws.NumRegion > 0 && ws.DisplayClassValues.UpperBound() == ws.NumRegion &&
           ws.DisplayDrawValues.UpperBound() == ws.NumRegion;
}

void RedrawResized(const PolygonMap& map) {
    DrawPlainMap(map.picSHP);
    if (!ws.bRetroMapping || HasRetroMap()) RedrawByMode(map);
}

void RedrawActivated(const PolygonMap& map) {
    if (!ws.bRetroMapping) return;
    if (HasRetroMap())
        ShowDisplayValues(map);
    else
        DrawPlainMap(map.picSHP);
}

void ShowWholeExtent(const PolygonMap& map) {
    ClearPrint(map);
    ws.MapZoom = PolygonMapZoom.FullExtent;
    DropSettledPan(ws.PolygonView);
    RedrawByMode(map);
}

void ZoomIn(const PolygonMap& map) {
    ClearPrint(map);
    AddZoomSteps(1 + FurtherSteps(), PolygonMapZoom.Step);
    RedrawByMode(map);
}

void ZoomOut(const PolygonMap& map) {
    ClearPrint(map);
    AddZoomSteps(1, -PolygonMapZoom.Step);
    DrawPlainMapNoPan(map.picSHP);
    AddZoomSteps(FurtherSteps(), -PolygonMapZoom.Step);
    RedrawByMode(map);
}

void ShowCentroids(PlotSurface& picSHP) {
    DrawPlainMap(picSHP);
    ComputeCentroids();
    DrawCentroidPoints(picSHP);
}

} // namespace vastrel
