#pragma once

namespace vastrel {

/// An area in square plot units as square map units; scales in plot units per map unit. A division by zero
/// for a scale of 0.
double PlotAreaToMap(double plotArea, double scaleX, double scaleY);

} // namespace vastrel
