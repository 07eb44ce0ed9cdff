#pragma once

namespace vastrel {

// The arithmetic behind PValues.h; faults show in the floating-point flags.

double NormalTail(double z);
double ChiSquareToNormal(double chi, double df);
double ChiSquareQuantile(double alpha, double df);

} // namespace vastrel
