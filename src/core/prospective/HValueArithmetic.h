#pragma once

namespace vastrel {

// The arithmetic behind HValueCalculator.h; faults show in the floating-point flags.

/// g = ((A + 2) / (A + 1)) * ln(A + 1) / (2 k) with A = 2 k^2 ARL0 m, for m independent series: the threshold
/// before its last two steps. P. Rogerson, Formulas for the design of CUSUM quality control charts,
/// Communications in Statistics - Theory and Methods 35 (2006).
double UnroundedThreshold(double k, double arl0, double series);

/// The number of independent series among n Regions smoothed with sigma: n / (1 + 0.81 sigma), linear in
/// sigma. A sigma of exactly 0 counts as 1e-10.
double IndependentSeries(double n, double sigma);

} // namespace vastrel
