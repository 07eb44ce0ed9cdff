#include "core/numeric/CheckedDiv.h"

#include "core/platform/RunTimeError.h"

namespace vastrel {

double CheckedDiv(double a, double b, const char* source) {
    if (b == 0) RaiseCustomary(DivisionByZero, source);
    return a / b;
}

} // namespace vastrel
