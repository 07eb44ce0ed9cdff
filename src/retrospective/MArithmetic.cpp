#include "retrospective/MArithmetic.h"

#include "retrospective/Kernel.h"

#include <cmath>

namespace vastrel {

double PearsonScore(double observed, double expected) {
    return (observed - expected) / std::sqrt(expected);
}

double FreemanTukeyScore(double observed, double expected) {
    return std::sqrt(observed) + std::sqrt(observed + 1) - std::sqrt(expected * 4 + 1);
}

double RossiScore(double observed, double expected) {
    const double a = std::sqrt(observed * expected);
    const double b = std::sqrt(expected);
    return ((observed - expected * 3) + (a + a)) / (b + b);
}

double WeightedSum(const double* weights, const Array1<double>& scores, std::ptrdiff_t n) {
    if (n > 0) (void)scores(n); // as many as there are Regions
    const double* score = scores.data();
    double sum = 0;
    for (std::ptrdiff_t j = 1; j <= n; ++j)
        sum = sum + score[j] * weights[j];
    return sum;
}

std::optional<double> CriticalM(double sigma, double alpha, double regions) {
    const double x = ((sigma * sigma * 0.81 + 1) * (alpha * 4)) / regions;
    if (!(x > 0)) return {};
    // It is the root of the constant that multiplies the logarithm, not the constant: a firm requirement.
    const double y = (-std::sqrt(NineDigitPi)) * std::log(x);
    if (!(y > 0)) return {};
    return std::sqrt(y);
}

} // namespace vastrel
