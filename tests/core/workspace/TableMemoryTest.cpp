#include "core/workspace/TableMemory.h"

#include "core/workspace/Arrays.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

using namespace vastrel;

namespace {

constexpr std::ptrdiff_t Large = 1000; // a table of 8 MB

} // namespace

TEST(TableMemory, IsAlignedToACacheLine) {
    for (const std::ptrdiff_t n : {1, 10, 1000})
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(Table<double>(n, n).row(0)) % 64, 0U);
}

TEST(TableMemory, ABlockIsTakenAgainWithinAScope) {
    const TableMemoryScope scope;
    Table<double> first(Large, Large);
    first(3, 4) = 5;
    const double* at = first.row(0);
    first.Clear();
    const std::vector<double> other(Large * Large);   // takes what went back to the heap
    const Table<double> second(Large - 1, Large - 1); // a little smaller
    EXPECT_EQ(second.row(0), at);
    EXPECT_EQ(second(3, 4), 0);
    const Table<double> third(Large, Large);
    EXPECT_NE(third.row(0), at);
}

TEST(TableMemory, TablesOutliveAScope) {
    Table<double> before(Large, Large), within;
    {
        const TableMemoryScope scope;
        before.Clear();
        within.ReDim(Large, Large);
        within(Large, Large) = 7;
    }
    EXPECT_EQ(within(Large, Large), 7);
    within.Clear();
    const TableMemoryScope next;
    within.ReDim(Large, Large);
    EXPECT_EQ(within(Large, Large), 0);
}
