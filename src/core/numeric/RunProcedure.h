#pragma once

#include <functional>

namespace vastrel {

/// Runs the arithmetic of a procedure under an ArithmeticScope. On any failure `clearOutputs` puts the
/// procedure's outputs back to zero, so that no result of a fault stays in the store, and the error goes on.
void RunProcedure(const char* name, const std::function<void()>& compute,
                  const std::function<void()>& clearOutputs);

/// The same for a plain function that hands its result back.
double RunFunction(const char* name, const std::function<double()>& compute);

} // namespace vastrel
