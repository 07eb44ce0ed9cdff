#pragma once

namespace vastrel {

// Each returns the double nearest to the exact value, ties to even, whatever the machine, its C library and
// the compiler are. Faults show in the floating-point flags: overflow, an invalid operation and a division by
// zero where they are named; a result that is too small for a normal number is none.

/// e^x. An overflow above 709.78; 0 below -745.13.
double Exponential(double x);

/// The natural logarithm. A division by zero of either zero (minus infinity), an invalid operation of a
/// negative number (NaN).
double Logarithm(double x);

/// The angle in radians, from minus to plus a right angle. No fault.
double ArcTangent(double x);

} // namespace vastrel
