#include "core/numeric/ArithmeticScope.h"

#include "core/platform/RunTimeError.h"

namespace vastrel {

ArithmeticScope::ArithmeticScope() : outer_() {
    std::feholdexcept(&outer_);
}

ArithmeticScope::~ArithmeticScope() {
    std::fesetenv(&outer_);
}

void ArithmeticScope::Check(const char* source) const {
    const int faults = std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID);
    if (faults & FE_DIVBYZERO) RaiseCustomary(DivisionByZero, source);
    if (faults & FE_OVERFLOW) RaiseCustomary(Overflow, source);
    if (faults & FE_INVALID) RaiseCustomary(InvalidProcedureCall, source);
}

} // namespace vastrel
