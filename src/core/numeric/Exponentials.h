#pragma once

#include <cstddef>

namespace vastrel {

/// result[i] = Exponential(x[i]) for n numbers, in the vectors of the chosen instruction set: the same bits
/// and the same faults. `result` may be `x`.
void Exponentials(const double* x, std::ptrdiff_t n, double* result);

} // namespace vastrel
