#pragma once

#include "support/BatchProgram.h"

namespace vastrel {

/// Runs a shell script in which "$BATCH" is the built batch program.
BatchResult RunShell(const std::string& script);

} // namespace vastrel
