// Sums that feel no term below 2^-960, since they are so much larger themselves. Such terms may be taken for
// zero (FaintFlush.h).
#pragma once

#include "core/numeric/Vectors.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace vastrel {

/// How a sum takes terms below 2^-960.
enum class FaintTerms {
    Told,            // exactly
    Flushed,         // as zero where the sum does not feel them
    FlushedOfOneSign // the same; no term is negative, so that sums only grow
};

namespace faint {

constexpr auto Sign = std::bit_cast<long long>(-0.0);
constexpr auto Limit = std::bit_cast<long long>(0x1p-900); // of a last place that is worth 2^-952

} // namespace faint

/// Whether any of these sums is below 2^-900 and so may feel a faint term. It compares their bits, since a
/// comparison of a NaN would be a fault.
inline bool AnyIsFaint(const double* sums, std::ptrdiff_t count) {
    return std::any_of(sums, sums + count, [](double sum) {
        return (std::bit_cast<long long>(sum) & ~faint::Sign) < faint::Limit;
    });
}

/// Hands sums on and notes whether any of them was faint; or hands them on alone.
template <bool IsOn>
class FaintWatch {
public:
    using Sums = VectorOf<16>::Unaligned;

    Sums operator()(Sums sums) {
        if constexpr (IsOn)
            below_ |= (reinterpret_cast<VectorOf<16>::Bits>(sums) & ~faint::Sign) - faint::Limit;
        return sums;
    }
    double operator()(double sum) { return (*this)(Sums{sum, sum})[0]; }

    bool SawFaint() const { return (below_[0] | below_[1]) < 0; }

private:
    VectorOf<16>::Bits below_{}; // the sign of a lane tells
};

} // namespace vastrel
