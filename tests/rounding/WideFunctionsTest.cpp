// The error bounds that the rounding of a result builds upon, against MPFR with 600 bits.
#include "core/numeric/ElementarySupport.h"
#include "rounding/Arguments.h"

#include <gtest/gtest.h>
#include <mpfr.h>

using namespace vastrel;

namespace {

constexpr int Count = 20000;

class Exact {
public:
    explicit Exact(double value) {
        mpfr_set_emin(mpfr_get_emin_min()); // other tests narrow them
        mpfr_set_emax(mpfr_get_emax_max());
        mpfr_init2(x_, 600);
        mpfr_set_d(x_, value, MPFR_RNDN);
    }
    ~Exact() { mpfr_clear(x_); }
    Exact(const Exact&) = delete;
    Exact& operator=(const Exact&) = delete;

    Exact& Apply(int (*function)(mpfr_t, const mpfr_t, mpfr_rnd_t)) {
        function(x_, x_, MPFR_RNDN);
        return *this;
    }

    /// How far a wide number lies away, as a power of two, beside the power that the number carries.
    template <int Words>
    long DistanceTo(const WideNumber<Words>& number) const {
        mpfr_t other;
        mpfr_init2(other, 600);
        mpfr_set_zero(other, 1);
        for (int i = 0; i < Words; ++i) {
            mpfr_mul_2si(other, other, 64, MPFR_RNDN);
            mpfr_add_ui(other, other, number.Magnitude.Word[Words - 1 - i], MPFR_RNDN);
        }
        mpfr_mul_2si(other, other, -WideFixed<Words>::FractionBits + number.Exponent, MPFR_RNDN);
        if (number.IsNegative) mpfr_neg(other, other, MPFR_RNDN);
        mpfr_sub(other, other, x_, MPFR_RNDN);
        const long exponent = mpfr_zero_p(other) ? -10000 : mpfr_get_exp(other) - number.Exponent;
        mpfr_clear(other);
        return exponent;
    }

private:
    mpfr_t x_;
};

template <int Words>
void ExpectWithinTheBound() {
    Arguments random(7);
    long exponential = -10000, logarithm = -10000, arcTangent = -10000;
    for (int i = 0; i < Count; ++i) {
        const double t = i % 2 == 0 ? random.Between(0, 1000) : random.OfBinades(-59, 10);
        for (const double sign : {1.0, -1.0})
            exponential = std::max(exponential, Exact(sign * t).Apply(mpfr_exp).DistanceTo(
                                                    WideExponential(WideOf<Words>(PartsOf(t)), sign < 0)));
        const double x = i % 2 == 0 ? random.AnyPositive() : 1 + random.OfBinades(-52, 3);
        logarithm =
            std::max(logarithm, Exact(x).Apply(mpfr_log).DistanceTo(WideLogarithm<Words>(PartsOf(x))));
        const double y = random.OfBinades(-28, 60);
        arcTangent =
            std::max(arcTangent, Exact(y).Apply(mpfr_atan).DistanceTo(WideArcTangent<Words>(PartsOf(y))));
    }
    EXPECT_LE(exponential, -ErrorBits<Words>);
    EXPECT_LE(logarithm, -ErrorBits<Words>);
    EXPECT_LE(arcTangent, -ErrorBits<Words>);
}

} // namespace

TEST(WideFunctions, KeepTheirBoundsInThreeWords) {
    ExpectWithinTheBound<3>();
}

TEST(WideFunctions, KeepTheirBoundsInSixWords) {
    ExpectWithinTheBound<6>();
}

TEST(WideFixed, RoundsTiesToEvenAndIsInDoubtThere) {
    const auto at = [](std::uint64_t mantissa) { return WideFixed<3>::Integer(mantissa); };
    const std::uint64_t ulps = std::uint64_t{1} << 53; // of integers from here on: 2
    EXPECT_EQ(std::bit_cast<double>(NearestBits(at(ulps + 1), 0)), 0x1p53);
    EXPECT_EQ(std::bit_cast<double>(NearestBits(at(ulps + 3), 0)), 0x1p53 + 4);
    EXPECT_EQ(std::bit_cast<double>(NearestBits(at(3), -1075)), 2 * 0x1p-1074); // 1.5 of the smallest
    EXPECT_EQ(std::bit_cast<double>(NearestBits(at(1), -1075)), 0);
    EXPECT_EQ(std::bit_cast<double>(NearestBits(at(1), -1076)), 0);
    EXPECT_EQ(NearestBits(at((std::uint64_t{1} << 54) - 1), 970), std::uint64_t{0x7FF} << 52);
    EXPECT_FALSE(NearestBitsIfSure(WideNumber<3>{at(ulps + 1), 0, false}, 100));
    EXPECT_TRUE(NearestBitsIfSure(WideNumber<3>{at(ulps + 2), 0, false}, 100));
}
