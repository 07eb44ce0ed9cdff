#pragma once

#include <functional>

namespace vastrel {

/// Runs a procedure on one input, with a fresh store, a platform that is silent, and a machine that tells of
/// little memory. Run-time errors are how an input is refused; anything else that leaves the procedure is a
/// finding, and so is a number of the store that is not finite.
void RunOnInput(const std::function<void()>& procedure);

} // namespace vastrel
