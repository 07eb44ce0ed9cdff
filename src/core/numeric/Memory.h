#pragma once

#include <cstdint>
#include <string>

namespace vastrel {

/// The memory that this process can still take, in bytes, as the system tells it; a large number where it
/// does not tell.
std::uint64_t AvailableMemory();

/// Stops a run that would need more memory than there is, before it starts: run-time error 7, whose
/// description names the size.
void RequireMemory(double bytes, const std::string& source);

} // namespace vastrel
