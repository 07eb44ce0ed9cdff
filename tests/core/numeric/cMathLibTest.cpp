#include "core/numeric/cMathLib.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>

using namespace vastrel;

namespace {

Table<double> Matrix(const std::vector<std::vector<double>>& rows) {
    Table<double> table(static_cast<std::ptrdiff_t>(rows.size()) - 1,
                        static_cast<std::ptrdiff_t>(rows[0].size()) - 1);
    for (size_t i = 0; i < rows.size(); ++i)
        for (size_t j = 0; j < rows[i].size(); ++j)
            table(static_cast<std::ptrdiff_t>(i), static_cast<std::ptrdiff_t>(j)) = rows[i][j];
    return table;
}

Array1<double> Column(const std::vector<double>& values) {
    Array1<double> column(static_cast<std::ptrdiff_t>(values.size()) - 1);
    std::copy(values.begin(), values.end(), column.data());
    return column;
}

std::string ErrorText(const std::function<void()>& call) {
    try {
        call();
        return "";
    } catch (const RunTimeError& error) {
        return std::to_string(error.Number()) + " " + error.Description();
    }
}

} // namespace

TEST(cMathLib, AddsAndSubtractsElementByElement) {
    const auto a = Matrix({{1, 2, 3}, {4, 5, 6}});
    const auto b = Matrix({{10, 20, 30}, {40, 50, 60}});
    EXPECT_EQ(cMathLib().Add(a, b), Matrix({{11, 22, 33}, {44, 55, 66}}));
    EXPECT_EQ(cMathLib().Subtract(b, a), Matrix({{9, 18, 27}, {36, 45, 54}}));
    EXPECT_EQ(cMathLib().Subtract(a, a), Matrix({{0, 0, 0}, {0, 0, 0}}));
}

TEST(cMathLib, MultipliesRowsIntoColumns) {
    EXPECT_EQ(cMathLib().Multiply(Matrix({{3}}), Matrix({{5}})), Matrix({{15}}));
    EXPECT_EQ(cMathLib().Multiply(Matrix({{1, 2, 3}, {4, 5, 6}}), Matrix({{1, 0}, {0, 1}, {2, 10}})),
              Matrix({{7, 32}, {16, 65}}));
}

TEST(cMathLib, TakesAnArrayAsOneColumn) {
    EXPECT_EQ(cMathLib().Multiply(Column({1, 2, 3}), Matrix({{4, 5}})), Matrix({{4, 5}, {8, 10}, {12, 15}}));
    EXPECT_EQ(cMathLib().Multiply(Matrix({{1, 1, 1}}), Column({1, 2, 3})), Matrix({{6}}));
    EXPECT_EQ(cMathLib().Add(Column({1, 2}), Column({3, 4})), Matrix({{4}, {6}}));
}

TEST(cMathLib, SumsWithKAscending) {
    // 1e16 + 1 is 1e16 in 64 bits, so the order of the sum shows in the result.
    EXPECT_EQ(cMathLib().Multiply(Matrix({{1e16, 1, -1e16}}), Column({1, 1, 1})), Matrix({{0}}));
    EXPECT_EQ(cMathLib().Multiply(Matrix({{1e16, -1e16, 1}}), Column({1, 1, 1})), Matrix({{1}}));
}

TEST(cMathLib, RoundsEveryProduct) {
    // x * x is 1 + 2^-29 + 2^-60 and rounds to 1 + 2^-29; a fused step would leave the 2^-60.
    const double x = 1 + std::ldexp(1, -30);
    EXPECT_EQ(cMathLib().Multiply(Matrix({{-(1 + std::ldexp(1, -29)), x}}), Column({1, x})), Matrix({{0}}));
}

TEST(cMathLib, TellsAMismatchByItsOwnNumber) {
    const auto a = Matrix({{1, 2}}), b = Matrix({{1}, {2}}), c = Matrix({{1, 2, 3}});
    EXPECT_EQ(ErrorText([&] { cMathLib().Add(a, b); }), "5005 Dimensions of the two matrices do not match !");
    EXPECT_EQ(ErrorText([&] { cMathLib().Subtract(a, c); }),
              "5007 Dimensions of the two matrices do not match !");
    EXPECT_EQ(ErrorText([&] { cMathLib().Multiply(a, c); }),
              "5009 Dimensions of the two matrices not suitable for multiplication !");
}

TEST(cMathLib, TellsEveryOtherFailureAsANullMatrix) {
    const std::string null = "5022 One or both of the matrices are null, this operation cannot be done !!";
    const auto a = Matrix({{1}});
    const Table<double> never;
    const Array1<double> neverColumn;
    EXPECT_EQ(ErrorText([&] { cMathLib().Add(a, never); }), null);
    EXPECT_EQ(ErrorText([&] { cMathLib().Subtract(never, a); }), null);
    EXPECT_EQ(ErrorText([&] { cMathLib().Multiply(a, neverColumn); }), null);
    const auto huge = Matrix({{1e200}});
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_EQ(ErrorText([&] { cMathLib().Multiply(huge, huge); }), null);
    EXPECT_EQ(std::fetestexcept(FE_OVERFLOW), 0); // the fault was told, and leaves no flag behind
}

TEST(cMathLib, CountsRowsInSixteenBits) {
    const Array1<double> most(32766), tooMany(32767); // 32767 and 32768 rows
    EXPECT_EQ(ErrorNumberOf([&] { cMathLib().Add(most, most); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] { cMathLib().Add(tooMany, tooMany); }), 5022);
}

TEST(cMathLib, AProductOfNeighboursIsThatOfMultiply) {
    Table<double> a(2, 2), b(2, 2), none, wide(2, 1);
    for (std::ptrdiff_t i = 0; i <= 2; ++i)
        for (std::ptrdiff_t j = 0; j <= 2; ++j) {
            a(i, j) = 0.1 * static_cast<double>(3 * i + j + 1);
            b(i, j) = 1.0 / static_cast<double>(3 * i - 5 * j + 1);
        }
    const Table<double> plain = cMathLib().Multiply(a, b);
    for (const auto& order : {VectorOrder{0, 1, 2}, VectorOrder{2, 0, 1}, VectorOrder{1, 0}, VectorOrder{}})
        EXPECT_EQ(ProductOfNeighbours(a, b, order), plain);
    EXPECT_EQ(ErrorNumberOf([&] { ProductOfNeighbours(a, none, {0, 1, 2}); }), 5022);
    EXPECT_EQ(ErrorNumberOf([&] { ProductOfNeighbours(wide, a, {0, 1, 2}); }), 5009);
    a(1, 1) = b(1, 2) = 1e300;
    EXPECT_EQ(ErrorNumberOf([&] { ProductOfNeighbours(a, b, {2, 0, 1}); }), 5022);
}
