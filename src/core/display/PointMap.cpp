#include "core/display/PointMap.h"

#include "core/display/CusumClasses.h"
#include "core/display/LegendClasses.h"
#include "core/text/Numbers.h"

#include <array>

namespace vastrel {

std::optional<PointSymbol> StatisticSymbol(int statisticClass) {
    static constexpr std::array<double, 6> radii = {6, 4, 2, 2, 4, 6};
    if (statisticClass == 0) return {};
    const auto i = static_cast<size_t>(statisticClass - 1);
    return PointSymbol{radii.at(i), ClassColours.at(i)};
}

void PointMap::TakeCentroids(std::ptrdiff_t n) {
    X.ReDim(n);
    Y.ReDim(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        X(i) = ws.RegionCentroid(i).X;
        Y(i) = ws.RegionCentroid(i).Y;
    }
}

bool PointMap::BeginDrawing(PlotSurface& surface) {
    ComputePointView(View, surface.Size(), X, Y);
    surface.Erase();
    surface.SetLineWidth(1);
    surface.SetPen(Colours::Black);
    return View.IsValid();
}

void DrawPointBox(PlotSurface& surface, const PointPosition& at, double halfWidth) {
    const std::int32_t left = RoundToInt32(at.X - halfWidth), right = RoundToInt32(at.X + halfWidth);
    const std::int32_t top = RoundToInt32(at.Y - halfWidth), bottom = RoundToInt32(at.Y + halfWidth);
    surface.Polygon({{left, top}, {right, top}, {right, bottom}, {left, bottom}});
}

void PointMap::DrawPoints(PlotSurface& surface, std::ptrdiff_t n, const SymbolOf& symbolOf,
                          const Drawn& drawn) {
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        const PointPosition at = PointToPlot(View, X(i), Y(i));
        drawn(i, at);
        if (const auto symbol = symbolOf(i)) surface.Circle(at.X, at.Y, symbol->Radius, symbol->Outline);
        surface.SetLineWidth(1);
        DrawPointBox(surface, at, 1);
    }
}

void PointMap::DrawAndStorePoints(PlotSurface& surface, const SymbolOf& symbolOf) {
    if (BeginDrawing(surface)) {
        ws.PlottedPoints.ReDim(X.UpperBound());
        DrawPoints(surface, X.UpperBound(), symbolOf, [](std::ptrdiff_t i, const PointPosition& at) {
            ws.PlottedPoints(i) = {RoundToInt32(at.X), at.Y};
        });
    }
    surface.Refresh();
}

void PointMap::DrawPlainPoints(PlotSurface& surface) {
    DrawAndStorePoints(surface, [](std::ptrdiff_t) { return std::nullopt; });
}

void PointMap::DrawStatisticPointsFrom(PlotSurface& surface, const Array1<double>& values) {
    DrawAndStorePoints(surface,
                       [&values](std::ptrdiff_t i) { return StatisticSymbol(PointClassOf(values(i))); });
}

void PointMap::DrawCusumPoints(PlotSurface& surface, const Table<double>& cusum, std::ptrdiff_t n,
                               std::ptrdiff_t period, double h) {
    if (BeginDrawing(surface))
        DrawPoints(
            surface, n, [&](std::ptrdiff_t i) { return CusumSymbol(CusumClassOf(cusum(i, period), h)); },
            [](std::ptrdiff_t, const PointPosition&) {});
    surface.Refresh();
}

void PointMap::DrawSelectedPoints(PlotSurface& surface, const Array1<KeyedValue>& selection) {
    ComputePointView(View, surface.Size(), X, Y);
    surface.SetLineWidth(1);
    surface.SetPen(Colours::Black);
    for (std::ptrdiff_t i = 1; View.IsValid() && i <= selection.UpperBound(); ++i) {
        if (selection(i).Second == 1) {
            surface.SetFillStyle(FillStyle::Solid);
            surface.SetFill(Colours::Yellow);
            surface.SetPen(Colours::Black);
            DrawPointBox(surface, PointToPlot(View, X(i), Y(i)), 2);
        }
        surface.SetFillStyle(FillStyle::Transparent);
        surface.SetFill(Colours::White);
        surface.SetPen(Colours::Black);
    }
    surface.Refresh();
}

void PointMap::MarkPoint(PlotSurface& surface, std::ptrdiff_t position) {
    if (!View.IsValid()) return;
    surface.SetLineWidth(4);
    const PointPosition at = PointToPlot(View, X(position), Y(position));
    surface.Circle(at.X, at.Y, 10, Colours::Green);
    surface.Refresh();
}

} // namespace vastrel
