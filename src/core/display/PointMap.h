#pragma once

#include "core/display/PointSymbol.h"
#include "core/display/PointView.h"
#include "core/retrospective/RetroVariable.h"
#include "core/workspace/Sorting.h"

#include <functional>
#include <optional>

namespace vastrel {

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

    /// Erases and draws the points 1..n with the symbols of their cusums in a period, against the threshold
    /// h, and their boxes. PlottedPoints stay as they are. Run-time error 9 where the points or the table are
    /// fewer.
    void DrawCusumPoints(PlotSurface& surface, const Table<double>& cusum, std::ptrdiff_t n,
                         std::ptrdiff_t period, double h);

    /// Draws the yellow boxes of a selection on top of what stands there: pairs (Region, flag), of which a
    /// flag of exactly 1 is selected. Leaves a transparent white fill behind.
    void DrawSelectedPoints(PlotSurface& surface, const Array1<KeyedValue>& selection);

    /// Draws the green mark round a point (from 1) on top of what stands there. The line width stays 4 for
    /// the moment: every drawing sets it back.
    void MarkPoint(PlotSurface& surface, std::ptrdiff_t position);

    PointView View;
    Array1<double> X, Y;

private:
    using SymbolOf = std::function<std::optional<PointSymbol>(std::ptrdiff_t)>;
    using Drawn = std::function<void(std::ptrdiff_t i, const PointPosition& at)>;

    bool BeginDrawing(PlotSurface& surface);
    void DrawPoints(PlotSurface& surface, std::ptrdiff_t n, const SymbolOf& symbolOf, const Drawn& drawn);
    void DrawAndStorePoints(PlotSurface& surface, const SymbolOf& symbolOf);
};

/// The small box of a point: pen and fill as they stand.
void DrawPointBox(PlotSurface& surface, const PointPosition& at, double halfWidth);

} // namespace vastrel
