#pragma once

namespace vastrel {

/// a / b where the fault must stop at the expression itself: run-time error 11 for b = 0, also of 0 / 0.
double CheckedDiv(double a, double b, const char* source);

} // namespace vastrel
