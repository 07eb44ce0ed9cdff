#include "core/numeric/Memory.h"

#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"

namespace vastrel {

void RequireMemory(double bytes, const std::string& source) {
    if (bytes <= static_cast<double>(AvailableMemory())) return;
    RaiseCustomary(OutOfMemory, source,
                   "The run needs " + Num(bytes / 1024 / 1024, "0") + " MB, and the machine has " +
                       Num(static_cast<double>(AvailableMemory()) / 1024 / 1024, "0") + " MB left.");
}

} // namespace vastrel
