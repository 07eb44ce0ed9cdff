#pragma once

#include "core/workspace/Arrays.h"

namespace vastrel {

/// The sum over j = 1..n of scores(j) * weights[j].
double WeightedSum(const double* weights, const Array1<double>& scores, std::ptrdiff_t n);

} // namespace vastrel
