#include "retrospective/DenseKernel.h"

#include <algorithm>

namespace vastrel {

namespace {

constexpr std::ptrdiff_t RowBlock = 8;
constexpr std::ptrdiff_t ColumnBlock = 512;

/// Adds the products of one k to a strip of one row: the innermost loop of both kernels.
void AddScaledRow(double* target, const double* row, double factor, std::ptrdiff_t count) {
    for (std::ptrdiff_t j = 0; j < count; ++j)
        target[j] = target[j] + row[j] * factor;
}

/// For every element of an n x m result, sums factor(i, k) * row(k)(j) over k ascending, one block of the
/// result after the other so that the block stays in the cache.
template <typename Factor>
void SumOverK(std::ptrdiff_t n, std::ptrdiff_t m, std::ptrdiff_t depth, const double* rows,
              std::ptrdiff_t rowStride, Factor factor, double* result, std::ptrdiff_t resultStride) {
    for (std::ptrdiff_t i0 = 0; i0 < n; i0 += RowBlock) {
        const std::ptrdiff_t i1 = std::min(n, i0 + RowBlock);
        for (std::ptrdiff_t j0 = 0; j0 < m; j0 += ColumnBlock) {
            const std::ptrdiff_t count = std::min(ColumnBlock, m - j0);
            for (std::ptrdiff_t i = i0; i < i1; ++i)
                std::fill_n(result + i * resultStride + j0, count, 0.0);
            for (std::ptrdiff_t k = 0; k < depth; ++k)
                for (std::ptrdiff_t i = i0; i < i1; ++i)
                    AddScaledRow(result + i * resultStride + j0, rows + k * rowStride + j0, factor(i, k),
                                 count);
        }
    }
}

} // namespace

void DenseProduct(MatrixView a, MatrixView b, double* result, std::ptrdiff_t resultStride) {
    const auto factor = [a](std::ptrdiff_t i, std::ptrdiff_t k) { return a.Data[i * a.Stride + k]; };
    SumOverK(a.Rows, b.Columns, b.Rows, b.Data, b.Stride, factor, result, resultStride);
}

void DenseGram(MatrixView w, double* result, std::ptrdiff_t resultStride) {
    const auto factor = [w](std::ptrdiff_t i, std::ptrdiff_t k) { return w.Data[k * w.Stride + i]; };
    SumOverK(w.Columns, w.Columns, w.Rows, w.Data, w.Stride, factor, result, resultStride);
}

} // namespace vastrel
