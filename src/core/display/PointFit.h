#pragma once

#include "core/display/PointView.h"

namespace vastrel {

// The arithmetic behind PointView.h; faults show in the floating-point flags.

void FitPointView(PointView& view, const SurfaceSize& surface, const Array1<double>& x,
                  const Array1<double>& y);

UnroundedPosition PlotPositionOf(const PointView& view, double x, double y);

/// Pairs (Region, distance to the click) for all points.
Array1<struct KeyedValue> DistancesTo(const PointView& view, double plotX, double plotY,
                                      const Array1<double>& x, const Array1<double>& y);

} // namespace vastrel
