#include "core/numeric/Approximations.h"

#include "core/numeric/Elementary.h"
#include "core/numeric/Power.h"
#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace vastrel {

namespace {

constexpr double Step = 0.0001;
constexpr double TwoPi = 6.2831853; // as short as this
constexpr double FlatFrom = 39;     // the density is exactly 0 in 64 bits above this
constexpr double ShortThird = 0.33333;

double Density(double x) {
    const double c = std::sqrt(TwoPi);
    const double s = 1;
    return Exponential((-x * x) / ((s * s) * 2)) * (1 / (c * s));
}

/// x after all steps that the integration takes where the density is 0 and adds nothing. Within one binade
/// every subtraction of the step takes off the same multiple of the last bit, so that they can be taken
/// together without a difference in any bit.
double SkipFlatTail(double x) {
    while (x > FlatFrom) {
        const double taken = x - (x - Step);
        if (taken == 0)
            RaiseCustomary(Overflow, "NormalPValue", "z is so far out that it cannot be integrated from.");
        const double floor = std::max(FlatFrom, std::ldexp(1, std::ilogb(x)));
        const double steps = std::floor((x - floor) / taken);
        x = steps > 1 ? x - (steps - 1) * taken : x - Step;
    }
    return x;
}

} // namespace

double NormalTail(double z) {
    if (z > 4.5) return 0;
    double x = z;
    if (!(x > 0)) x = -x;
    double area = 0;
    x = SkipFlatTail(x);
    double upper = Density(x);
    while (x > 0) {
        x = x - Step;
        const double lower = Density(x);
        area = area + Step * ((lower + upper) / 2);
        if (0.5 - area < 0.00001) break;
        upper = lower; // the next interval begins where this one ends
    }
    return area > 0.5 ? 0 : 0.5 - area;
}

double ChiSquareToNormal(double chi, double df) {
    double a = Power(chi / df, ShortThird);
    a = a - 1;
    a = a + 2 / (df * 9);
    return std::sqrt((df * 9) / 2) * a;
}

double ChiSquareQuantile(double alpha, double df) {
    double z = 0;
    if (alpha == 0.01)
        z = 2.57;
    else if (alpha == 0.05)
        z = 1.96;
    else
        return 0;
    const double q = 2 / (df * 9);
    double v = std::sqrt(q) * z;
    v = v + 1;
    v = v - q;
    return Power(v, 1 / ShortThird) * df;
}

} // namespace vastrel
