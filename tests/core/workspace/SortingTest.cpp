#include "core/workspace/Sorting.h"

#include "support/Arrays.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace vastrel;

namespace {

/// Sorts records with these keys, counted from 1, and gives the numbers in their new order.
std::vector<int> OrderOf(const std::vector<double>& keys) {
    Array1<KeyedValue> array(static_cast<std::ptrdiff_t>(keys.size()));
    for (std::ptrdiff_t i = 1; i <= array.UpperBound(); ++i)
        array(i) = {static_cast<double>(i), keys[static_cast<size_t>(i - 1)]};
    SortBySecondField(array);
    std::vector<int> order;
    for (std::ptrdiff_t i = 1; i <= array.UpperBound(); ++i)
        order.push_back(static_cast<int>(array(i).First));
    return order;
}

using Order = std::vector<int>;

} // namespace

TEST(Sorting, OrdersEachKindAscending) {
    auto integers = ArrayFrom1<std::int16_t>({3, -1, 32767, -32768, 3, 0});
    SortIntegers(integers);
    EXPECT_EQ(From1(integers), (std::vector<std::int16_t>{-32768, -1, 0, 3, 3, 32767}));

    auto values = ArrayFrom1<double>({2.5, -1e300, 0, 1e-300, -0.5});
    SortValues(values);
    EXPECT_EQ(From1(values), (std::vector<double>{-1e300, -0.5, 0, 1e-300, 2.5}));

    auto records = ArrayFrom1<KeyedValue>({{1, 9}, {2, -4}, {3, 0.5}});
    SortBySecondField(records);
    EXPECT_EQ(From1(records), (std::vector<KeyedValue>{{2, -4}, {3, 0.5}, {1, 9}}));
}

TEST(Sorting, LeavesShortArraysAlone) {
    Array1<double> none;
    SortValues(none);
    EXPECT_FALSE(none.IsAllocated());

    Array1<double> empty(0);
    empty(0) = 7;
    SortValues(empty);
    EXPECT_EQ(empty(0), 7);

    auto one = ArrayFrom1<double>({5});
    SortValues(one);
    EXPECT_EQ(From1(one), (std::vector<double>{5}));

    auto two = ArrayFrom1<double>({5, 4});
    SortValues(two);
    EXPECT_EQ(From1(two), (std::vector<double>{4, 5}));
}

TEST(Sorting, DoesNotTouchElementZero) {
    auto values = ArrayFrom1<double>({3, 2, 1});
    values(0) = 99;
    SortValues(values);
    EXPECT_EQ(values(0), 99);
    EXPECT_EQ(From1(values), (std::vector<double>{1, 2, 3}));
}

TEST(Sorting, NeverSwapsEqualKeysWithOneAnother) {
    EXPECT_EQ(OrderOf({4, 4, 4, 4, 4, 4, 4}), (Order{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(OrderOf({1, 1, 2, 2, 3}), (Order{1, 2, 3, 4, 5}));
}

// Where keys are equal, the order that comes out shows the gaps. Each of these was worked out by hand.
TEST(Sorting, LeavesTiesAsItsGapsDo) {
    // 3 records: gap 2 swaps 1 and 3, gap 1 finds 1 1 2 in order.
    EXPECT_EQ(OrderOf({2, 1, 1}), (Order{3, 2, 1}));
    // 4 records: half of 5 is 2, not 3. Gap 2 swaps 1 and 3; gap 1 then moves the 2 behind record 4.
    EXPECT_EQ(OrderOf({2, 1, 1, 1}), (Order{3, 2, 4, 1}));
    // 5 records: gap 3 swaps nothing (1 4, 2 5); it is followed by 2, which swaps 3 and 5. Straight to gap 1
    // it would be 1 2 4 5 3.
    EXPECT_EQ(OrderOf({1, 1, 2, 1, 1}), (Order{1, 2, 5, 4, 3}));
    // 8 records: half of 9 is 4. Gap 4 swaps nothing (5 has no partner: 5 + 4 is beyond); gap 2 swaps 5 and
    // 7; gap 1 moves the 2 behind record 8.
    EXPECT_EQ(OrderOf({1, 1, 1, 1, 2, 1, 1, 1}), (Order{1, 2, 3, 4, 7, 6, 8, 5}));
    // 10 records: half of 11 is 6, then 3, 2, 1. Gap 6 and gap 3: 7 goes behind 10; nothing is left to do.
    EXPECT_EQ(OrderOf({1, 1, 1, 1, 1, 1, 2, 1, 1, 1}), (Order{1, 2, 3, 4, 5, 6, 10, 8, 9, 7}));
}

TEST(Sorting, AgreesWithAnotherSortOnManyValues) {
    std::mt19937 random(7);
    std::vector<double> values(40000);
    for (auto& value : values)
        value = std::uniform_real_distribution<double>(-1, 1)(random);
    values[5] = values[4];
    auto array = ArrayFrom1(values);
    SortValues(array);
    std::sort(values.begin(), values.end());
    EXPECT_EQ(From1(array), values);
}

TEST(Sorting, AgreesWithAnotherSortOnEverySmallSize) {
    std::mt19937 random(8);
    for (size_t size = 0; size <= 70; ++size) {
        std::vector<std::int16_t> values(size);
        for (auto& value : values)
            value = static_cast<std::int16_t>(std::uniform_int_distribution<int>(-9, 9)(random));
        auto array = ArrayFrom1(values);
        SortIntegers(array);
        std::sort(values.begin(), values.end());
        EXPECT_EQ(From1(array), values);
    }
}
