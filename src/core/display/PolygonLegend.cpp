#include "core/display/PolygonLegend.h"

#include "core/display/LegendClasses.h"

namespace vastrel {

void PrintPolygonLegend(PlotSurface& form, RetroVariable variable) {
    double y = 700; // layout units, as all below
    for (int i = 0; i <= LegendLimitCount; ++i) {
        const double top = y + 100;
        y = top + 200;
        const auto colour = static_cast<Colour>(ws.LegendColors(i + 1));
        form.SetFillStyle(FillStyle::Solid);
        form.SetFill(colour);
        form.Box(100 / LayoutUnit, top / LayoutUnit, 300 / LayoutUnit, y / LayoutUnit, colour);
        form.Text(400 / LayoutUnit, (y - 195) / LayoutUnit,
                  MapsScore(variable) ? RangeText(i) : MLegendText(i));
    }
    form.Refresh();
}

} // namespace vastrel
