#include "core/numeric/KernelRows.h"

#include "core/numeric/RowWorkers.h"
#include "support/PlainRetrospective.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using namespace vastrel;

namespace {

Array1<RegionPoint> PlacesAt(std::initializer_list<std::pair<double, double>> places) {
    Array1<RegionPoint> at(static_cast<std::ptrdiff_t>(places.size()));
    std::ptrdiff_t i = 0;
    for (const auto& [x, y] : places)
        at(++i) = {"", x, y};
    return at;
}

KernelWeights WeightsOf(std::initializer_list<std::pair<double, double>> places, double area, double sigma) {
    return GaussianWeights(PlacesAt(places), static_cast<std::ptrdiff_t>(places.size()), area, sigma);
}

/// n Regions at random places, one unit of area each, and scores of both signs, some of them zeros.
struct Country {
    Workspace Store;
    Array1<double> Scores;

    Country(std::int32_t n, double sigma) : Scores(n) {
        Store.NumRegion = n;
        Store.TotalShapeArea = n;
        Store.CurrentSigma = sigma;
        Store.RegionCentroid.ReDim(n);
        std::mt19937 random(static_cast<unsigned>(n));
        std::uniform_real_distribution<double> place(0, std::sqrt(n));
        std::normal_distribution<double> score;
        for (std::int32_t i = 1; i <= n; ++i) {
            const double x = place(random), y = place(random);
            Store.RegionCentroid(i) = {"", x, y};
            Scores(i) = i % 5 == 0 ? 0 : score(random);
        }
    }
};

bool SameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void ExpectPlainRows(const Country& country) {
    const std::ptrdiff_t n = country.Store.NumRegion;
    const Table<double> plain = PlainWeights(country.Store);
    const KernelWeights kernel = GaussianWeights(country.Store.RegionCentroid, n,
                                                 country.Store.TotalShapeArea, country.Store.CurrentSigma);
    Table<double> table(n, n);
    PutWeights(kernel, table);
    Array1<double> sums;
    WeightedSums(kernel, country.Scores, n, sums);
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        double sum = 0;
        for (std::ptrdiff_t j = 1; j <= n; ++j) {
            EXPECT_TRUE(SameBits(kernel(i, j), plain(i, j)) && SameBits(table(i, j), plain(i, j)))
                << i << " " << j;
            sum = sum + country.Scores(j) * plain(i, j);
        }
        EXPECT_TRUE(SameBits(sums(i), sum)) << i << " of " << n;
    }
    for (std::ptrdiff_t i = 0; i <= n; ++i)
        EXPECT_TRUE(table(i, 0) == 0 && table(0, i) == 0) << i;
}

class KernelRows : public testing::Test {
protected:
    void TearDown() override { ForceWorkers(0); }
};

} // namespace

TEST_F(KernelRows, HaveLengthOne) {
    // Two Regions at a distance of one mean side: 1 and exp(-1/2) over the root of 1 + exp(-1).
    const auto weights = WeightsOf({{0, 0}, {1, 0}}, 2, 1);
    EXPECT_NEAR(weights(1, 1), 0.8550196364002437, 1e-14);
    EXPECT_NEAR(weights(1, 2), 0.5185956241330958, 1e-14);
    EXPECT_NEAR(weights(2, 1), 0.5185956241330958, 1e-14);
}

TEST_F(KernelRows, AreTheIdentityForAVerySmallSigma) {
    const auto weights = WeightsOf({{0, 0}, {1, 0}, {0, 2}}, 3, 0.00000001);
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        for (std::ptrdiff_t j = 1; j <= 3; ++j)
            EXPECT_EQ(weights(i, j), i == j ? 1 : 0) << i << " " << j;
}

TEST_F(KernelRows, LevelOutForAVeryLargeSigma) {
    const auto weights = WeightsOf({{0, 0}, {1, 0}, {0, 2}, {5, 5}}, 4, 1e8);
    for (std::ptrdiff_t i = 1; i <= 4; ++i)
        for (std::ptrdiff_t j = 1; j <= 4; ++j)
            EXPECT_NEAR(weights(i, j), 0.5, 1e-14) << i << " " << j;
}

TEST_F(KernelRows, FollowTheRegionsWhenTwoAreSwapped) {
    const auto weights = WeightsOf({{0, 0}, {1, 0}, {0, 2}}, 3, 0.7);
    const auto swapped = WeightsOf({{0, 2}, {1, 0}, {0, 0}}, 3, 0.7);
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        for (std::ptrdiff_t j = 1; j <= 3; ++j)
            EXPECT_NEAR(weights(i, j), swapped(4 - i, 4 - j), 1e-15) << i << " " << j;
}

TEST_F(KernelRows, AreThoseOfCoincidentPlacesAlike) {
    const auto weights = WeightsOf({{3, 4}, {3, 4}, {9, 9}}, 3, 1);
    for (std::ptrdiff_t j = 1; j <= 3; ++j)
        EXPECT_EQ(weights(1, j), weights(2, j)) << j;
}

TEST_F(KernelRows, EqualThePlainOnesInEveryBitForAnyNumberOfWorkers) {
    // One strip of columns, whole strips, and one that is begun; weights that are ordinary, below the
    // smallest normal number, or zero.
    for (const int workers : {1, 2, 3, 7})
        for (const std::int32_t n : {1, 2, 3, 31, 127, 128, 129, 256, 385, 700})
            for (const double sigma : {0.1, 0.5, 3.0}) {
                SCOPED_TRACE(testing::Message() << n << " at " << sigma << ", workers " << workers);
                ForceWorkers(workers);
                ExpectPlainRows(Country(n, sigma));
            }
}

