#include "core/export/ExportArithmetic.h"

#include "core/numeric/CountDeviations.h"
#include "core/numeric/WeightedSum.h"
#include "core/platform/RunTimeError.h"

namespace vastrel {

double ExportScore(ExportOption option, double observed, double expected) {
    if (option == ExportOption::Standard) return FreemanTukeyScore(observed, expected);
    if (expected == 0) RaiseCustomary(DivisionByZero, "ComputeExportZ");
    return option == ExportOption::Poisson ? PearsonScore(observed, expected)
                                           : RossiScore(observed, expected);
}

void SmoothDeviations(const Table<double>& weights, const Array1<double>& deviation, std::ptrdiff_t n,
                      Array1<double>& z) {
    WeightedSums(weights, deviation, n, [&z](std::ptrdiff_t i, double sum) { z(i) = sum; });
}

} // namespace vastrel
