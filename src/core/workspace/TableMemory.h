#pragma once

#include <cstddef>

namespace vastrel {

/// Memory for arrays and tables, aligned to a cache line, which is also the widest vector register.
void* TakeTableMemory(std::size_t bytes);
void GiveTableMemory(void* memory, std::size_t bytes);

/// While one lives, large blocks that are given back are kept for those that follow, of about the same size,
/// since a block from the system costs a fault for every page. What is kept and in use together stays within
/// the most that was in use at once. For a run on one dataset; scopes may lie within each other.
class TableMemoryScope {
public:
    TableMemoryScope();
    ~TableMemoryScope();
    TableMemoryScope(const TableMemoryScope&) = delete;
    TableMemoryScope& operator=(const TableMemoryScope&) = delete;
};

} // namespace vastrel
