// Multiplication where products may lie below the smallest normal number, for the tiles of the dense product.
// There the processor's own takes a detour of a hundred cycles and more; this takes a dozen operations and
// gives the same bits.
#pragma once

#include "core/numeric/FeltSteps.h"
#include "core/numeric/Vectors.h"

#include <cstddef>

namespace vastrel {

/// Factors of faint products stay below this power of two.
constexpr int FaintLimit = 200;

/// x * 2^300 for magnitudes below 2^FaintLimit, without a multiplication: one of a subnormal number would
/// take the detour.
template <int Bytes>
[[gnu::always_inline]] inline void ScaleUp(const double* x, typename VectorOf<Bytes>::Doubles& scaled) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Bits = typename VectorOf<Bytes>::Bits;
    constexpr long long exponent = 1LL << 52;
    const Bits sign = reinterpret_cast<Bits>(-Vector{});
    const Bits one = Bits{} + 301 * exponent; // a leading digit, for the digits of a subnormal number

    const Bits bits = *reinterpret_cast<const typename VectorOf<Bytes>::UnalignedBits*>(x);
    const Bits isSubnormal = (bits & 2047 * exponent) == 0;
    const Vector digits = reinterpret_cast<Vector>((bits & ~sign) | one) - reinterpret_cast<Vector>(one);
    const Bits subnormal = reinterpret_cast<Bits>(digits) | (bits & sign);
    scaled = reinterpret_cast<Vector>((subnormal & isSubnormal) | ((bits + 300 * exponent) & ~isSubnormal));
}

/// Adds the products of one step where some may lie below the smallest normal number. The factors are scaled
/// up, and an addition to `unit`, whose last place then is worth the smallest number there is, rounds a
/// product as the processor would have: the last bits of that sum are the product. That is the one fused
/// operation here; it keeps the product from being rounded twice. The magnitudes of the factors stay below
/// 2^FaintLimit.
template <int Bytes, int Rows, int Vectors>
[[gnu::always_inline]] inline void AddFaintProducts(const double* a, const double* b, const Span& spanOfB,
                                                    double* sums, std::ptrdiff_t stride) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Bits = typename VectorOf<Bytes>::Bits;
    using Unaligned = typename VectorOf<Bytes>::Unaligned;
    constexpr std::ptrdiff_t lanes = VectorOf<Bytes>::Lanes;
    static_assert(Rows == lanes);
    const Vector unit = Vector{} + 0x1p-422;
    const Bits sign = reinterpret_cast<Bits>(-Vector{});

    Vector factors, large[Vectors], magnitude[Vectors];
    ScaleUp<Bytes>(a, factors);
#pragma GCC unroll 16
    for (int v = 0; v < Vectors; ++v) {
        ScaleUp<Bytes>(b + v * lanes, large[v]);
        magnitude[v] = reinterpret_cast<Vector>(reinterpret_cast<Bits>(large[v]) & ~sign);
    }
    for (int i = 0; i < Rows; ++i) {
        const Span spanOfA = SpanOf(a[i]);
        if (AreVoid(spanOfA, spanOfB)) continue;
        if (!HasFaintProducts(spanOfA, spanOfB)) {
#pragma GCC unroll 16
            for (int v = 0; v < Vectors; ++v)
                *reinterpret_cast<Unaligned*>(sums + i * stride + v * lanes) =
                    *reinterpret_cast<const Unaligned*>(sums + i * stride + v * lanes) +
                    *reinterpret_cast<const Unaligned*>(b + v * lanes) * a[i];
            continue;
        }
#pragma GCC unroll 16
        for (int v = 0; v < Vectors; ++v) {
            Vector rounded;
            for (std::ptrdiff_t lane = 0; lane < lanes; ++lane)
                rounded[lane] = __builtin_fma(magnitude[v][lane], __builtin_fabs(factors[i]), unit[lane]);
            const Bits isFaint = rounded < unit + unit;
            const Bits product = reinterpret_cast<Bits>(large[v] * factors[i]);
            const Bits faint =
                (product & sign) | (reinterpret_cast<Bits>(rounded) - reinterpret_cast<Bits>(unit));
            const Vector other = reinterpret_cast<Vector>(product & ~isFaint) * 0x1p-600;
            double* to = sums + i * stride + v * lanes;
            *reinterpret_cast<Unaligned*>(to) =
                *reinterpret_cast<const Unaligned*>(to) +
                reinterpret_cast<Vector>((faint & isFaint) | reinterpret_cast<Bits>(other));
        }
    }
}

} // namespace vastrel
