#include "core/retrospective/PValues.h"

#include "core/numeric/Approximations.h"
#include "core/numeric/RunProcedure.h"

namespace vastrel {

double NormalPValue(double z) {
    return RunFunction("NormalPValue", [z] { return NormalTail(z); });
}

double ChiSquarePValue(double chi, double df) {
    const double z = RunFunction("ChiSquarePValue", [=] { return ChiSquareToNormal(chi, df); });
    return NormalPValue(z);
}

double ChiCritical(double alpha, double df) {
    return RunFunction("ChiCritical", [=] { return ChiSquareQuantile(alpha, df); });
}

} // namespace vastrel
