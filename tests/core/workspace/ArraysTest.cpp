#include "core/workspace/Arrays.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace vastrel;

namespace {

bool IsAligned(const void* memory) {
    return reinterpret_cast<std::uintptr_t>(memory) % 64 == 0;
}

} // namespace

TEST(Array1, HasNoElementBeforeItIsDimensioned) {
    const Array1<double> array;
    EXPECT_FALSE(array.IsAllocated());
    EXPECT_EQ(array.UpperBound(), -1);
    EXPECT_EQ(ErrorNumberOf([&] { array(0); }), SubscriptOutOfRange);
}

TEST(Array1, TakesIndicesFromZeroToItsBound) {
    Array1<double> array(3);
    for (int i = 0; i <= 3; ++i)
        EXPECT_EQ(array(i), 0);
    array(3) = 5;
    EXPECT_EQ(array(3), 5);
    EXPECT_EQ(ErrorNumberOf([&] { array(-1); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { array(4); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorDescriptionOf([&] { array(4); }), "Subscript out of range\nElement 4 of an array of 3.");
}

TEST(Array1, IsRedimensionedWhole) {
    Array1<double> array(3);
    array(0) = array(1) = 7;
    array.ReDim(5);
    EXPECT_EQ(array.UpperBound(), 5);
    EXPECT_EQ(array(0), 0);
    EXPECT_EQ(array(1), 0);
    array.ReDim(1);
    EXPECT_EQ(ErrorNumberOf([&] { array(2); }), SubscriptOutOfRange);
    array.ReDim(0);
    EXPECT_EQ(array(0), 0);
    EXPECT_TRUE(array.IsAllocated());
    array.ReDim(-1);
    EXPECT_FALSE(array.IsAllocated());
    array.ReDim(2);
    array.Clear();
    EXPECT_FALSE(array.IsAllocated());
    EXPECT_EQ(ErrorNumberOf([&] { array.ReDim(-2); }), SubscriptOutOfRange);
}

TEST(Array1, GoesBackToZero) {
    Array1<double> array(2);
    array(0) = array(2) = 3;
    array.SetZero();
    EXPECT_EQ(array, Array1<double>(2));
}

TEST(Array1, HoldsTexts) {
    Array1<std::string> array(2);
    EXPECT_EQ(array(2), "");
    array(2) = "id";
    array.ReDim(2);
    EXPECT_EQ(array(2), "");
}

TEST(Array1, ComparesBoundAndElements) {
    Array1<double> a(2), b(2);
    EXPECT_EQ(a, b);
    b(0) = 1;
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a == Array1<double>(3));
}

TEST(Array1, AlignsItsNumbers) {
    for (int n = 0; n < 40; ++n)
        EXPECT_TRUE(IsAligned(Array1<double>(n).data()));
}

TEST(Table, HasNoElementBeforeItIsDimensioned) {
    const Table<double> table;
    EXPECT_FALSE(table.IsAllocated());
    EXPECT_EQ(table.UpperBound1(), -1);
    EXPECT_EQ(table.UpperBound2(), -1);
    EXPECT_EQ(ErrorNumberOf([&] { table(0, 0); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { table.row(0); }), SubscriptOutOfRange);
}

TEST(Table, TakesIndicesFromZeroToBothBounds) {
    Table<double> table(2, 4);
    table(2, 4) = 5;
    table(0, 0) = 1;
    EXPECT_EQ(table(2, 4), 5);
    // Each index is looked at by itself: none of these is out of the memory, all are out of the table.
    for (const auto& [i, j] : {std::pair{-1, 4}, {0, 5}, {1, -1}, {3, 0}, {2, 5}})
        EXPECT_EQ(ErrorNumberOf([&, i = i, j = j] { table(i, j); }), SubscriptOutOfRange) << i << ", " << j;
    EXPECT_EQ(ErrorDescriptionOf([&] { table(3, 1); }),
              "Subscript out of range\nElement (3, 1) of a table of 2 by 4.");
    EXPECT_EQ(ErrorNumberOf([&] { table.row(3); }), SubscriptOutOfRange);
}

TEST(Table, IsContiguousAndAligned) {
    Table<double> table(2, 4);
    table(1, 3) = 7;
    EXPECT_EQ(table.stride(), 5);
    EXPECT_EQ(table.row(1), table.row(0) + table.stride());
    EXPECT_EQ(table.row(1)[3], 7);
    for (int n = 0; n < 20; ++n)
        EXPECT_TRUE(IsAligned(Table<double>(n, n).row(0)));
}

TEST(Table, IsRedimensionedWhole) {
    Table<double> table(2, 2);
    table(1, 1) = 7;
    table.ReDim(3, 1);
    EXPECT_EQ(table, Table<double>(3, 1));
    EXPECT_EQ(table.UpperBound1(), 3);
    EXPECT_EQ(table.UpperBound2(), 1);
    table.ReDim(-1, -1);
    EXPECT_FALSE(table.IsAllocated());
    table.ReDim(1, 1);
    table.Clear();
    EXPECT_FALSE(table.IsAllocated());
    EXPECT_EQ(ErrorNumberOf([&] { table(1, 1); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { table.ReDim(-2, -2); }), SubscriptOutOfRange); // a product above 0
    EXPECT_EQ(ErrorNumberOf([&] { table.ReDim(1, -2); }), SubscriptOutOfRange);
}

TEST(Table, HasNoElementWhereItsMemoryIsRefused) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizer ends the process at such a request.";
#endif
    Table<double> table(2, 2);
    // 2^60 bytes: less than the longest array, more than any machine
    EXPECT_THROW(table.ReDim((std::ptrdiff_t{1} << 30) - 1, (std::ptrdiff_t{1} << 27) - 1), std::bad_alloc);
    EXPECT_FALSE(table.IsAllocated());
    EXPECT_EQ(ErrorNumberOf([&] { table(2, 2); }), SubscriptOutOfRange);
}

TEST(Table, UnsetOneIsZeroAtIndexZeroAndTakesElements) {
    const TableMemoryScope scope;
    for (const std::ptrdiff_t n : {3, 500}) {
        Table<double> used(n, n);
        used.SetZero();
        for (std::ptrdiff_t i = 0; i <= n; ++i)
            std::fill_n(used.row(i), n + 1, 7.0);
        used.Clear();
        Table<double> table;
        table.ReDimUnset(n, n);
        EXPECT_EQ(table.UpperBound1(), n);
        EXPECT_EQ(table.UpperBound2(), n);
        for (std::ptrdiff_t i = 0; i <= n; ++i) {
            EXPECT_EQ(table(i, 0), 0);
            EXPECT_EQ(table(0, i), 0);
        }
        table(n, n) = 5;
        EXPECT_EQ(table(n, n), 5);
    }
    Table<double> none;
    none.ReDimUnset(-1, -1);
    EXPECT_FALSE(none.IsAllocated());
    EXPECT_ANY_THROW(none.ReDimUnset(-2, 0));
}
