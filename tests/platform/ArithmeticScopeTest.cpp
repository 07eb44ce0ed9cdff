#include "platform/ArithmeticScope.h"

#include "platform/RunTimeError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

long NumberOf(const std::function<double()>& compute) {
    try {
        RunFunction("test", compute);
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

volatile double zero = 0;
volatile double huge = 1e300;

} // namespace

TEST(ArithmeticScope, TellsEachFaultApart) {
    EXPECT_EQ(NumberOf([] { return 1 / zero; }), DivisionByZero);
    EXPECT_EQ(NumberOf([] { return huge * huge; }), Overflow);
    EXPECT_EQ(NumberOf([] { return zero / zero; }), InvalidProcedureCall);
    EXPECT_EQ(NumberOf([] { return std::sqrt(zero - 1); }), InvalidProcedureCall);
    EXPECT_EQ(NumberOf([] { return huge / 3; }), 0);
}
