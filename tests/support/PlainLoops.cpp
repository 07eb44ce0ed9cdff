#include "support/PlainLoops.h"

namespace vastrel {

void PlainProduct(MatrixView a, MatrixView b, double* result, std::ptrdiff_t resultStride) {
    for (std::ptrdiff_t i = 0; i < a.Rows; ++i)
        for (std::ptrdiff_t j = 0; j < b.Columns; ++j) {
            double s = 0;
            for (std::ptrdiff_t k = 0; k < a.Columns; ++k)
                s = s + b.Data[k * b.Stride + j] * a.Data[i * a.Stride + k];
            result[i * resultStride + j] = s;
        }
}

void PlainGram(MatrixView w, double* result, std::ptrdiff_t resultStride) {
    for (std::ptrdiff_t i = 0; i < w.Columns; ++i)
        for (std::ptrdiff_t j = 0; j < w.Columns; ++j) {
            double s = 0;
            for (std::ptrdiff_t k = 0; k < w.Rows; ++k)
                s = s + w.Data[k * w.Stride + i] * w.Data[k * w.Stride + j];
            result[i * resultStride + j] = s;
        }
}

} // namespace vastrel
