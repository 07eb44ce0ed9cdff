#pragma once

#include <functional>

namespace vastrel {

/// Runs the handler of an event that comes from the event loop. What leaves it is shown as a run-time error
/// report, and the loop goes on with the state and the pointer as they stood: exceptions never cross the
/// toolkit. After the report of an error that ends the process the process ends, with a failure status.
///
/// An event that code fires (a Click from a selection, a Load, an Unload) opens no boundary: its fault stops
/// the whole command.
void InBoundary(const std::function<void()>& handler);

} // namespace vastrel
