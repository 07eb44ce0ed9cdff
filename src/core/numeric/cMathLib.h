#pragma once

#include "core/numeric/DenseProduct.h"
#include "core/workspace/Arrays.h"

namespace vastrel {

/// Dense matrix operations on arrays of 64-bit floats with a zero base; a one-dimensional array of n elements
/// is a matrix of n rows and 1 column. An instance holds no state.
///
/// Run-time errors: 5005 (Add), 5007 (Subtract), 5009 (Multiply) where the dimensions do not fit, 5022 for an
/// array that was never dimensioned and for any other failure (more rows or columns than a 16-bit counter
/// holds, memory, a floating-point fault).
class cMathLib {
public:
    /// An argument of an operation: a table, or an array as one column.
    class Argument {
    public:
        Argument(const Table<double>& table);
        Argument(const Array1<double>& column);
        MatrixView View;
    };

    Table<double> Add(const Argument& Mat_1, const Argument& Mat_2) const;
    Table<double> Subtract(const Argument& Mat_1, const Argument& Mat_2) const;

    /// Element (i, j) is the sum over k, ascending, of Mat_2(k, j) * Mat_1(i, k).
    Table<double> Multiply(const Argument& Mat_1, const Argument& Mat_2) const;
};

/// What Multiply gives, and its errors, for square matrices whose rows and columns are worked out in an order
/// of neighbours; where it is not an order of as many as there are, in their own.
Table<double> ProductOfNeighbours(const cMathLib::Argument& Mat_1, const cMathLib::Argument& Mat_2,
                                  const VectorOrder& order);

/// The diagonal of Multiply as a column, for where nothing reads the rest; its errors are those of Multiply.
Table<double> ProductDiagonal(const cMathLib::Argument& Mat_1, const cMathLib::Argument& Mat_2);

} // namespace vastrel
