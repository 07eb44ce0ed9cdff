#include "core/numeric/CountDeviations.h"

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

} // namespace vastrel
