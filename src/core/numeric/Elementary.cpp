#include "core/numeric/Elementary.h"

#include "core/numeric/ElementarySupport.h"
#include "core/numeric/ExponentialStep.h"

namespace vastrel {

double Exponential(double x) {
    if (std::isnan(x)) return x + x;
    if (x == Infinity) return x;
    if (x > 709.8) return Overflown();
    if (x < -745.2) return 0;
    const double magnitude = std::fabs(x);
    if (magnitude < 0x1p-60) return 1;
    if (magnitude <= 708) {
        const auto quick = QuickExponential<16>(VectorOf<16>::Doubles{x, x});
        if (quick.Doubt[0] == 0) return quick.Value[0];
    }
    return Nearest([parts = PartsOf(magnitude), isNegative = x < 0]<int Words> {
        return WideExponential(WideOf<Words>(parts), isNegative);
    });
}

double Logarithm(double x) {
    if (std::isnan(x)) return x + x;
    if (x == 0) return -DividedByZero();
    if (x < 0) return Invalid();
    if (x == Infinity) return x;
    if (x == 1) return 0;
    const double magnitude = Nearest([parts = PartsOf(x)]<int Words> { return WideLogarithm<Words>(parts); });
    return x < 1 ? -magnitude : magnitude;
}

double ArcTangent(double x) {
    if (std::isnan(x)) return x + x;
    const double magnitude = std::fabs(x);
    if (magnitude < 0x1p-28) return x; // the next term of the series is below half a unit of the last place
    const double angle =
        magnitude >= 0x1p60
            ? Nearest([]<int Words> { return WideNumber<Words>{tables::ArcTangents[32].CutTo<Words>() * 2}; })
            : Nearest([parts = PartsOf(magnitude)]<int Words> { return WideArcTangent<Words>(parts); });
    return std::copysign(angle, x);
}

} // namespace vastrel
