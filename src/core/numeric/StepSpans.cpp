#include "core/numeric/StepSpans.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vastrel {

namespace {

#if defined(__SSE2__)
using Shorts [[gnu::vector_size(16)]] = short;
using Unaligned [[gnu::vector_size(16), gnu::aligned(sizeof(short)), gnu::may_alias]] = short;

/// 16 steps at a time, whose comparisons come out as a bit each.
template <typename Compare>
StepSet Steps(const short* a, const short* b, int limit, Compare compare) {
    const Shorts limits = Shorts{} + static_cast<short>(limit);
    const auto eight = [&](std::ptrdiff_t k) {
        const Shorts sums =
            *reinterpret_cast<const Unaligned*>(a + k) + *reinterpret_cast<const Unaligned*>(b + k);
        return reinterpret_cast<__m128i>(compare(sums, limits));
    };
    StepSet steps = 0;
    for (std::ptrdiff_t k = 0; k < GroupSteps; k += 16)
        steps |= static_cast<StepSet>(_mm_movemask_epi8(_mm_packs_epi16(eight(k), eight(k + 8)))) << k;
    return steps;
}
#else
template <typename Compare>
StepSet Steps(const short* a, const short* b, int limit, Compare compare) {
    StepSet steps = 0;
    for (std::ptrdiff_t k = 0; k < GroupSteps; ++k)
        steps |= static_cast<StepSet>(compare(a[k] + b[k], limit) ? 1 : 0) << k;
    return steps;
}
#endif

} // namespace

StepSet StepsAbove(const short* a, const short* b, int limit) {
    return Steps(a, b, limit, [](auto sum, auto bound) { return sum > bound; });
}

StepSet StepsBelow(const short* a, const short* b, int limit) {
    return Steps(a, b, limit, [](auto sum, auto bound) { return sum < bound; });
}

} // namespace vastrel
