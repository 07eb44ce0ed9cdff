#include "core/platform/ErrorBoundary.h"

#include "core/platform/RunTimeError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <new>

using namespace vastrel;

TEST(ErrorBoundaryTest, ReportsWhatLeavesTheHandler) {
    ScriptedPlatform script;
    script.ExpectRunTimeError(62);
    InBoundary([] { RaiseCustomary(InputPastEndOfFile, "test"); });
    script.ExpectRunTimeError(7);
    InBoundary([] { throw std::bad_alloc(); });
    script.ExpectRunTimeError(5);
    InBoundary([] { throw std::logic_error("anything else"); });
    InBoundary([] {});
}

TEST(ErrorBoundaryTest, LeavesThePointerAsItStood) {
    ScriptedPlatform script;
    script.ExpectRunTimeError(11);
    InBoundary([] {
        platform().SetBusyPointer(true);
        RaiseCustomary(DivisionByZero, "test");
    });
    EXPECT_TRUE(script.BusyPointer());
}
