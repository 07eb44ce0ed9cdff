#include "desktop/toolkit/OnEvent.h"

#include "core/platform/RunTimeError.h"
#include "support/ScriptedPlatform.h"

#include <QPushButton>

#include <gtest/gtest.h>

using namespace vastrel;

TEST(OnEventTest, KeepsExceptionsOutOfTheToolkit) {
    ScriptedPlatform script;
    QPushButton button;
    int after = 0;
    OnEvent(&button, &QPushButton::clicked, &button, [] { RaiseCustomary(SubscriptOutOfRange, "test"); });
    OnEvent(&button, &QPushButton::clicked, &button, [&after] { ++after; });
    script.ExpectRunTimeError(9);
    button.click();
    EXPECT_EQ(after, 1);
}
