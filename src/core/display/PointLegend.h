#pragma once

#include "core/display/PlotSurface.h"
#include "core/retrospective/RetroVariable.h"

namespace vastrel {

/// Prints the legend of the retrospective point map: circles in the colours of the six classes, in sizes of
/// the legend's own, with the range texts beside them for a score variable. An M variable has no texts here,
/// a picture stands for them.
void PrintPointLegend(PlotSurface& surface, RetroVariable variable);

/// Prints the fixed legend of the cusum classes: circle and box as on the point map, and the label.
void PrintCusumLegend(PlotSurface& surface);

} // namespace vastrel
