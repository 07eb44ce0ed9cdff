#pragma once

namespace vastrel {

// How far an observed count lies from the expected one. Faults show in the floating-point flags.

/// (o - e) / sqrt(e).
double PearsonScore(double observed, double expected);

/// sqrt(o) + sqrt(o + 1) - sqrt(4 e + 1).
double FreemanTukeyScore(double observed, double expected);

/// (o - 3 e + 2 sqrt(o e)) / (2 sqrt(e)).
double RossiScore(double observed, double expected);

} // namespace vastrel
