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

/// A number as it is.
struct Plain {
    template <typename Number>
    [[gnu::always_inline]] void TakeArgument(const Number& x, Number& argument) const {
        argument = x;
    }
    template <typename Number>
    [[gnu::always_inline]] void TakeValue(const Number& exponential, Number& value) const {
        value = exponential;
    }
};

/// A squared distance under a kernel.
struct Gaussian {
    double Spread, Peak;

    template <typename Number>
    [[gnu::always_inline]] void TakeArgument(const Number& x, Number& argument) const {
        argument = -x / Spread;
    }
    template <typename Number>
    [[gnu::always_inline]] void TakeValue(const Number& exponential, Number& value) const {
        value = Peak * exponential;
    }
};

/// What the quick way through a block leaves for the slow one.
struct BlockRest {
    std::array<double, BlockLength> Arguments{};
    std::array<long long, BlockLength> Doubt{}; // not 0 where the value has to be worked out anew
};

/// The values of a block of whole vectors; hands back whether any of them is in doubt.
///
/// This is the one body for all instruction sets: it is inlined into functions that carry their attribute.
template <int Bytes, typename Around>
[[gnu::always_inline]] inline bool QuickBlock(const double* x, Index length, const Around& around,
                                              double* result, BlockRest& rest) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Unaligned = typename VectorOf<Bytes>::Unaligned;
    using Bits = typename VectorOf<Bytes>::Bits;
    using UnalignedBits = typename VectorOf<Bytes>::UnalignedBits;
    constexpr Index lanes = VectorOf<Bytes>::Lanes;
    // Arguments are told apart by their bits, as whole numbers: the comparison of a NaN would raise a fault.
    // The sign of a difference says which of two is greater.
    constexpr auto sign = std::bit_cast<long long>(-0.0), one = std::bit_cast<long long>(1.0);
    constexpr auto largest = std::bit_cast<long long>(708.0);   // that the quick step takes
    constexpr auto vanishing = std::bit_cast<long long>(745.2); // whose negative has the result 0
    constexpr auto infinity = 0x7FFLL << 52;

    Bits anyDoubt{};
    for (Index i = 0; i < length; i += lanes) {
        const Vector number = *reinterpret_cast<const Unaligned*>(x + i);
        Vector argument;
        around.TakeArgument(number, argument);
        *reinterpret_cast<Unaligned*>(rest.Arguments.data() + i) = argument;
        const Bits bits = reinterpret_cast<Bits>(argument);
        const Bits magnitude = bits & ~sign;
        const Bits isOutside = (largest - magnitude) >> 63; // all bits of a lane, or none
        const Bits isZero = bits & (vanishing - magnitude) & ~(infinity - magnitude);
        QuickResult<Bytes> quick{};
        QuickExponential(reinterpret_cast<Vector>(bits & ~isOutside), quick);
        const Bits others = (quick.Doubt & ~isOutside) | (isOutside & ~isZero & sign);
        // A lane that is worked out anew has the exponential 1 until then, which raises no fault in a
        // product.
        const Bits isOpen = others != 0;
        const Bits known = reinterpret_cast<Bits>(quick.Value) & ~isOutside & ~isOpen;
        Vector value;
        around.TakeValue(reinterpret_cast<Vector>(known | (one & isOpen)), value);
        *reinterpret_cast<Unaligned*>(result + i) = value;
        *reinterpret_cast<UnalignedBits*>(rest.Doubt.data() + i) = others;
        anyDoubt |= others;
    }
    long long any = 0;
    for (Index lane = 0; lane < lanes; ++lane)
        any |= anyDoubt[lane];
    return any != 0;
}

template <typename Around>
using TakeBlock = bool (*)(const double* x, Index length, const Around& around, double* result,
                           BlockRest& rest);

#if defined(__x86_64__)
template <typename Around>
[[gnu::target("avx512f")]] bool QuickBlockAvx512(const double* x, Index length, const Around& around,
                                                 double* result, BlockRest& rest) {
    return QuickBlock<64>(x, length, around, result, rest);
}
template <typename Around>
[[gnu::target("avx2")]] bool QuickBlockAvx2(const double* x, Index length, const Around& around,
                                            double* result, BlockRest& rest) {
    return QuickBlock<32>(x, length, around, result, rest);
}
#endif

template <typename Around>
TakeBlock<Around> ChosenBlock() {
    switch (ChosenInstructionSet()) {
#if defined(__x86_64__)
    case InstructionSet::Avx512:
        return QuickBlockAvx512<Around>;
    case InstructionSet::Avx2:
        return QuickBlockAvx2<Around>;
#endif
    case InstructionSet::Baseline:
        break;
    }
    return QuickBlock<16, Around>;
}

template <typename Around>
void TakeValues(const double* x, Index n, const Around& around, double* result) {
    const TakeBlock<Around> quickBlock = ChosenBlock<Around>();
    BlockRest rest;
    const auto takeBlock = [&](const double* from, Index length, double* to) {
        if (!quickBlock(from, length, around, to, rest)) return;
        for (std::size_t at = 0; at < static_cast<std::size_t>(length); ++at)
            if (rest.Doubt[at] != 0) around.TakeValue(Exponential(rest.Arguments[at]), to[at]);
    };
    const Index ofWholeBlocks = n / BlockLength * BlockLength, left = n - ofWholeBlocks;
    for (Index i = 0; i < ofWholeBlocks; i += BlockLength)
        takeBlock(x + i, BlockLength, result + i);
    if (left == 0) return;
    // Copies of the last number fill up the last vector: they raise no fault that it does not.
    std::array<double, BlockLength> numbers{}, values{};
    std::fill(std::copy_n(x + ofWholeBlocks, left, numbers.begin()), numbers.end(), x[n - 1]);
    takeBlock(numbers.data(), (left + LanesAtMost - 1) / LanesAtMost * LanesAtMost, values.data());
    std::copy_n(values.begin(), left, result + ofWholeBlocks);
}

} // namespace

void Exponentials(const double* x, Index n, double* result) {
    TakeValues(x, n, Plain{}, result);
}

void GaussianValues(const double* x, Index n, double spread, double peak, double* result) {
    TakeValues(x, n, Gaussian{spread, peak}, result);
}

} // namespace vastrel
