// Weights of distant Regions are tiny. The steps of a sum of products are told apart by the exponents of
// their factors: those whose products all round to zero can be left out, and those that hold a product below
// the smallest normal number go by another way (FaintProducts.h).
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace vastrel {

/// Factors of faint products stay below this power of two.
constexpr int FaintLimit = 200;

/// Bounds of the magnitudes of some numbers, zeros left out: 2^Least <= |x| < 2^Most. Where there are none
/// but zeros, or infinities and NaNs, the bounds lie beyond every power.
struct Span {
    short Least = Beyond, Most = -Beyond;
    static constexpr short Beyond = 10000;
};

inline Span SpanOf(const double* values, std::ptrdiff_t count) {
    constexpr std::uint64_t magnitude = ~std::uint64_t{0} >> 1;
    std::uint64_t leastLessOne = ~std::uint64_t{0}, most = 0;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        const std::uint64_t bits = std::bit_cast<std::uint64_t>(values[i]) & magnitude;
        leastLessOne = std::min(leastLessOne, bits - 1); // a zero turns into the greatest number
        most = std::max(most, bits);
    }
    if (most == 0) return {};
    const auto exponent = [](std::uint64_t bits) {
        return static_cast<short>(static_cast<int>(bits >> 52) - 1023);
    };
    const short least = exponent(leastLessOne + 1), greatest = exponent(most);
    return {least == -1023 ? short{-1074} : least,
            greatest == 1024 ? Span::Beyond : static_cast<short>(greatest + 1)};
}

inline bool HasFaintProducts(const Span& a, const Span& b) {
    return a.Least + b.Least < -1022;
}

/// What the products of a step are: too small to be felt, some below the smallest normal number, or neither.
enum class Step { Void, Faint, Ordinary };

inline Step StepOf(const Span& a, const Span& b) {
    if (a.Most + b.Most <= -1075) return Step::Void; // each rounds to zero, and no sum stands at -0
    return HasFaintProducts(a, b) && std::max(a.Most, b.Most) <= FaintLimit ? Step::Faint : Step::Ordinary;
}

} // namespace vastrel
