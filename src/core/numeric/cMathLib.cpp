#include "core/numeric/cMathLib.h"

#include "core/numeric/NeighbourOrder.h"
#include "core/numeric/RunProcedure.h"
#include "core/text/Numbers.h"

#include <algorithm>

namespace vastrel {

namespace {

enum LibraryError : long {
    AddMismatch = 5005,
    SubtractMismatch = 5007,
    MultiplyMismatch = 5009,
    NullMatrix = 5022
};

void RequireFit(bool fits, LibraryError number, const char* text) {
    if (!fits) throw RunTimeError(number, "cMathLib", text);
}

/// Runs an operation: a mismatch keeps its number, any other failure becomes 5022.
template <typename Operation>
Table<double> Guarded(const MatrixView& a, const MatrixView& b, Operation operation) {
    const auto raiseNull = [] {
        throw RunTimeError(NullMatrix, "cMathLib",
                           "One or both of the matrices are null, this operation cannot be done !!");
    };
    if (a.Data == nullptr || b.Data == nullptr) raiseNull();
    Table<double> result;
    try {
        for (const std::ptrdiff_t size : {a.Rows, a.Columns, b.Rows, b.Columns})
            Counter16(static_cast<double>(size));
        RunProcedure(
            "matrix operation", [&] { result = operation(); }, [] {});
    } catch (const RunTimeError& error) {
        if (error.Source() == "cMathLib") throw;
        raiseNull();
    } catch (const std::bad_alloc&) {
        raiseNull();
    }
    return result;
}

template <typename Combine>
Table<double> Elementwise(const MatrixView& a, const MatrixView& b, LibraryError mismatch, Combine combine) {
    return Guarded(a, b, [&] {
        RequireFit(a.Rows == b.Rows && a.Columns == b.Columns, mismatch,
                   "Dimensions of the two matrices do not match !");
        Table<double> result(a.Rows - 1, a.Columns - 1);
        for (std::ptrdiff_t i = 0; i < a.Rows; ++i) {
            double* row = result.row(i);
            for (std::ptrdiff_t j = 0; j < a.Columns; ++j)
                row[j] = combine(a.Data[i * a.Stride + j], b.Data[i * b.Stride + j]);
        }
        return result;
    });
}

} // namespace

cMathLib::Argument::Argument(const Table<double>& table) {
    if (!table.IsAllocated()) return;
    View = {table.row(0), table.UpperBound1() + 1, table.UpperBound2() + 1, table.stride()};
}

cMathLib::Argument::Argument(const Array1<double>& column) {
    if (!column.IsAllocated()) return;
    View = {column.data(), column.UpperBound() + 1, 1, 1};
}

Table<double> cMathLib::Add(const Argument& Mat_1, const Argument& Mat_2) const {
    return Elementwise(Mat_1.View, Mat_2.View, AddMismatch, [](double a, double b) { return a + b; });
}

Table<double> cMathLib::Subtract(const Argument& Mat_1, const Argument& Mat_2) const {
    return Elementwise(Mat_1.View, Mat_2.View, SubtractMismatch, [](double a, double b) { return a - b; });
}

namespace {

/// A product of matrices that fit.
template <typename Compute>
Table<double> GuardedProduct(const MatrixView& a, const MatrixView& b, Compute compute) {
    return Guarded(a, b, [&] {
        RequireFit(a.Columns == b.Rows, MultiplyMismatch,
                   "Dimensions of the two matrices not suitable for multiplication !");
        return compute();
    });
}

} // namespace

Table<double> cMathLib::Multiply(const Argument& Mat_1, const Argument& Mat_2) const {
    const MatrixView &a = Mat_1.View, &b = Mat_2.View;
    return GuardedProduct(a, b, [&] {
        Table<double> result;
        result.ReDimUnset(a.Rows - 1, b.Columns - 1);
        DenseProduct(a, b, result.row(0), result.stride());
        return result;
    });
}

Table<double> ProductOfNeighbours(const cMathLib::Argument& Mat_1, const cMathLib::Argument& Mat_2,
                                  const VectorOrder& order) {
    const MatrixView &a = Mat_1.View, &b = Mat_2.View;
    const auto n = static_cast<std::ptrdiff_t>(order.size());
    if (a.Rows != n || b.Columns != n) return cMathLib().Multiply(Mat_1, Mat_2);
    return GuardedProduct(a, b, [&] {
        Table<double> ordered, result;
        for (auto* table : {&ordered, &result})
            table->ReDimUnset(n - 1, n - 1);
        DenseProduct(a, b, order, ordered.row(0), ordered.stride());
        PutBack(ordered, order, result);
        return result;
    });
}

Table<double> ProductDiagonal(const cMathLib::Argument& Mat_1, const cMathLib::Argument& Mat_2) {
    const MatrixView &a = Mat_1.View, &b = Mat_2.View;
    return GuardedProduct(a, b, [&] {
        Table<double> result(std::min(a.Rows, b.Columns) - 1, 0);
        DenseProductDiagonal(a, b, result.row(0));
        return result;
    });
}

} // namespace vastrel
