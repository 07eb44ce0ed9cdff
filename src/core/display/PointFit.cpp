#include "core/display/PointFit.h"

#include "core/workspace/Sorting.h"

#include <algorithm>
#include <cmath>

namespace vastrel {

namespace {

void TakeDataRange(const Array1<double>& values, double& least, double& greatest) {
    const auto [low, high] = std::minmax_element(values.data() + 1, values.data() + values.UpperBound() + 1);
    least = *low;
    greatest = *high;
}

} // namespace

void FitPointView(PointView& view, const SurfaceSize& surface, const Array1<double>& x,
                  const Array1<double>& y) {
    view.ViewWidth = view.ViewHeight = 0;
    if (x.UpperBound() < 1) return;
    TakeDataRange(x, view.DataXMin, view.DataXMax);
    TakeDataRange(y, view.DataYMin, view.DataYMax);
    view.MarginX = (view.DataXMax - view.DataXMin) / 20;
    view.MarginY = (view.DataYMax - view.DataYMin) / 20;
    view.ViewXMin = view.DataXMin - view.MarginX;
    view.ViewYMax = view.MarginY + view.DataYMax;
    view.ViewWidth = std::fabs((view.MarginX + view.DataXMax) - (view.DataXMin - view.MarginX));
    view.ViewHeight = std::fabs((view.MarginY + view.DataYMax) - (view.DataYMin - view.MarginY));
    if (!view.IsValid()) return;

    const double scaleWidth = surface.ScaleWidth;
    const double scaleHeight = surface.ScaleHeight;
    view.ViewAspect = view.ViewHeight / view.ViewWidth;
    const float ratio = surface.Height / surface.Width; // a 32-bit float
    view.ViewFactor = ratio * view.PointZoom;
    if (view.ViewHeight < view.ViewWidth) {
        view.DrawnHeight = scaleWidth * view.ViewAspect * view.ViewFactor;
        view.DrawnWidth = scaleWidth * view.ViewFactor;
    } else {
        view.DrawnHeight = scaleHeight * view.ViewFactor;
        view.DrawnWidth = scaleHeight / view.ViewAspect * view.ViewFactor;
    }
    view.MapCentreX = scaleWidth / 2 - view.DrawnWidth / 2 + view.PanSettledX;
    view.MapCentreY = scaleHeight / 2 - view.DrawnHeight / 2 + view.PanSettledY;
    view.ScaleX = view.DrawnWidth / view.ViewWidth;
    view.ScaleY = view.DrawnHeight / view.ViewHeight;
    view.MapShiftX = -view.ViewXMin;
    view.MapShiftY = -(view.ViewYMax - view.ViewHeight);
}

UnroundedPosition PlotPositionOf(const PointView& view, double x, double y) {
    return {x * view.ScaleX + view.MapShiftX * view.ScaleX + view.MapCentreX + view.PanDX,
            -(y * view.ScaleY + view.MapShiftY * view.ScaleY) + view.DrawnHeight + view.MapCentreY +
                view.PanDY};
}

Array1<KeyedValue> DistancesTo(const PointView& view, double plotX, double plotY, const Array1<double>& x,
                               const Array1<double>& y) {
    Array1<KeyedValue> distances(x.UpperBound());
    for (std::ptrdiff_t i = 1; i <= x.UpperBound(); ++i) {
        const auto at = PlotPositionOf(view, x(i), y(i));
        const double dx = at.X - plotX;
        const double dy = at.Y - plotY;
        distances(i) = {static_cast<double>(i), std::sqrt(dx * dx + dy * dy)};
    }
    return distances;
}

} // namespace vastrel
