#include "core/numeric/CheckedDiv.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(CheckedDiv, StopsAtTheExpression) {
    EXPECT_EQ(CheckedDiv(3, 2, "test"), 1.5);
    EXPECT_EQ(CheckedDiv(0, 2, "test"), 0);
    EXPECT_EQ(ErrorNumberOf([] { CheckedDiv(1, 0, "test"); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { CheckedDiv(0, -0.0, "test"); }), DivisionByZero);
}
