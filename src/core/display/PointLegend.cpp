#include "core/display/PointLegend.h"

#include "core/display/CusumClasses.h"
#include "core/display/LegendClasses.h"
#include "core/display/PointMap.h"

#include <array>

namespace vastrel {

void PrintPointLegend(PlotSurface& surface, RetroVariable variable) {
    constexpr std::array<double, 6> radii = {100, 60, 20, 20, 60, 100}; // layout units, as all below
    surface.Erase();
    double y = 0;
    for (int i = 0; i <= LegendLimitCount; ++i) {
        const double top = y + 100;
        y = top + 200;
        const auto colour = static_cast<Colour>(ws.LegendColors(i + 1));
        surface.SetFill(colour);
        surface.Circle(200 / LayoutUnit, (y + 150) / LayoutUnit,
                       radii.at(static_cast<size_t>(i)) / LayoutUnit, colour);
        if (MapsScore(variable)) surface.Text(400 / LayoutUnit, (y + 50) / LayoutUnit, RangeText(i));
    }
    surface.Refresh();
}

void PrintCusumLegend(PlotSurface& surface) {
    constexpr int rowHeight = 20;
    surface.Erase();
    surface.SetLineWidth(1);
    for (int i = 0; i < CusumClassCount; ++i) {
        const PointPosition at{12, 12 + rowHeight * i};
        const PointSymbol symbol = CusumSymbol(i);
        surface.Circle(at.X, at.Y, symbol.Radius, symbol.Outline);
        DrawPointBox(surface, at, 1);
        surface.Text(26, at.Y - 6.0, CusumClassLabel(i));
    }
    surface.Refresh();
}

} // namespace vastrel
