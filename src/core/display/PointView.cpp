#include "core/display/PointView.h"

#include "core/display/PointFit.h"
#include "core/numeric/RunProcedure.h"
#include "core/text/Numbers.h"
#include "core/workspace/Sorting.h"

namespace vastrel {

void ComputePointView(PointView& view, const SurfaceSize& surface, const Array1<double>& x,
                      const Array1<double>& y) {
    const PointView before = view;
    RunProcedure(
        "ComputePointView", [&] { FitPointView(view, surface, x, y); },
        [&] {
            view = before;
            view.ViewWidth = view.ViewHeight = 0;
        });
    if (!view.IsValid()) return;
    ws.ScaleX = view.ScaleX;
    ws.ScaleY = view.ScaleY;
}

PointPosition PointToPlot(const PointView& view, double x, double y) {
    const auto at = PlotPositionOf(view, x, y);
    return {at.X, RoundToInt32(at.Y)};
}

void PlotAllPoints(PointView& view, const SurfaceSize& surface, const Array1<double>& x,
                   const Array1<double>& y) {
    ComputePointView(view, surface, x, y);
    if (!view.IsValid()) return;
    ws.PlottedPoints.ReDim(x.UpperBound());
    for (std::ptrdiff_t i = 1; i <= x.UpperBound(); ++i) {
        const auto at = PointToPlot(view, x(i), y(i));
        ws.PlottedPoints(i) = {RoundToInt32(at.X), at.Y};
    }
}

std::ptrdiff_t NearestPoint(const PointView& view, double plotX, double plotY, const Array1<double>& x,
                            const Array1<double>& y) {
    Array1<KeyedValue> distances;
    RunProcedure(
        "NearestPoint", [&] { distances = DistancesTo(view, plotX, plotY, x, y); }, [] {});
    SortBySecondField(distances);
    return static_cast<std::ptrdiff_t>(distances(1).First);
}

} // namespace vastrel
