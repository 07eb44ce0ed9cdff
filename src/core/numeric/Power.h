#pragma once

namespace vastrel {

/// The general power function of the C standard, rounded as in Elementary.h: with exponent 2 it is the
/// product, with 0.5 the square root (but 0 of -0 and infinity of minus infinity). An overflow where the
/// result is too large, an invalid operation of a negative base with an exponent that is no whole number, a
/// division by zero of base 0 with an exponent below 0.
double Power(double base, double exponent);

} // namespace vastrel
