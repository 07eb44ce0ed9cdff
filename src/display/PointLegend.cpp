#include "display/PointLegend.h"

#include "display/LegendClasses.h"

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

} // namespace vastrel
