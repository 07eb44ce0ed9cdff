#pragma once

#include "core/display/PlotSurface.h"
#include "core/retrospective/RetroVariable.h"

#include <array>
#include <string>
#include <vector>

namespace vastrel {

/// The number of limits between the six classes of a statistic.
constexpr int LegendLimitCount = 5;

/// The colours of the classes 1 to 6, from strongly below to strongly above, on every map and legend of
/// a statistic.
inline constexpr std::array<Colour, 6> ClassColours = {0xFF0000, 0xFF8080, 0xFFC0C0,
                                                       0xC0C0FF, 0x8080FF, 0x0000FF};

/// The local values that a single run maps: MapDrawScore or MapDrawM.
const Array1<double>& MapDrawValues(RetroVariable variable);

/// The local values that a single run's legend is built from, and sorts: MapClassScore or MapClassM.
Array1<double>& MapClassValues(RetroVariable variable);

/// Sorts `values` (1..NumRegion) ascending in place and takes the class limits of the statistic from them:
/// LegendLimits, LegendWork, LegendMin and LegendMax, then the colours. The score variables have terciles of
/// the values below 0 and of the others; the M variables have 0, half of M* and M* on both sides, and
/// MCritical may show its message.
void BuildLegend(Array1<double>& values, RetroVariable variable);

/// Fills LegendColors with them.
void SetLegendColors();

/// The class (1 to 6) of a statistic on a polygon map, by LegendLimits; a value equal to a limit belongs to
/// the class above. The last test is against element 6, which is 0; 0 where it fails.
int ClassOf(double value);

/// The colour of that class; black where there is none.
Colour ClassColor(double value);

/// The class on a point map, by LegendWork; the last test is against element 5. 0 where no class fits, and no
/// symbol is drawn.
int PointClassOf(double value);

/// The text of class i + 1 (i from 0 to 5) on a legend of a score variable, from the limits in force. The
/// differing blanks line the columns up against the minus sign of negative numbers.
std::string RangeText(int i);

/// The text of class i + 1 on the legend of an M variable.
std::string MLegendText(int i);

} // namespace vastrel
