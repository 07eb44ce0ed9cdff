#pragma once

#include "core/platform/AvailableMemory.h"

#include <string>

namespace vastrel {

/// Stops a run that would need more memory than there is, before it starts: run-time error 7, whose
/// description names the size.
void RequireMemory(double bytes, const std::string& source);

} // namespace vastrel
