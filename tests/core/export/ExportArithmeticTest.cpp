#include "core/export/ExportArithmetic.h"

#include "core/platform/RunTimeError.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

// By hand for o = 9, e = 4: 5 / 2; 3 + sqrt(10) - sqrt(17); (9 - 12 + 2 * 6) / (2 * 2).
TEST(ExportArithmetic, ScoresByTheOption) {
    EXPECT_EQ(ExportScore(ExportOption::Poisson, 9, 4), 2.5);
    EXPECT_DOUBLE_EQ(ExportScore(ExportOption::Standard, 9, 4), 3 + std::sqrt(10.0) - std::sqrt(17.0));
    EXPECT_EQ(ExportScore(ExportOption::Rossi, 9, 4), 2.25);
    EXPECT_EQ(ExportScore(ExportOption::Poisson, 7, 7), 0);
}

TEST(ExportArithmetic, CannotScoreAnExpectedCountOfZero) {
    for (const double observed : {0.0, 3.0})
        for (const auto option : {ExportOption::Poisson, ExportOption::Rossi})
            EXPECT_EQ(ErrorNumberOf([&] { ExportScore(option, observed, 0); }), DivisionByZero);
    EXPECT_DOUBLE_EQ(ExportScore(ExportOption::Standard, 3, 0), std::sqrt(3.0) + 2 - 1);
    EXPECT_EQ(ExportScore(ExportOption::Standard, 0, 0), 0);
}
