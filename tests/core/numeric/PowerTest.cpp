#include "core/numeric/Power.h"

#include "core/numeric/RunProcedure.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(Power, IsTheGeneralPowerFunction) {
    EXPECT_EQ(Power(3, 2), 9);
    EXPECT_EQ(Power(2.25, 0.5), 1.5);
    EXPECT_EQ(Power(0, 0), 1);
    EXPECT_EQ(ErrorNumberOf([] { RunFunction("Power", [] { return Power(-2, 1.5); }); }),
              InvalidProcedureCall);
    EXPECT_EQ(ErrorNumberOf([] { RunFunction("Power", [] { return Power(1e200, 2); }); }), Overflow);
}
