#include "core/numeric/ArithmeticScope.h"

#include "core/numeric/RunProcedure.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

volatile double zero = 0;
volatile double huge = 1e300;

long FaultOf(const std::function<double()>& compute) {
    return ErrorNumberOf([&] { RunFunction("test", compute); });
}

int FlagsNow() {
    return std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID);
}

} // namespace

TEST(ArithmeticScope, TellsEachFaultApart) {
    EXPECT_EQ(FaultOf([] { return 1 / zero; }), DivisionByZero);
    EXPECT_EQ(FaultOf([] { return huge * huge; }), Overflow);
    EXPECT_EQ(FaultOf([] { return zero / zero; }), InvalidProcedureCall);
    EXPECT_EQ(FaultOf([] { return std::sqrt(zero - 1); }), InvalidProcedureCall);
    EXPECT_EQ(FaultOf([] { return huge / 3; }), 0);
}

TEST(ArithmeticScope, NamesTheFaultThatTheOthersFollowFrom) {
    EXPECT_EQ(FaultOf([] { return (1 / zero) * zero; }), DivisionByZero);
    EXPECT_EQ(FaultOf([] { return (huge * huge) * zero; }), Overflow);
    EXPECT_EQ(FaultOf([] { return huge * huge + 1 / zero; }), DivisionByZero);
}

TEST(ArithmeticScope, TakesNoOffenceAtUnderflowAndRounding) {
    EXPECT_EQ(FaultOf([] { return (1 / huge) * (1 / huge); }), 0);
    EXPECT_EQ(FaultOf([] { return std::exp(-huge); }), 0);
    EXPECT_EQ(FaultOf([] { return std::pow(1 / huge, 2.0); }), 0);
}

TEST(ArithmeticScope, GivesTheOuterFlagsBack) {
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_EQ(FaultOf([] { return huge * huge; }), Overflow);
    EXPECT_EQ(FlagsNow(), 0);

    std::feraiseexcept(FE_DIVBYZERO);
    EXPECT_EQ(FaultOf([] { return huge / 3; }), 0); // not blamed for what was there before
    EXPECT_EQ(FlagsNow(), FE_DIVBYZERO);
    EXPECT_EQ(FaultOf([] { return zero / zero; }), InvalidProcedureCall);
    EXPECT_EQ(FlagsNow(), FE_DIVBYZERO);
    std::feclearexcept(FE_ALL_EXCEPT);
}

TEST(ArithmeticScope, KeepsAnInnerFaultFromTheOuterScope) {
    EXPECT_EQ(FaultOf([] { return static_cast<double>(FaultOf([] { return 1 / zero; })); }), 0);
    EXPECT_EQ(FaultOf([] {
                  const double before = huge * huge;
                  RunFunction("inner", [] { return huge / 3; });
                  return before;
              }),
              Overflow);
}
