#pragma once

#include "workspace/Arrays.h"

#include <optional>

namespace vastrel {

// The arithmetic behind MStatistic.h; faults show in the floating-point flags.

double PearsonScore(double observed, double expected);
double FreemanTukeyScore(double observed, double expected);
double RossiScore(double observed, double expected);

/// The sum over j = 1..n of scores(j) * weights[j].
double WeightedSum(const double* weights, const Array1<double>& scores, std::ptrdiff_t n);

/// M* before its rounding; no value where the argument of the logarithm or of the root is not above 0.
std::optional<double> CriticalM(double sigma, double alpha, double regions);

} // namespace vastrel
