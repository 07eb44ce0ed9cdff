#pragma once

#include <cstdint>
#include <functional>

namespace vastrel {

/// The memory that this process can still take, in bytes, as the system tells it; a large number where it
/// does not tell.
std::uint64_t AvailableMemory();

/// Makes AvailableMemory tell what `tell` does, in place of the system; an empty one gives it back its word.
void ForceAvailableMemory(std::function<std::uint64_t()> tell);

} // namespace vastrel
