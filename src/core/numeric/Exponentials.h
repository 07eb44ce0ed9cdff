#pragma once

#include <cstddef>

namespace vastrel {

/// result[i] = Exponential(x[i]) for n numbers, in the vectors of the chosen instruction set: the same bits
/// and the same faults. `result` may be `x`.
void Exponentials(const double* x, std::ptrdiff_t n, double* result);

/// The same for result[i] = peak * Exponential(-x[i] / spread), the values of a kernel of squared distances.
void GaussianValues(const double* x, std::ptrdiff_t n, double spread, double peak, double* result);

} // namespace vastrel
