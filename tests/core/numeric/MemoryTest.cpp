#include "core/numeric/Memory.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace vastrel;

TEST(Memory, IsNoMoreThanTheMachineHas) {
    const auto all = static_cast<std::uint64_t>(sysconf(_SC_PHYS_PAGES)) *
                     static_cast<std::uint64_t>(sysconf(_SC_PAGE_SIZE));
    EXPECT_GT(AvailableMemory(), 0U);
    EXPECT_LE(AvailableMemory(), all);
}

TEST(Memory, LetsARunStartThatFits) {
    EXPECT_EQ(ErrorNumberOf([] { RequireMemory(0, "test"); }), 0);
    EXPECT_EQ(ErrorNumberOf([] { RequireMemory(1024, "test"); }), 0);
}

TEST(Memory, StopsARunThatDoesNotFitAndNamesItsSize) {
    constexpr double petabyte = 1024.0 * 1024 * 1024 * 1024 * 1024;
    EXPECT_EQ(ErrorNumberOf([] { RequireMemory(petabyte, "test"); }), OutOfMemory);
    const std::string text = ErrorDescriptionOf([] { RequireMemory(petabyte, "test"); });
    EXPECT_EQ(text.rfind("Out of memory\nThe run needs 1073741824 MB, and the machine has ", 0), 0U) << text;
}
