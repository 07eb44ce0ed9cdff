#include "core/display/SelectCircle.h"

#include "core/display/PointFit.h"
#include "core/numeric/CheckedDiv.h"
#include "core/numeric/RunProcedure.h"
#include "core/text/Numbers.h"

#include <cmath>

namespace vastrel {

namespace {

double Distance(double x1, double y1, double x2, double y2) {
    const double dx = x1 - x2;
    const double dy = y1 - y2;
    return std::sqrt(dx * dx + dy * dy);
}

double MapX(const PointView& view, double plotX) {
    return CheckedDiv(plotX - view.ScaleX * view.MapShiftX - view.MapCentreX - view.PanDX, view.ScaleX,
                      "SelectRadius");
}

} // namespace

SelectCircle CircleThrough(double centreX, double centreY, double plotX, double plotY) {
    return {centreX, centreY, Distance(centreX, centreY, plotX, plotY)};
}

double SelectRadius(const PointView& view, const SelectCircle& circle) {
    const double units = MapX(view, circle.CentreX + circle.Radius) - MapX(view, circle.CentreX);
    return ToNumber(Num(units, "0"));
}

Array1<KeyedValue> PointSelection(const PointView& view, const SelectCircle& circle, const Array1<double>& x,
                                  const Array1<double>& y, std::ptrdiff_t n) {
    Array1<KeyedValue> selection(n);
    RunProcedure(
        "PointSelection",
        [&] {
            for (std::ptrdiff_t i = 1; i <= n; ++i) {
                const auto at = PlotPositionOf(view, x(i), y(i));
                const bool outside = Distance(at.X, at.Y, circle.CentreX, circle.CentreY) > circle.Radius;
                selection(i) = {static_cast<double>(i), outside ? 0.0 : 1.0};
            }
        },
        [] {});
    return selection;
}

void DrawSelectCircle(PlotSurface& surface, const SelectCircle& circle) {
    surface.SetLineWidth(1);
    surface.Circle(circle.CentreX, circle.CentreY, circle.Radius, Colours::Green);
    surface.Refresh();
}

} // namespace vastrel
