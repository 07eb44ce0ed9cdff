#include "core/display/PolygonFit.h"

#include "core/numeric/CheckedDiv.h"
#include "core/text/Numbers.h"

namespace vastrel {

void FitPolygonView(PolygonMapView& view, const SurfaceSize& surface, const MapExtent& extent,
                    SettledPan settledPan) {
    const char* const source = "ComputeView";
    const double scaleWidth = surface.ScaleWidth;
    const double scaleHeight = surface.ScaleHeight;
    view.ViewAspect = CheckedDiv(extent.Height, extent.Width, source);
    const float ratio = surface.Height / surface.Width; // a 32-bit float
    view.ViewFactor = ratio * extent.Zoom;
    if (extent.Height < extent.Width) {
        view.DrawnWidth = scaleWidth * view.ViewFactor;
        view.DrawnHeight = view.ViewFactor * (view.ViewAspect * scaleWidth);
    } else {
        view.DrawnHeight = scaleHeight * view.ViewFactor;
        view.DrawnWidth = view.ViewFactor * (scaleHeight / view.ViewAspect);
    }
    view.MapCentreX = scaleWidth / 2 - view.DrawnWidth / 2;
    view.MapCentreY = scaleHeight / 2 - view.DrawnHeight / 2;
    if (settledPan == SettledPan::Included) {
        view.MapCentreX = view.PanSettledX + view.MapCentreX;
        view.MapCentreY = view.PanSettledY + view.MapCentreY;
    }
    view.MapScaleX = CheckedDiv(view.DrawnWidth, extent.Width, source);
    view.MapScaleY = CheckedDiv(view.DrawnHeight, extent.Height, source);
    view.MapShiftX = -extent.XMin;
    view.MapShiftY = -(extent.YMax - extent.Height);
}

UnroundedPosition UnroundedPositionOf(const PolygonMapView& view, double x, double y) {
    const double up = view.MapScaleY * view.MapShiftY + view.MapScaleY * y;
    return {view.MapCentreX + view.PanDX + (view.MapScaleX * view.MapShiftX + view.MapScaleX * x),
            view.DrawnHeight - up + view.PanDY + view.MapCentreY};
}

PlotPoint RoundedPosition(const PolygonMapView& view, double x, double y) {
    const std::int32_t up = RoundToInt32(view.MapScaleY * view.MapShiftY + view.MapScaleY * y);
    return {RoundToInt32(UnroundedPositionOf(view, x, y).X),
            RoundToInt32(view.DrawnHeight - up + view.PanDY + view.MapCentreY)};
}

MousePosition MapPositionOf(const PolygonMapView& view, double plotX, double plotY, LastDrag lastDrag) {
    const bool drag = lastDrag == LastDrag::Included;
    const double panX = drag ? view.PanDX : 0;
    const double panY = drag ? view.PanDY : 0;
    const double right = plotX - view.MapScaleX * view.MapShiftX - view.MapCentreX - panX;
    const double up = view.DrawnHeight + view.MapCentreY + panY - plotY - view.MapScaleY * view.MapShiftY;
    return {static_cast<float>(CheckedDiv(right, view.MapScaleX, "PlotToWorld")),
            static_cast<float>(CheckedDiv(up, view.MapScaleY, "PlotToWorld"))};
}

} // namespace vastrel
