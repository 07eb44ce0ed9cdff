#include "core/retrospective/MArithmetic.h"

#include "core/numeric/Elementary.h"
#include "core/numeric/GaussianKernel.h"

#include <cmath>

namespace vastrel {

std::optional<double> CriticalM(double sigma, double alpha, double regions) {
    const double x = ((sigma * sigma * 0.81 + 1) * (alpha * 4)) / regions;
    if (!(x > 0)) return {};
    // It is the root of the constant that multiplies the logarithm, not the constant: a firm requirement.
    const double y = (-std::sqrt(NineDigitPi)) * Logarithm(x);
    if (!(y > 0)) return {};
    return std::sqrt(y);
}

} // namespace vastrel
