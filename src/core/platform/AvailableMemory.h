#pragma once

#include <cstdint>

namespace vastrel {

/// The memory that this process can still take, in bytes, as the system tells it; a large number where it
/// does not tell.
std::uint64_t AvailableMemory();

} // namespace vastrel
