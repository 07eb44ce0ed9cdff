#include "core/prospective/HValueArithmetic.h"

#include "core/numeric/Elementary.h"
#include "core/numeric/Power.h"
#include "core/text/Numbers.h"

namespace vastrel {

double UnroundedThreshold(double k, double arl0, double series) {
    const double a = 2 * Power(k, 2) * arl0 * series;
    return ((a + 2) / (a + 1)) * Logarithm(a + 1) / (2 * k);
}

double IndependentSeries(double n, double sigma) {
    constexpr double sigmaForZero = 0.0000000001;
    if (sigma == 0) sigma = sigmaForZero;
    return n / (sigma * 0.81 + 1.0);
}

} // namespace vastrel