TEST_F(KernelRows, SumTheSignsOfZerosAsPlainLoopsDo) {
    Array1<double> scores(3), sums;
    scores(1) = scores(2) = scores(3) = -0.0;
    WeightedSums(WeightsOf({{0, 0}, {1, 0}, {0, 2}}, 3, 1), scores, 3, sums);
    for (std::ptrdiff_t i = 1; i <= 3; ++i)
        EXPECT_TRUE(SameBits(sums(i), 0.0)) << i; // 0 + -0
}

TEST_F(KernelRows, TellSubnormalElementsWhereScoresOrLengthsRaiseThem) {
    constexpr std::ptrdiff_t n = 300;
    KernelWeights kernel;
    kernel.SetZero(n);
    std::fill_n(kernel.Values.All(), kernel.Values.Count(), 1e-310);
    Array1<double> scores(n);
    const auto expectPlainSums = [&] {
        Array1<double> sums;
        WeightedSums(kernel, scores, n, sums);
        for (std::ptrdiff_t i = 1; i <= n; ++i) {
            double sum = 0;
            for (std::ptrdiff_t j = 1; j <= n; ++j)
                sum = sum + scores(j) * kernel(i, j);
            EXPECT_TRUE(SameBits(sums(i), sum)) << i;
        }
    };
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        scores(i) = i == 3 || i == 150 ? 1e290 : 1;
        kernel.Length(i) = 1;
    }
    kernel.Peak = 1e-20;
    expectPlainSums();
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        scores(i) = 1;
        kernel.Length(i) = 1e-200;
    }
    kernel.Peak = 1e-300;
    expectPlainSums();
}

TEST_F(KernelRows, TakeAScoreThatIsNoNumberWithoutAFault) {
    const Country country(300, 2);
    const KernelWeights weights = GaussianWeights(country.Store.RegionCentroid, 300, 300, 2);
    Array1<double> scores = country.Scores, sums;
    scores(7) = std::numeric_limits<double>::quiet_NaN();
    std::feclearexcept(FE_ALL_EXCEPT);
    WeightedSums(weights, scores, 300, sums);
    EXPECT_FALSE(std::fetestexcept(FE_INVALID));
    EXPECT_TRUE(std::isnan(sums(8)));
}

TEST_F(KernelRows, TellTheFirstFaultWhereThereAreSeveral) {
    const auto faultOf = [](std::initializer_list<std::pair<double, double>> places, double area,
                            double sigma) { return ErrorNumberOf([&] { WeightsOf(places, area, sigma); }); };
    constexpr double far = 1e200;
    EXPECT_EQ(faultOf({{0, 0}, {1, 1}}, 2, 1e-310), Overflow); // the peak, before the square of sigma is 0
    // Without an area each pair ends in a division by zero, if it comes as far.
    EXPECT_EQ(faultOf({{far, 0}, {1, 1}, {3, 8}}, 0, 1), Overflow); // the distance of the first pair
    EXPECT_EQ(faultOf({{0, 0}, {1, 1}}, 0, 1e200), Overflow);       // the square of sigma
    EXPECT_EQ(faultOf({{0, 0}, {1, 1}, {far, 0}}, 0, 1), DivisionByZero);
    EXPECT_EQ(faultOf({{0, 0}, {1, 1}, {far, 0}}, 3, 1), Overflow);
}

TEST_F(KernelRows, AreRequiredOfAllRegions) {
    const auto weights = WeightsOf({{0, 0}, {1, 0}, {0, 2}}, 3, 1);
    Array1<double> four(4), sums;
    EXPECT_EQ(ErrorNumberOf([&] { WeightedSums(weights, four, 4, sums); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { WeightedSums(weights, Array1<double>(2), 3, sums); }), SubscriptOutOfRange);
    EXPECT_EQ(ErrorNumberOf([&] { WeightedSums(weights, four, 2, sums); }), SubscriptOutOfRange);
    Table<double> small(2, 3);
    EXPECT_EQ(ErrorNumberOf([&] { PutWeights(weights, small); }), SubscriptOutOfRange);
    WeightedSums({}, {}, 0, sums);
    EXPECT_EQ(sums.UpperBound(), 0);
}

TEST_F(KernelRows, HandTheFaultsOfTheirTermsBack) {
    const Country country(300, 2);
    for (const int workers : {1, 3})
        for (const std::ptrdiff_t at : {1, 150, 300}) {
            ForceWorkers(workers);
            KernelWeights weights = GaussianWeights(country.Store.RegionCentroid, 300, 300, 2);
            Array1<double> sums;
            std::feclearexcept(FE_ALL_EXCEPT);
            WeightedSums(weights, country.Scores, 300, sums);
            EXPECT_FALSE(std::fetestexcept(FE_OVERFLOW | FE_INVALID | FE_DIVBYZERO));
            weights.Length(at) = 0;
            WeightedSums(weights, country.Scores, 300, sums);
            EXPECT_TRUE(std::fetestexcept(FE_DIVBYZERO)) << at << ", workers " << workers;
        }
    std::feclearexcept(FE_ALL_EXCEPT);
}
