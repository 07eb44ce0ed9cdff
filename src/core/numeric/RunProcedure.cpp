// Stands apart from ArithmeticScope.cpp and from all arithmetic, so that no compiler can move a division of
// a procedure past the test of the flags.
#include "core/numeric/RunProcedure.h"

#include "core/numeric/ArithmeticScope.h"

namespace vastrel {

void RunProcedure(const char* name, const std::function<void()>& compute,
                  const std::function<void()>& clearOutputs) {
    try {
        ArithmeticScope scope;
        compute();
        scope.Check(name);
    } catch (...) {
        clearOutputs();
        throw;
    }
}

double RunFunction(const char* name, const std::function<double()>& compute) {
    ArithmeticScope scope;
    const double result = compute();
    scope.Check(name);
    return result;
}

} // namespace vastrel
