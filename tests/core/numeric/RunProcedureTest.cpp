#include "core/numeric/RunProcedure.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cfenv>

using namespace vastrel;

namespace {

volatile double zero = 0;
volatile double huge = 1e300;

} // namespace

TEST(RunProcedure, CarriesTheNameOfTheProcedure) {
    try {
        RunProcedure(
            "BuildMWeights", [] { zero = zero / zero; }, [] { zero = 0; });
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Source(), "BuildMWeights");
        EXPECT_EQ(error.Description(), "Invalid procedure call or argument");
    }
}

TEST(RunProcedure, ClearsTheOutputsAfterAFailureOnly) {
    int cleared = 0;
    RunProcedure(
        "test", [] { zero = zero + 0; }, [&] { ++cleared; });
    EXPECT_EQ(cleared, 0);
    EXPECT_EQ(ErrorNumberOf([&] {
                  RunProcedure(
                      "test", [] { huge = huge * huge; }, [&] { ++cleared; });
              }),
              Overflow);
    EXPECT_EQ(cleared, 1);
    huge = 1e300;
    EXPECT_EQ(ErrorNumberOf([&] {
                  RunProcedure(
                      "test", [] { RaiseCustomary(SubscriptOutOfRange, "inner"); }, [&] { ++cleared; });
              }),
              SubscriptOutOfRange);
    EXPECT_EQ(cleared, 2);
}

TEST(RunProcedure, ClosesItsScopeBeforeItClears) {
    int flags = -1;
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_EQ(ErrorNumberOf([&] {
                  RunProcedure(
                      "test", [] { huge = huge * huge; },
                      [&] { flags = std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID); });
              }),
              Overflow);
    huge = 1e300;
    EXPECT_EQ(flags, 0);
}
