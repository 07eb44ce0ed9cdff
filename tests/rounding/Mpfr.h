#pragma once

#include <mpfr.h>

#include <cmath>

namespace vastrel {

/// The double nearest to a function's exact value, as the MPFR library has it: 53 bits, the exponents of
/// doubles, and one rounding only where the result is subnormal.
class NearestByMpfr {
public:
    NearestByMpfr() {
        mpfr_set_emin(-1073);
        mpfr_set_emax(1024);
        mpfr_inits2(53, x_, y_, result_, nullptr);
    }
    ~NearestByMpfr() { mpfr_clears(x_, y_, result_, nullptr); }
    NearestByMpfr(const NearestByMpfr&) = delete;
    NearestByMpfr& operator=(const NearestByMpfr&) = delete;

    double Exponential(double x) { return Of(mpfr_exp, x); }
    double Logarithm(double x) { return Of(mpfr_log, x); }
    double ArcTangent(double x) { return Of(mpfr_atan, x); }
    double Power(double x, double y) {
        mpfr_set_d(x_, x, MPFR_RNDN);
        mpfr_set_d(y_, y, MPFR_RNDN);
        return Rounded(mpfr_pow(result_, x_, y_, MPFR_RNDN));
    }

private:
    double Of(int (*function)(mpfr_t, const mpfr_t, mpfr_rnd_t), double x) {
        mpfr_set_d(x_, x, MPFR_RNDN);
        return Rounded(function(result_, x_, MPFR_RNDN));
    }
    double Rounded(int direction) {
        mpfr_subnormalize(result_, direction, MPFR_RNDN);
        return mpfr_get_d(result_, MPFR_RNDN);
    }

    mpfr_t x_, y_, result_;
};

} // namespace vastrel
