#include "core/display/PolygonView.h"

#include "core/display/PolygonFit.h"
#include "core/numeric/RunProcedure.h"
#include "core/text/Numbers.h"

namespace vastrel {

namespace {

void ClearView() {
    const MapPan pan = static_cast<const MapPan&>(ws.PolygonView);
    ws.PolygonView = {};
    static_cast<MapPan&>(ws.PolygonView) = pan;
}

void SetDrawingState(PlotSurface& picSHP) {
    picSHP.SetLineWidth(1);
    picSHP.SetFillStyle(FillStyle::Transparent);
    picSHP.SetFill(Colours::White);
}

void Compute(PlotSurface& picSHP, SettledPan settledPan) {
    const MapExtent extent{ws.ExtentXMin, ws.ExtentYMax, ws.ExtentWidth, ws.ExtentHeight, ws.MapZoom};
    RunProcedure(
        "ComputeView", [&] { FitPolygonView(ws.PolygonView, picSHP.Size(), extent, settledPan); }, ClearView);
    SetDrawingState(picSHP);
}

MousePosition Inverse(double plotX, double plotY, LastDrag lastDrag) {
    MousePosition at;
    RunProcedure(
        "PlotToWorld", [&] { at = MapPositionOf(ws.PolygonView, plotX, plotY, lastDrag); }, [] {});
    return at;
}

} // namespace

void ComputeView(PlotSurface& picSHP) {
    Compute(picSHP, SettledPan::Included);
}

void ComputeViewNoPan(PlotSurface& picSHP) {
    Compute(picSHP, SettledPan::LeftOut);
}

PlotPoint WorldToPlot(double x, double y) {
    return RoundedPosition(ws.PolygonView, x, y);
}

MousePosition PlotToWorld(double plotX, double plotY) {
    return Inverse(plotX, plotY, LastDrag::Included);
}

MousePosition StatusPlotToWorld(double plotX, double plotY) {
    return Inverse(plotX, plotY, LastDrag::LeftOut);
}

std::string StatusText(double plotX, double plotY) {
    const MousePosition at = StatusPlotToWorld(plotX, plotY);
    return "(X: " + ShortestFloatText(at.X) + ", Y: " + ShortestFloatText(at.Y) + ")";
}

} // namespace vastrel
