#include "core/export/ExportArithmetic.h"

#include "core/numeric/CountDeviations.h"
#include "core/platform/RunTimeError.h"

namespace vastrel {

double ExportScore(ExportOption option, double observed, double expected) {
    if (option == ExportOption::Standard) return FreemanTukeyScore(observed, expected);
    if (expected == 0) RaiseCustomary(DivisionByZero, "ComputeExportZ");
    return option == ExportOption::Poisson ? PearsonScore(observed, expected)
                                           : RossiScore(observed, expected);
}

} // namespace vastrel
