#include "core/numeric/PairSums.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

using namespace vastrel;

namespace {

constexpr std::ptrdiff_t StripWidth = 128;

/// Numbers of many magnitudes, so that another order of additions gives another sum.
Pairs RandomPairs(std::ptrdiff_t n) {
    Pairs pairs;
    pairs.ReDimUnset(n);
    std::mt19937 random(6);
    std::lognormal_distribution<double> number(0, 5);
    for (std::ptrdiff_t k = 0; k < pairs.Count(); ++k)
        pairs.All()[k] = number(random);
    return pairs;
}

double PlainSum(const Pairs& pairs, double diagonal, std::ptrdiff_t i) {
    double sum = 0;
    for (std::ptrdiff_t j = 1; j <= pairs.Regions(); ++j)
        sum = sum + (i == j ? diagonal : pairs(i, j));
    return sum;
}

class PairSumsOfManyWorkers : public testing::Test {
protected:
    PairSumsOfManyWorkers() { ForceWorkers(4); }
    ~PairSumsOfManyWorkers() override { ForceWorkers(0); }
};

} // namespace

// One strip dawdles now and then, each in its turn: a row that the next one took too early would show.
TEST_F(PairSumsOfManyWorkers, TakeEveryRowBehindASlowStrip) {
    const Pairs pairs = RandomPairs(5 * StripWidth - 3);
    for (std::ptrdiff_t slow = 0; slow < 4; ++slow) { // the last one has none behind it
        const auto dawdling = [=](auto value, auto i, auto j) {
            const std::ptrdiff_t row = i.First, column = j.First, first = 1 + slow * StripWidth;
            const bool begins = row < column && column == std::max(first, row + 1);
            if (begins && column < first + StripWidth && row % 8 == 1)
                std::this_thread::sleep_for(std::chrono::microseconds(300));
            return value;
        };
        Array1<double> sums;
        SumAlongPairs(pairs, 0.75, dawdling, sums);
        for (std::ptrdiff_t i = 1; i <= pairs.Regions(); ++i)
            EXPECT_EQ(sums(i), PlainSum(pairs, 0.75, i)) << i << " behind strip " << slow;
    }
}

TEST_F(PairSumsOfManyWorkers, AreNothingOfNoRegions) {
    const auto plain = [](auto value, auto, auto) { return value; };
    Array1<double> sums(4);
    SumAlongPairs({}, 3, plain, sums);
    EXPECT_EQ(sums.UpperBound(), 0);
    EXPECT_EQ(sums(0), 0);
}
