#pragma once

#include "core/display/PointSymbol.h"

namespace vastrel {

/// The five classes of a cusum by its share of the threshold h, counted from 0. A value equal to a limit
/// falls in the lower class, so that a cusum equal to h is no signal; the labels say "<" all the same.
constexpr int CusumClassCount = 5;
constexpr int SignalClass = 4;

/// The class 0 to 4 of a cusum. With h = 0 every positive cusum is a signal.
int CusumClassOf(double cusum, double h);

/// The fixed label of a class on the legends: "< 25%" to "SIGNAL".
const char* CusumClassLabel(int cusumClass);

/// The circle of a class on a point map; its colour is that of the class everywhere.
PointSymbol CusumSymbol(int cusumClass);

/// The colour of a Region of the polygon map in a period, from CusumValue and HValue of the store.
Colour CusumColor(std::ptrdiff_t region, std::ptrdiff_t period);

} // namespace vastrel
