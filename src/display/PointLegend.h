#pragma once

#include "display/PlotSurface.h"
#include "retrospective/RetroVariable.h"

namespace vastrel {

/// Prints the legend of the retrospective point map, whose symbols are those of the map: the circles of the
/// six classes, with the range texts beside them for a score variable. An M variable has no texts here, a
/// picture stands for them.
void PrintPointLegend(PlotSurface& surface, RetroVariable variable);

} // namespace vastrel
