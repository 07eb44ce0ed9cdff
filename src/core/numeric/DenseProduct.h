#pragma once

#include <cstddef>
#include <vector>

namespace vastrel {

/// A dense matrix in somebody else's memory: `Rows` rows of `Columns` doubles, `Stride` doubles apart.
struct MatrixView {
    const double* Data = nullptr;
    std::ptrdiff_t Rows = 0;
    std::ptrdiff_t Columns = 0;
    std::ptrdiff_t Stride = 0;
};

/// The rows or columns of a matrix in some order, each once, counted from 0.
using VectorOrder = std::vector<std::ptrdiff_t>;

// Every element is summed from 0 with k ascending, a multiplication and an addition each, none fused, so that
// the results equal those of the plain loops in every bit, the signs of zeros included, on every instruction
// set and for any number of threads. Faults show in the floating-point flags of the caller, the same as those
// of the plain loops. (Where an operand is NaN the payload of the result is open.)
//
// Where an order is given, of as many as there are, rows and columns of the result stand in it: element
// (x, y) is that of row order[x] and column order[y]. With an order in which neighbours of a map stand close
// together, what distant Regions cannot add to a sum is left out a whole tile at a time.

/// result(i, j) = sum over k of b(k, j) * a(i, k), for a of n x p and b of p x m; `result` holds n x m and
/// overlaps neither.
void DenseProduct(MatrixView a, MatrixView b, double* result, std::ptrdiff_t resultStride);
void DenseProduct(MatrixView a, MatrixView b, const VectorOrder& order, double* result,
                  std::ptrdiff_t resultStride);

/// The diagonal of that product alone, min(n, m) elements for a of n x p and b of p x m.
void DenseProductDiagonal(MatrixView a, MatrixView b, double* diagonal);

/// result(i, j) = sum over k of w(k, i) * w(k, j), for w of n x m; `result` holds m x m and does not overlap
/// w.
void DenseGram(MatrixView w, double* result, std::ptrdiff_t resultStride);
void DenseGram(MatrixView w, const VectorOrder& order, double* result, std::ptrdiff_t resultStride);

} // namespace vastrel
