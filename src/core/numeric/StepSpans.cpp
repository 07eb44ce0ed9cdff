#include "core/numeric/StepSpans.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vastrel {

namespace {

#if defined(__SSE2__)
/// Bits 0 to 15 for 16 steps.
template <typename Compare>
StepSet Compared(const short* a, const short* b, __m128i limits, Compare compare) {
    const auto half = [&](std::ptrdiff_t k) {
        const __m128i sums = _mm_add_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + k)),
                                           _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + k)));
        return compare(sums, limits);
    };
    return static_cast<StepSet>(_mm_movemask_epi8(_mm_packs_epi16(half(0), half(8))));
}
template <typename Compare>
StepSet Steps(const short* a, const short* b, int limit, Compare compare) {
    const __m128i limits = _mm_set1_epi16(static_cast<short>(limit));
    StepSet steps = 0;
    for (std::ptrdiff_t k = 0; k < GroupSteps; k += 16)
        steps |= Compared(a + k, b + k, limits, compare) << k;
    return steps;
}
#else
template <typename Compare>
StepSet Steps(const short* a, const short* b, int limit, Compare compare) {
    StepSet steps = 0;
    for (std::ptrdiff_t k = 0; k < GroupSteps; ++k)
        steps |= static_cast<StepSet>(compare(a[k] + b[k], limit)) << k;
    return steps;
}
#endif

} // namespace

StepSet StepsAbove(const short* a, const short* b, int limit) {
    return Steps(a, b, limit, [](auto sum, auto bound) {
#if defined(__SSE2__)
        return _mm_cmpgt_epi16(sum, bound);
#else
        return sum > bound;
#endif
    });
}

StepSet StepsBelow(const short* a, const short* b, int limit) {
    return Steps(a, b, limit, [](auto sum, auto bound) {
#if defined(__SSE2__)
        return _mm_cmplt_epi16(sum, bound);
#else
        return sum < bound;
#endif
    });
}

} // namespace vastrel
