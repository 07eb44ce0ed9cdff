#include "core/numeric/PairSums.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <thread>

using namespace vastrel;

namespace {

constexpr std::ptrdiff_t StripWidth = 128;

/// Numbers of many magnitudes, so that another order of additions gives another sum.
Pairs RandomPairs(std::ptrdiff_t n, double spread) {
    Pairs pairs;
    pairs.ReDimUnset(n);
    std::mt19937 random(6);
    std::lognormal_distribution<double> number(0, spread);
    for (std::ptrdiff_t k = 0; k < pairs.Count(); ++k)
        pairs.All()[k] = std::min(number(random), 1e300);
    return pairs;
}

double PlainSum(const Pairs& pairs, double diagonal, std::ptrdiff_t i) {
    double sum = 0;
    for (std::ptrdiff_t j = 1; j <= pairs.Regions(); ++j)
        sum = sum + (i == j ? diagonal : pairs(i, j));
    return sum;
}

constexpr auto Plain = [](auto value, auto, auto) { return value; };

void ExpectPlainSums(const Pairs& pairs, double diagonal, FaintTerms faint) {
    for (const int workers : {1, 3}) {
        ForceWorkers(workers);
        Array1<double> sums;
        SumAlongPairs(pairs, diagonal, Plain, faint, sums);
        for (std::ptrdiff_t i = 1; i <= pairs.Regions(); ++i)
            EXPECT_EQ(sums(i), PlainSum(pairs, diagonal, i)) << i << " by " << workers;
    }
    ForceWorkers(0);
}

double& PairOf(Pairs& pairs, std::ptrdiff_t i, std::ptrdiff_t j) {
    return pairs.After(std::min(i, j))[std::max(i, j) - std::min(i, j) - 1];
}

/// Pairs of 1, but those of a Region hang on its partner.
Pairs PairsAlikeBut(std::ptrdiff_t n, std::ptrdiff_t region,
                    const std::function<double(std::ptrdiff_t partner)>& value) {
    Pairs pairs;
    pairs.ReDimUnset(n);
    std::fill_n(pairs.All(), pairs.Count(), 1.0);
    for (std::ptrdiff_t partner = 1; partner <= n; ++partner)
        if (partner != region) PairOf(pairs, region, partner) = value(partner);
    return pairs;
}

class PairSumsOfManyWorkers : public testing::Test {
protected:
    PairSumsOfManyWorkers() { ForceWorkers(4); }
    ~PairSumsOfManyWorkers() override { ForceWorkers(0); }
};

} // namespace

// One strip dawdles now and then, each in its turn: a row that the next one took too early would show.
TEST_F(PairSumsOfManyWorkers, TakeEveryRowBehindASlowStrip) {
    const Pairs pairs = RandomPairs(5 * StripWidth - 3, 5);
    for (std::ptrdiff_t slow = 0; slow < 4; ++slow) { // the last one has none behind it
        const auto dawdling = [=](auto value, auto i, auto j) {
            const std::ptrdiff_t row = i.First, column = j.First, first = 1 + slow * StripWidth;
            const bool begins = row < column && column == std::max(first, row + 1);
            if (begins && column < first + StripWidth && row % 8 == 1)
                std::this_thread::sleep_for(std::chrono::microseconds(300));
            return value;
        };
        Array1<double> sums;
        SumAlongPairs(pairs, 0.75, dawdling, FaintTerms::Told, sums);
        for (std::ptrdiff_t i = 1; i <= pairs.Regions(); ++i)
            EXPECT_EQ(sums(i), PlainSum(pairs, 0.75, i)) << i << " behind strip " << slow;
    }
}

TEST_F(PairSumsOfManyWorkers, AreNothingOfNoRegions) {
    Array1<double> sums(4);
    SumAlongPairs({}, 3, Plain, FaintTerms::Told, sums);
    EXPECT_EQ(sums.UpperBound(), 0);
    EXPECT_EQ(sums(0), 0);
}

TEST(PairSums, TellFaintTermsWhereASumIsFaintAsWell) {
    // Columns of whole vectors and the odd one of the last strip.
    constexpr std::ptrdiff_t n = 3 * StripWidth - 1;
    constexpr double smallest = 0x1p-1074;
    for (const std::ptrdiff_t region : {std::ptrdiff_t{1}, 2 * StripWidth, 2 * StripWidth + 1, n}) {
        const auto subnormal = [](std::ptrdiff_t partner) { return static_cast<double>(partner) * smallest; };
        const auto notMuchLarger = [](std::ptrdiff_t partner) { return partner % 2 ? 0x1p-990 : 0x1p-1030; };
        for (const auto faint : {FaintTerms::Flushed, FaintTerms::FlushedOfOneSign}) {
            SCOPED_TRACE(region);
            ExpectPlainSums(PairsAlikeBut(n, region, subnormal), 0, faint);
            ExpectPlainSums(PairsAlikeBut(n, region, notMuchLarger), 0, faint);
        }
    }
}

TEST(PairSums, TellFaintTermsWhereASumVanishesInBetween) {
    // The sum of one Region is 0 at one of its partners, above the diagonal or behind it, and takes faint
    // terms from there on.
    constexpr std::ptrdiff_t n = 3 * StripWidth - 1;
    for (const std::ptrdiff_t region : {std::ptrdiff_t{3}, 2 * StripWidth, 2 * StripWidth + 2, n})
        for (const std::ptrdiff_t vanishing : {std::ptrdiff_t{29}, StripWidth + 37, 2 * StripWidth + 21}) {
            SCOPED_TRACE(testing::Message() << region << " vanishes at " << vanishing);
            const auto before = static_cast<double>(vanishing - 1 - (region < vanishing ? 1 : 0));
            const auto value = [=](std::ptrdiff_t partner) {
                return partner < vanishing ? 1 : partner == vanishing ? -before : 0x1p-1070;
            };
            ExpectPlainSums(PairsAlikeBut(n, region, value), 0, FaintTerms::Flushed);
        }
}

TEST(PairSums, AreThoseOfPlainLoopsForNumbersOfAllMagnitudes) {
    Pairs pairs = RandomPairs(3 * StripWidth + 5, 300);
    ExpectPlainSums(pairs, 1, FaintTerms::FlushedOfOneSign);
    for (std::ptrdiff_t k = 0; k < pairs.Count(); k += 3)
        pairs.All()[k] = -pairs.All()[k];
    ExpectPlainSums(pairs, 1, FaintTerms::Flushed);
    ExpectPlainSums(pairs, 1, FaintTerms::Told);
}

TEST(PairSums, ComeBackFromNumbersThatAreNoneWithoutAFault) {
    Pairs pairs = RandomPairs(2 * StripWidth, 1);
    PairOf(pairs, 3, StripWidth + 9) = std::numeric_limits<double>::quiet_NaN();
    std::feclearexcept(FE_ALL_EXCEPT);
    Array1<double> sums;
    SumAlongPairs(pairs, 1, Plain, FaintTerms::Flushed, sums);
    EXPECT_FALSE(std::fetestexcept(FE_INVALID));
    EXPECT_TRUE(std::isnan(sums(3)) && std::isnan(sums(StripWidth + 9)));
    EXPECT_EQ(sums(4), PlainSum(pairs, 1, 4));
}
