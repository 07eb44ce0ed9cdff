#pragma once

#include <cstddef>

namespace vastrel {

/// A dense matrix in somebody else's memory: `Rows` rows of `Columns` doubles, `Stride` doubles apart.
struct MatrixView {
    const double* Data = nullptr;
    std::ptrdiff_t Rows = 0;
    std::ptrdiff_t Columns = 0;
    std::ptrdiff_t Stride = 0;
};

/// result(i, j) = sum over k of b(k, j) * a(i, k), for a of n x p and b of p x m; `result` holds n x m.
///
/// Every element is summed with k ascending, a multiplication and an addition each, none fused, so that the
/// result equals that of the plain loops in every bit. Faults show in the floating-point flags.
void DenseProduct(MatrixView a, MatrixView b, double* result, std::ptrdiff_t resultStride);

/// result(i, j) = sum over k of w(k, i) * w(k, j), for w of n x m; `result` holds m x m. The order of the sum
/// is that of DenseProduct.
void DenseGram(MatrixView w, double* result, std::ptrdiff_t resultStride);

} // namespace vastrel
