#pragma once

namespace vastrel {

/// The one-sided normal tail of |z|, by the trapezoid rule over the density from |z| down to 0 in steps of
/// 0.0001; its accuracy is part of the design. 0 for z above 4.5 (the signed z). A result below 0.00001 ends
/// the integration early. A z so far below 0 that a step of 0.0001 no longer moves it is run-time error 6.
double NormalPValue(double z);

/// The p-value of a chi-squared value with df degrees of freedom, by the cube-root transformation with the
/// short exponent 0.33333 and NormalPValue, which folds negative values: no lower-tail complement.
/// E. B. Wilson, M. M. Hilferty, The distribution of chi-square, PNAS 17 (1931).
/// Run-time errors: 11 for df = 0, 5 for chi / df below 0.
double ChiSquarePValue(double chi, double df);

/// The critical chi-squared value by the same transformation, for alpha exactly 0.05 (z 1.96) or 0.01
/// (z 2.57); 0 for any other alpha. Run-time errors: 11 for df = 0, 5 for a negative base of the power.
double ChiCritical(double alpha, double df);

} // namespace vastrel
