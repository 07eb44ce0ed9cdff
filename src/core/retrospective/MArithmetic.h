#pragma once

#include <optional>

namespace vastrel {

// The arithmetic behind MStatistic.h; faults show in the floating-point flags.

/// M* before its rounding; no value where the argument of the logarithm or of the root is not above 0.
std::optional<double> CriticalM(double sigma, double alpha, double regions);

} // namespace vastrel
