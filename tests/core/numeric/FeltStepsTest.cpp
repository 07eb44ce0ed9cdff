#include "core/numeric/FeltSteps.h"

#include "core/numeric/DenseProduct.h"
#include "support/BitMatrices.h"
#include "support/PlainLoops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace vastrel;

namespace {

using Index = std::ptrdiff_t;

constexpr Index Depth = 900; // more than one block of steps
constexpr Index Rows = 17, Columns = 50;

/// The magnitude of the products of a step, as a power of two, and their sign.
struct StepKind {
    int Exponent;
    bool Negative = false;
    int OfA = 0; // that of the factors of a; 0 for a share of it
};

using StepKinds = std::function<StepKind(Index k, std::mt19937& random)>;

/// Two matrices whose products have magnitudes and signs step by step. Their digits are such that a product
/// lies exactly on a power of two, closely below one, or anywhere between.
struct Factors {
    explicit Factors(const StepKinds& kinds) : A(Rows, Depth), B(Depth, Columns) {
        std::mt19937 random(5);
        for (Index k = 0; k < Depth; ++k) {
            const StepKind kind = kinds(k, random);
            const auto [least, most] = std::minmax({kind.Exponent / 3, kind.Exponent / 2});
            const int ofA = kind.OfA != 0 ? kind.OfA : std::uniform_int_distribution(least, most)(random);
            for (Index i = 0; i < Rows; ++i)
                A.Data()[i * A.Stride + k] = std::ldexp(Digits(random), ofA);
            for (Index j = 0; j < Columns; ++j)
                B.Data()[k * B.Stride + j] =
                    std::ldexp(Digits(random), kind.Exponent - ofA) * (kind.Negative ? -1 : 1);
        }
    }

    /// From 1 to closely below 2.
    static double Digits(std::mt19937& random) {
        switch (random() % 3) {
        case 0:
            return 1;
        case 1:
            return 2 - 0x1p-52;
        default:
            return 1 + std::ldexp(static_cast<double>(random() % 1024), -10);
        }
    }

    void ExpectPlainProduct() const {
        const Outcome plain = Computed(
            Rows, Columns, [&](double* to, Index stride) { PlainProduct(A.View(), B.View(), to, stride); });
        ExpectSameOutcome(plain,
                          [&](double* to, Index stride) { DenseProduct(A.View(), B.View(), to, stride); });
    }

    Matrix A, B;
};

/// One of some values.
int OneOf(std::initializer_list<int> values, std::mt19937& random) {
    return *(values.begin() + random() % values.size());
}

} // namespace

TEST(FeltSteps, ProductsAroundHalfTheLastPlaceOfASumAreFeltOrNot) {
    for (const bool negative : {false, true})
        Factors([=](Index k, std::mt19937& random) {
            if (k == 0) return StepKind{0, negative};
            return StepKind{-OneOf({49, 50, 51, 52, 53, 54, 55, 56, 57, 58, 60, 90, 900}, random),
                            negative != (random() % 8 == 0)};
        }).ExpectPlainProduct();
}

// The first sums stand at about 1 and are taken down to almost nothing, so that what was too small is felt.
TEST(FeltSteps, SumsThatFallFeelWhatTheyDidNotBefore) {
    for (const int fall : {5, 6, 7, 8, 9, 10})
        Factors([=](Index k, std::mt19937& random) {
            if (k == 0) return StepKind{0};
            if (random() % 2 == 0) return StepKind{-OneOf({55, 60, 65, 70, 200}, random)};
            return StepKind{-fall, true};
        }).ExpectPlainProduct();
}

TEST(FeltSteps, ProductsBelowTheSmallestNormalNumberCountForSmallSums) {
    for (const int sums : {-900, -950, -962, -964, -966, -968, -970, -990, -1015, -1030})
        Factors([=](Index k, std::mt19937& random) {
            if (k == 0) return StepKind{sums};
            return StepKind{-OneOf({960, 1015, 1020, 1023, 1024, 1030, 1050, 1070, 1074, 1076, 1080}, random),
                            random() % 16 == 0};
        }).ExpectPlainProduct();
}

TEST(FeltSteps, FactorsBelowTheSmallestNormalNumberCountBesideLargeOnes) {
    for (const int sums : {-860, -870, -905, -940})
        for (const int ofA : {100, 30, 3}) {
            const auto kinds = [=](Index k, std::mt19937& random) {
                return k == 0 ? StepKind{sums}
                              : StepKind{-OneOf({1024, 1040, 1060}, random) + ofA, false, ofA};
            };
            Factors(kinds).ExpectPlainProduct();
        }
}

// A product of an infinity or of no number is a fault whatever stands beside it.
TEST(FeltSteps, NoInfinityIsLeftOut) {
    for (const Index where : {1, 70, 850}) {
        Factors factors([](Index k, std::mt19937&) { return StepKind{k == 0 ? 300 : -300}; });
        for (Index j = 0; j < Columns; ++j)
            factors.B.Data()[where * factors.B.Stride + j] = INFINITY;
        for (Index i = 0; i < Rows; ++i)
            factors.A.Data()[i * factors.A.Stride + where] = 0;
        const Outcome product = Computed(Rows, Columns, [&](double* to, Index stride) {
            DenseProduct(factors.A.View(), factors.B.View(), to, stride);
        });
        EXPECT_TRUE(std::isnan(product.Result.View().Data[0])) << where;
        EXPECT_EQ(product.Flags, FE_INVALID) << where;
    }
}

TEST(FeltSteps, SpansHoldTheirNumbers) {
    for (const double x : {1.0, -1.5, 2 - 0x1p-52, 0x1p-1022, -0x1p-1074, 0x1p1023}) {
        const Span span = SpanOf(x);
        EXPECT_LE(std::ldexp(1, span.Least), std::abs(x)) << x;
        EXPECT_LT(std::abs(x) / 2, std::ldexp(1, span.Most - 1)) << x;
        EXPECT_EQ(span.Negative, x < 0);
        EXPECT_EQ(span.Positive, x > 0);
    }
    EXPECT_EQ(SpanOf(0.0).Most, -Span::Beyond);
    EXPECT_EQ(SpanOf(-INFINITY).Most, Span::Beyond);
}

TEST(FeltSteps, StepsOfAGroupAreToldByTheirBounds) {
    std::mt19937 random(3);
    short a[GroupSteps], b[GroupSteps];
    for (int limit : {-1075, -1, 40}) {
        StepSet above = 0, below = 0;
        for (Index k = 0; k < GroupSteps; ++k) {
            a[k] = static_cast<short>(OneOf({-Span::Beyond, -1074, -500, 0, 20}, random));
            b[k] = static_cast<short>(OneOf({-1, limit - a[k], limit - a[k] + 1, Span::Beyond}, random));
            above |= StepSet{a[k] + b[k] > limit} << k;
            below |= StepSet{a[k] + b[k] < limit} << k;
        }
        EXPECT_EQ(StepsAbove(a, b, limit), above);
        EXPECT_EQ(StepsBelow(a, b, limit), below);
    }
}
