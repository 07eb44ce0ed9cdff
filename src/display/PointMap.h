#pragma once

#include "display/PointView.h"
#include "retrospective/RetroVariable.h"

#include <functional>
#include <optional>

namespace vastrel {

/// The circle of a class.
struct PointSymbol {
    double Radius = 0;
    Colour Outline = 0;
};

/// The symbol of a statistic class 1 to 6; none for 0.
std::optional<PointSymbol> StatisticSymbol(int statisticClass);

/// The point map of one screen: its points, its view, and its drawings. Every drawing computes the view
/// first and draws nothing where that has no area.
class PointMap {
public:
    explicit PointMap(double zoom) { View.PointZoom = zoom; }

    /// Takes the points 1..n of the store.
    void TakeCentroids(std::ptrdiff_t n);

    /// Erases and draws every point as a small box; stores PlottedPoints.
    void DrawPlainPoints(PlotSurface& surface);

    /// Erases and draws every point with the symbol of its class and its box; stores PlottedPoints. Run-time
    /// error 9 where `values` has fewer elements than there are points.
    void DrawStatisticPointsFrom(PlotSurface& surface, const Array1<double>& values);

    /// Draws the green mark round a point (from 1) on top of what stands there. The line width stays 4 for
    /// the moment: every drawing sets it back.
    void MarkPoint(PlotSurface& surface, std::ptrdiff_t position);

    PointView View;
    Array1<double> X, Y;

private:
    using SymbolOf = std::function<std::optional<PointSymbol>(std::ptrdiff_t)>;

    bool BeginDrawing(PlotSurface& surface);
    void DrawPoints(PlotSurface& surface, const SymbolOf& symbolOf);
};

/// The local values that a single run maps: MapDrawScore or MapDrawM.
const Array1<double>& MapDrawValues(RetroVariable variable);

/// The local values that a single run's legend is built from, and sorts: MapClassScore or MapClassM.
Array1<double>& MapClassValues(RetroVariable variable);

/// The zoom of the retrospective point map at the start and at full extent.
constexpr double RetroPointZoom = 1.2;

} // namespace vastrel
