#pragma once

#include "core/workspace/Arrays.h"

namespace vastrel {

// The arithmetic behind ScoreStatistic.h; faults show in the floating-point flags.

struct LocalScore {
    double U = 0;
    double Z = 0;
};

/// U and Z[U] of one Region, from row `weights` (elements 1..n) of its weight matrix. The variance is b - c
/// with the plain, not squared, sum c; it is meant so.
LocalScore LocalScoreOf(const double* weights, const Array1<double>& observed, const Array1<double>& expected,
                        double total, std::ptrdiff_t n);

/// D - Q for shares p (1..n), with a zero base: D(i, i) = p(i + 1) and 0 elsewhere, Q(i, j) = p(i + 1) *
/// p(j + 1).
Table<double> ShareCovariance(const Array1<double>& shares, std::ptrdiff_t n);

/// The sum of the diagonal, and that of a matrix's first column, in order.
double Trace(const Table<double>& matrix);
double ColumnSum(const Table<double>& matrix);

struct Moments {
    double Mean = 0;
    double Variance = 0;
    double DegreesOfFreedom = 0;
};

/// From the traces of A, A^2 and A^3 and the total of cases.
Moments MomentsOf(double trace1, double trace2, double trace3, double total);

struct Approximation {
    double Z = 0;
    double Chi = 0;
};

/// The global U, scaled already, standardised, and mapped to a chi-squared value of the same degrees of
/// freedom.
Approximation Standardise(double scaledU, const Moments& moments);

double DividedBy(double a, double b);

} // namespace vastrel
