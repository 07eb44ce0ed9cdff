#pragma once

namespace vastrel {

/// The general power function, also for exponents 2 and 0.5: kept out of the compiler's sight, which would
/// put a product or a square root in its place.
double Power(double base, double exponent);

} // namespace vastrel
