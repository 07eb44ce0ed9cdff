#pragma once

#include "core/prospective/CusumRules.h"
#include "core/prospective/CusumTables.h"

namespace vastrel {

// The arithmetic of the prospective test, on tables alone. A run calls weights, filter, recursion, in this
// order. After the arithmetic faults (run-time errors 5, 6 and 11) and after an index error (9) the outputs
// stand at zero.

/// What the prospective test puts in the place of sigma 0: every weight between two Regions vanishes, and
/// the filtered z-scores equal the given ones.
constexpr double CusumSigmaForZero = 1e-9;

/// The row-normalised Gaussian kernel (1..n, 1..n) of the Regions at x, y (1..n at least, else run-time error
/// 9): GaussianWeights. `area` is the study area in square map units, `sigma` is above 0.
/// Run-time error 7 where the table would not fit in memory, 11 for an area of 0 with two Regions.
Table<double> BuildCusumWeights(const Array1<double>& x, const Array1<double>& y, std::ptrdiff_t n,
                                double area, double sigma);

/// F(i, t) = sum over j of W(i, j) * Z(j, t), summed from zero with j ascending; for n Regions and `periods`
/// periods. Run-time error 9 where a table is smaller.
Table<double> FilterZScores(const Table<double>& weights, const Table<double>& z, std::ptrdiff_t n,
                            std::ptrdiff_t periods);

/// The cusums of n Regions over the periods 1..`periods` with reference value k, from the start value s0 (0,
/// or half the threshold). The outputs are dimensioned for them. A signal is no matter of the engine: it is a
/// cusum strictly above the threshold, and nothing is reset.
void RunCusum(const Table<double>& filtered, std::ptrdiff_t n, std::ptrdiff_t periods, double k, double s0,
              const Array1<std::string>& labels, const CusumOutputs& outputs);

/// A saved cusum table to continue from. A table without a column starts every Region at 0.
struct SavedCusum {
    const Table<double>& Cusum;
    std::ptrdiff_t Rows = 0;
    std::ptrdiff_t Periods = 0;
};

/// The same from the last column of a saved table. The outputs are dimensioned for the new periods alone, or
/// for the saved and the new ones where the rules keep the saved periods; these are taken over as they stand,
/// negative values included. Run-time error 9 where the rows do not fit.
void ContinueCusum(const CusumRules& rules, const Table<double>& filtered, std::ptrdiff_t n,
                   std::ptrdiff_t periods, double k, const SavedCusum& saved,
                   const Array1<std::string>& labels, const CusumOutputs& outputs);

/// The largest value of each column 1..columns over the rows 1..rows, negative ones included; 0 without rows.
Array1<double> ColumnMaxima(const Table<double>& table, std::ptrdiff_t rows, std::ptrdiff_t columns);

} // namespace vastrel
