#pragma once

namespace vastrel {

/// What a Region's count deviates from its expectation by. o is the observed count, e the expected one.
struct Deviations {
    double Raw = 0;          // o - e
    double Pearson = 0;      // (o - e) / sqrt(e)
    double FreemanTukey = 0; // sqrt(o) + sqrt(o + 1) - sqrt(4 e + 1)
    double Rossi = 0;        // (o - 3 e + 2 sqrt(o e)) / (2 sqrt(e))
};

// The plain arithmetic of the column binding; faults show in the floating-point flags. An expectation of 0 is
// run-time error 11, also with a count of 0.

/// M. F. Freeman and J. W. Tukey, Annals of Mathematical Statistics 21 (1950); G. Rossi, L. Lampugnani and
/// M. Marchi, Statistics in Medicine 18 (1999).
Deviations DeviationsFromExpected(double observed, double expected);

/// The same for e = r p, with the rate r = cases / population of all Regions and the Region's population p.
/// The product is taken anew in each term. ExpectedCases multiplies before it divides, so that the two forms
/// of e differ in their last bits; it is meant so.
Deviations DeviationsFromRate(double observed, double rate, double population);

/// (T p) / P for the case total T and the population total P.
double ExpectedCases(double totalCases, double population, double totalPopulation);

/// count / total.
double ShareOf(double count, double total);

/// sum + count; run-time error 6 for a sum that no double holds.
double AddedTo(double sum, double count);

} // namespace vastrel
