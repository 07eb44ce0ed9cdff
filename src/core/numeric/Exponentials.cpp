#include "core/numeric/Exponentials.h"

#include "core/numeric/Elementary.h"
#include "core/numeric/ExponentialStep.h"
#include "core/numeric/InstructionSet.h"

#include <algorithm>
#include <array>
#include <bit>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

constexpr Index BlockLength = 256;
constexpr Index LanesAtMost = 8;

/// The exponentials of a block of whole vectors; hands back whether any lane of `doubt` is not 0 and has to
/// be worked out anew.
///
/// This is the one body for all instruction sets: it is inlined into functions that carry their attribute.
template <int Bytes>
[[gnu::always_inline]] inline bool QuickBlock(const double* x, Index length, double* result,
                                              long long* doubt) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Unaligned = typename VectorOf<Bytes>::Unaligned;
    using Bits = typename VectorOf<Bytes>::Bits;
    using UnalignedBits = typename VectorOf<Bytes>::UnalignedBits;
    constexpr Index lanes = VectorOf<Bytes>::Lanes;
    // Arguments are told apart by their bits, as whole numbers: the comparison of a NaN would raise a fault.
    // The sign of a difference says which of two is greater.
    constexpr auto sign = std::bit_cast<long long>(-0.0);
    constexpr auto largest = std::bit_cast<long long>(708.0);   // that the quick step takes
    constexpr auto vanishing = std::bit_cast<long long>(745.2); // whose negative has the result 0
    constexpr auto infinity = 0x7FFLL << 52;

    Bits anyDoubt{};
    for (Index i = 0; i < length; i += lanes) {
        const Bits bits = reinterpret_cast<Bits>(*reinterpret_cast<const Unaligned*>(x + i));
        const Bits magnitude = bits & ~sign;
        const Bits isOutside = (largest - magnitude) >> 63; // all bits of a lane, or none
        const Bits isZero = bits & (vanishing - magnitude) & ~(infinity - magnitude);
        QuickResult<Bytes> quick{};
        QuickExponential(reinterpret_cast<Vector>(bits & ~isOutside), quick);
        const Bits others = (quick.Doubt & ~isOutside) | (isOutside & ~isZero & sign);
        *reinterpret_cast<Unaligned*>(result + i) =
            reinterpret_cast<Vector>(reinterpret_cast<Bits>(quick.Value) & ~isOutside);
        *reinterpret_cast<UnalignedBits*>(doubt + i) = others;
        anyDoubt |= others;
    }
    long long any = 0;
    for (Index lane = 0; lane < lanes; ++lane)
        any |= anyDoubt[lane];
    return any != 0;
}

using TakeBlock = bool (*)(const double* x, Index length, double* result, long long* doubt);

#if defined(__x86_64__)
[[gnu::target("avx512f")]] bool QuickBlockAvx512(const double* x, Index length, double* result,
                                                 long long* doubt) {
    return QuickBlock<64>(x, length, result, doubt);
}
[[gnu::target("avx2")]] bool QuickBlockAvx2(const double* x, Index length, double* result, long long* doubt) {
    return QuickBlock<32>(x, length, result, doubt);
}
#endif

TakeBlock ChosenBlock() {
    switch (ChosenInstructionSet()) {
#if defined(__x86_64__)
    case InstructionSet::Avx512:
        return QuickBlockAvx512;
    case InstructionSet::Avx2:
        return QuickBlockAvx2;
#endif
    case InstructionSet::Baseline:
        break;
    }
    return QuickBlock<16>;
}

} // namespace

void Exponentials(const double* x, Index n, double* result) {
    const TakeBlock quickBlock = ChosenBlock();
    std::array<double, BlockLength> arguments{}, values{};
    std::array<long long, BlockLength> doubt{};
    for (Index i = 0; i < n; i += BlockLength) {
        const Index count = std::min(BlockLength, n - i);
        std::copy_n(x + i, count, arguments.begin()); // what stands behind them is of an earlier block, or 0
        double* to = count == BlockLength ? result + i : values.data();
        const Index length = (count + LanesAtMost - 1) / LanesAtMost * LanesAtMost;
        if (quickBlock(arguments.data(), length, to, doubt.data()))
            for (Index at = 0; at < count; ++at)
                if (doubt[static_cast<std::size_t>(at)] != 0)
                    to[at] = Exponential(arguments[static_cast<std::size_t>(at)]);
        if (count < BlockLength) std::copy_n(to, count, result + i);
    }
}

} // namespace vastrel
