#include "core/numeric/DenseProduct.h"

#include "support/BitMatrices.h"
#include "support/ForcedMachine.h"
#include "support/PlainLoops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <numeric>
#include <random>

using namespace vastrel;

namespace {

using Index = std::ptrdiff_t;

// ---- Values

enum class Values { Moderate, Wide, Zeros, Faint, Faulting };
constexpr Values AllValues[] = {Values::Moderate, Values::Wide, Values::Zeros, Values::Faint,
                                Values::Faulting};

/// Draws the values of one kind: moderate ones; magnitudes from 1e-300 to 1e300, whose products overflow and
/// underflow; zeros of both signs among small numbers; numbers whose products lie around the smallest ones
/// that there are, many of them halfway between two, with zeros and ordinary numbers among them; infinities
/// among wide ones.
class Draw {
public:
    Draw(Values kind, unsigned seed) : kind_(kind), random_(seed) {}

    double operator()() {
        switch (kind_) {
        case Values::Moderate:
            return uniform_(random_);
        case Values::Wide:
            return Wide();
        case Values::Zeros:
            return std::abs(uniform_(random_)) < 0.7 ? std::copysign(0.0, uniform_(random_))
                                                     : uniform_(random_);
        case Values::Faint:
            return Faint();
        case Values::Faulting:
            break;
        }
        return std::abs(uniform_(random_)) < 0.05
                   ? std::copysign(std::numeric_limits<double>::infinity(), uniform_(random_))
                   : Wide();
    }

private:
    double Faint() {
        const double digits = std::floor(uniform_(random_) * 64) * (uniform_(random_) < 0 ? 1 : 1 + 0x1p-50);
        const double kind = uniform_(random_);
        if (kind < -0.8)
            return std::ldexp(digits, -1074 + static_cast<int>(40 * std::abs(uniform_(random_))));
        return kind < 0.6 ? std::ldexp(digits, -540 + static_cast<int>(30 * uniform_(random_))) : digits;
    }
    double Wide() { return std::copysign(std::pow(10.0, 300 * uniform_(random_)), uniform_(random_)); }

    Values kind_;
    std::mt19937 random_;
    std::uniform_real_distribution<double> uniform_{-1, 1};
};

void ExpectSameProduct(Index n, Index p, Index m, Values kind,
                       const std::vector<Machine>& machines = Machines()) {
    SCOPED_TRACE(testing::Message() << n << " x " << p << " x " << m << ", values "
                                    << static_cast<int>(kind));
    const Matrix a(n, p, Draw(kind, 1)), b(p, m, Draw(kind, 2));
    const Outcome plain =
        Computed(n, m, [&](double* to, Index stride) { PlainProduct(a.View(), b.View(), to, stride); });
    ExpectSameOutcome(
        plain, [&](double* to, Index stride) { DenseProduct(a.View(), b.View(), to, stride); }, machines);
}

void ExpectSameGram(Index p, Index m, Values kind, const std::vector<Machine>& machines = Machines()) {
    SCOPED_TRACE(testing::Message() << p << " x " << m << ", values " << static_cast<int>(kind));
    const Matrix w(p, m, Draw(kind, 3));
    const Outcome plain = Computed(m, m, [&](double* to, Index stride) { PlainGram(w.View(), to, stride); });
    ExpectSameOutcome(
        plain, [&](double* to, Index stride) { DenseGram(w.View(), to, stride); }, machines);
}

std::vector<Machine> OneWorker() {
    auto machines = Machines();
    std::erase_if(machines, [](const Machine& machine) { return machine.Workers != 1; });
    return machines;
}

} // namespace

TEST(DenseProduct, ProductEqualsThePlainLoopsInEveryBitAndFault) {
    for (Index size = 1; size <= 70; ++size)
        for (const Values kind : AllValues) {
            ExpectSameProduct(size, size, size, kind);
            ExpectSameProduct(size, 71 - size, (size * 29) % 70 + 1, kind, OneWorker());
        }
}

TEST(DenseProduct, GramEqualsThePlainLoopsInEveryBitAndFault) {
    for (Index size = 1; size <= 70; ++size)
        for (const Values kind : AllValues) {
            ExpectSameGram(size, size, kind);
            ExpectSameGram((size * 29) % 70 + 1, size, kind, OneWorker());
        }
}

