// A source file of its own: where a compiler sees the exponent it puts a product in the place of the power.
#include "core/numeric/Power.h"

#include <cmath>

namespace vastrel {

double Power(double base, double exponent) {
    return std::pow(base, exponent);
}

} // namespace vastrel
