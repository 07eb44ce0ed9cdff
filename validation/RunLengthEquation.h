#pragma once

namespace vastrel::validation {

/// The average number of periods until a one-sided cusum of independent standard normal scores with reference
/// value k first passes h, from the start value (0 .. h), where the scores have this mean.
///
/// It solves L(u) = 1 + L(0) F(k - u) + integral from 0 to h of L(x) f(x + k - u) dx at the nodes of a
/// Gauss-Legendre rule, F and f being the distribution and the density of a score. E. S. Page, Continuous
/// inspection schemes, Biometrika 41 (1954); D. A. Evans, W. L. Goel, S. M. Wu, Determination of A.R.L. and a
/// contour nomogram for CUSUM charts to control normal mean, Technometrics 13 (1971).
double AverageRunLength(double k, double h, double start = 0, double mean = 0);

/// The h at which the average run length from 0 is `wanted`.
double ThresholdFor(double k, double wanted);

} // namespace vastrel::validation