TEST(DenseProduct, SumsGoOnFromBlockToBlock) {
    // around one and two blocks of depth and of rows, and many columns
    for (const Values kind : AllValues) {
        for (const Index depth : {767, 768, 769, 1537})
            ExpectSameProduct(11, depth, 50, kind);
        for (const Index rows : {95, 96, 97, 291})
            ExpectSameProduct(rows, 7, 26, kind);
        for (const Index columns : {1537, 3101})
            ExpectSameProduct(9, 5, columns, kind);
        for (const Index size : {145, 251, 307})
            ExpectSameGram(800, size, kind);
    }
}

TEST(DenseProduct, ResultsInAnOrderHoldTheSameElements) {
    for (const Index size : {1, 5, 24, 61, 130}) {
        VectorOrder order(static_cast<size_t>(size));
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), std::mt19937(7));
        const Matrix a(size, size, Draw(Values::Wide, 1)), b(size, size, Draw(Values::Faint, 2));
        const auto ordered = [&](auto plainOf) {
            Matrix plain(size, size);
            plainOf(plain.Data(), plain.Stride);
            return Computed(size, size, [&](double* to, Index stride) {
                for (Index i = 0; i < size; ++i)
                    for (Index j = 0; j < size; ++j)
                        to[i * stride + j] = plain.Data()[order[static_cast<size_t>(i)] * plain.Stride +
                                                          order[static_cast<size_t>(j)]];
            });
        };
        Outcome product =
            ordered([&](double* to, Index stride) { PlainProduct(a.View(), b.View(), to, stride); });
        ExpectSameOutcome(product, [&](double* to, Index stride) {
            DenseProduct(a.View(), b.View(), order, to, stride);
            std::feclearexcept(FE_ALL_EXCEPT);
        });
        Outcome gram = ordered([&](double* to, Index stride) { PlainGram(b.View(), to, stride); });
        ExpectSameOutcome(gram, [&](double* to, Index stride) {
            DenseGram(b.View(), order, to, stride);
            std::feclearexcept(FE_ALL_EXCEPT);
        });
    }
}

TEST(DenseProduct, ProductOfNothingIsZero) {
    ExpectSameProduct(3, 0, 30, Values::Moderate);
    ExpectSameProduct(0, 3, 3, Values::Moderate);
    ExpectSameGram(0, 5, Values::Moderate);
}

TEST(DenseProduct, TwoByTwoByHand) {
    // a = (1 2; 3 4), b = (5 6; 7 8): (1*5+2*7 1*6+2*8; 3*5+4*7 3*6+4*8)
    const double a[] = {1, 2, 3, 4}, b[] = {5, 6, 7, 8};
    double result[4];
    DenseProduct({a, 2, 2, 2}, {b, 2, 2, 2}, result, 2);
    EXPECT_EQ((std::vector<double>(result, result + 4)), (std::vector<double>{19, 22, 43, 50}));
    // the columns of a: (1 3) and (2 4)
    DenseGram({a, 2, 2, 2}, result, 2);
    EXPECT_EQ((std::vector<double>(result, result + 4)), (std::vector<double>{10, 14, 14, 20}));
}

TEST(DenseProduct, DiagonalIsThatOfTheProduct) {
    for (Index size : {1, 2, 7, 8, 9, 31, 70})
        for (const Values kind : AllValues) {
            const Matrix a(size, size + 3, Draw(kind, 4)), b(size + 3, size, Draw(kind, 5));
            Matrix whole(size, size);
            PlainProduct(a.View(), b.View(), whole.Data(), whole.Stride);
            std::vector<double> expected, diagonal(static_cast<size_t>(size));
            for (Index i = 0; i < size; ++i)
                expected.push_back(whole.Data()[i * whole.Stride + i]);
            DenseProductDiagonal(a.View(), b.View(), diagonal.data());
            EXPECT_EQ(std::memcmp(diagonal.data(), expected.data(), expected.size() * sizeof(double)), 0)
                << size;
        }
}

TEST(DenseProduct, FaultsAreReportedToTheCaller) {
    // 16 rows for 3 workers; only the last one's product leaves the range.
    Matrix a(16, 2, [] { return 1.0; }), b(2, 2, [] { return 1e300; });
    a.Data()[15 * a.Stride] = 1e300;
    OnEveryMachine([&] {
        const Outcome outcome =
            Computed(16, 2, [&](double* to, Index stride) { DenseProduct(a.View(), b.View(), to, stride); });
        EXPECT_TRUE(outcome.Flags & FE_OVERFLOW);
        EXPECT_FALSE(outcome.Flags & (FE_INVALID | FE_DIVBYZERO));
    });
}
