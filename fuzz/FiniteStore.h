#pragma once

namespace vastrel {

/// Ends the process, as a finding, where a coordinate, a count or a result of the store is not finite.
void RequireFiniteStore();

} // namespace vastrel
