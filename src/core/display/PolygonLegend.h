#pragma once

#include "core/display/PlotSurface.h"
#include "core/retrospective/RetroVariable.h"

namespace vastrel {

/// Prints the legend in force beside the polygon map: six boxes in the class colours, with the range texts
/// for a score variable and the fixed texts for an M variable. What stood on the form is left standing.
void PrintPolygonLegend(PlotSurface& form, RetroVariable variable);

} // namespace vastrel
