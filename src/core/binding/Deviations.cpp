#include "core/binding/Deviations.h"

#include "core/numeric/CheckedDiv.h"
#include "core/numeric/CountDeviations.h"
#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"

#include <cmath>

namespace vastrel {

namespace {

constexpr const char* Source = "Deviations";

} // namespace

Deviations DeviationsFromExpected(double observed, double expected) {
    if (expected == 0) RaiseCustomary(DivisionByZero, Source);
    return {observed - expected, PearsonScore(observed, expected), FreemanTukeyScore(observed, expected),
            RossiScore(observed, expected)};
}

Deviations DeviationsFromRate(double observed, double rate, double population) {
    const double o = observed, r = rate, p = population;
    const double root = std::sqrt(r * p);
    Deviations result;
    result.Raw = o - r * p;
    result.Pearson = CheckedDiv(o - r * p, root, Source);
    result.FreemanTukey = std::sqrt(o) + std::sqrt(o + 1) - std::sqrt((p * 4) * r + 1);
    result.Rossi = CheckedDiv((o - (p * 3) * r) + 2 * std::sqrt((p * o) * r), 2 * root, Source);
    return result;
}

double ExpectedCases(double totalCases, double population, double totalPopulation) {
    return (totalCases * population) / totalPopulation;
}

double ShareOf(double count, double total) {
    return count / total;
}

double AddedTo(double sum, double count) {
    const double result = sum + count;
    if (!std::isfinite(result)) RaiseCustomary(Overflow, Source);
    return result;
}

} // namespace vastrel
