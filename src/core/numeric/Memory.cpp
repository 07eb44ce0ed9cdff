#include "core/numeric/Memory.h"

#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"

namespace vastrel {

void RequireMemory(double bytes, const std::string& source) {
    const auto available = static_cast<double>(AvailableMemory());
    if (bytes <= available) return;
    RaiseCustomary(OutOfMemory, source,
                   "The run needs " + Num(bytes / 1024 / 1024, "0") + " MB, and the machine has " +
                       Num(available / 1024 / 1024, "0") + " MB left.");
}

} // namespace vastrel
