#pragma once

#include "core/numeric/DenseProduct.h"

namespace vastrel {

// The definitions of the dense product as plain loops: what it has to equal in every bit.

/// result(i, j) = sum over k of b(k, j) * a(i, k), k ascending.
void PlainProduct(MatrixView a, MatrixView b, double* result, std::ptrdiff_t resultStride);

/// result(i, j) = sum over k of w(k, i) * w(k, j), k ascending, for every i and j.
void PlainGram(MatrixView w, double* result, std::ptrdiff_t resultStride);

} // namespace vastrel
