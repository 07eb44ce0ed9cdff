#include "core/numeric/Tiles.h"

#include "core/numeric/FaintProducts.h"
#include "core/numeric/Vectors.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <limits>
#include <utility>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

// These are the one body for all instruction sets: they are inlined into functions that carry the attribute.

/// Adds the products of the felt steps to Rows x Vectors sums, vectors of Bytes each.
template <int Bytes, int Rows, int Vectors>
[[gnu::always_inline]] inline void AddProducts(const double* a, const double* b, const StepSet* felt,
                                               Index groups, double* sums, Index stride) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Unaligned = typename VectorOf<Bytes>::Unaligned;
    constexpr Index lanes = VectorOf<Bytes>::Lanes;

    Vector sum[Rows][Vectors];
#pragma GCC unroll 16
    for (int i = 0; i < Rows; ++i)
#pragma GCC unroll 16
        for (int v = 0; v < Vectors; ++v)
            sum[i][v] = *reinterpret_cast<const Unaligned*>(sums + i * stride + v * lanes);
    // The tiles below this one come next; a prefetch past the end of the result does nothing.
    for (int i = Rows; i < 2 * Rows; ++i)
        for (int v = 0; v < Vectors; ++v)
            __builtin_prefetch(sums + i * stride + v * lanes);
    const auto add = [&sum](const double* row, const double* column) __attribute__((always_inline)) {
#pragma GCC unroll 16
        for (int i = 0; i < Rows; ++i)
#pragma GCC unroll 16
            for (int v = 0; v < Vectors; ++v)
                sum[i][v] = sum[i][v] + *reinterpret_cast<const Unaligned*>(column + v * lanes) * row[i];
    };
    for (Index group = 0; group < groups; ++group, a += GroupSteps * Rows, b += GroupSteps * Vectors * lanes)
        if (felt[group] == ~StepSet{0})
            for (Index k = 0; k < GroupSteps; ++k) {
#pragma GCC unroll 16
                for (int v = 0; v < Vectors; ++v)
                    __builtin_prefetch(b + (k + 16) * Vectors * lanes + v * lanes);
                add(a + k * Rows, b + k * Vectors * lanes);
            }
        else
            for (StepSet left = felt[group]; left != 0; left &= left - 1) {
                const Index k = std::countr_zero(left);
                add(a + k * Rows, b + k * Vectors * lanes);
            }
#pragma GCC unroll 16
    for (int i = 0; i < Rows; ++i)
#pragma GCC unroll 16
        for (int v = 0; v < Vectors; ++v)
            *reinterpret_cast<Unaligned*>(sums + i * stride + v * lanes) = sum[i][v];
}

template <int Bytes, int Rows, int Vectors>
[[gnu::always_inline]] inline SumSpan SpanOfSums(const double* sums, Index stride) {
    using Bits = typename VectorOf<Bytes>::Bits;
    using Unaligned = typename VectorOf<Bytes>::UnalignedBits;
    constexpr Index lanes = VectorOf<Bytes>::Lanes;
    constexpr long long magnitude = std::numeric_limits<long long>::max();

    Bits least = Bits{} + magnitude, anySign{}, everySign = ~Bits{};
#pragma GCC unroll 16
    for (int i = 0; i < Rows; ++i)
#pragma GCC unroll 16
        for (int v = 0; v < Vectors; ++v) {
            const Bits bits = *reinterpret_cast<const Unaligned*>(sums + i * stride + v * lanes);
            const Bits size = bits & magnitude;
            least = size < least ? size : least;
            anySign |= bits;
            everySign &= bits;
        }
    SumSpan span;
    long long smallest = magnitude;
    for (Index lane = 0; lane < lanes; ++lane) {
        smallest = std::min<long long>(smallest, least[lane]);
        span.Negative |= anySign[lane] < 0;
        span.Positive |= everySign[lane] >= 0;
    }
    if (smallest >= 1LL << 52) span.Least = static_cast<short>((smallest >> 52) - 1023);
    return span;
}

/// Every lane exchanged with the one so many lanes apart.
template <int Bytes, int Apart, int... Lane>
[[gnu::always_inline]] inline void Exchange(const typename VectorOf<Bytes>::Bits& numbers,
                                            std::integer_sequence<int, Lane...>,
                                            typename VectorOf<Bytes>::Bits& exchanged) {
    exchanged = __builtin_shufflevector(numbers, numbers, (Lane ^ Apart)...);
}

/// The least number of lanes 0 to 2 * Apart - 1, where the others hold the same again.
template <int Bytes, int Apart = static_cast<int>(VectorOf<Bytes>::Lanes / 2)>
[[gnu::always_inline]] inline long long LeastOfLanes(const typename VectorOf<Bytes>::Bits& numbers) {
    if constexpr (Apart == 0) {
        return numbers[0];
    } else {
        typename VectorOf<Bytes>::Bits others;
        Exchange<Bytes, Apart>(
            numbers, std::make_integer_sequence<int, static_cast<int>(VectorOf<Bytes>::Lanes)>{}, others);
        return LeastOfLanes<Bytes, Apart / 2>(others < numbers ? others : numbers);
    }
}

/// SpanOf, a vector at a time. The numbers are compared by their bits, as whole numbers.
template <int Bytes>
[[gnu::always_inline]] inline Span SpanOfStep(const double* numbers, Index width) {
    using Bits = typename VectorOf<Bytes>::Bits;
    using Unaligned = typename VectorOf<Bytes>::UnalignedBits;
    constexpr long long magnitude = std::numeric_limits<long long>::max();

    // What is greatest is the least of the complements.
    Bits leastSize = Bits{} + magnitude, mostSize = ~Bits{}, leastBits = leastSize, mostBits = leastSize;
    for (Index x = 0; x < width; x += VectorOf<Bytes>::Lanes) {
        const Bits bits = *reinterpret_cast<const Unaligned*>(numbers + x);
        const Bits size = bits & magnitude;
        const Bits unlessZero = size == 0 ? Bits{} + magnitude : size;
        leastSize = unlessZero < leastSize ? unlessZero : leastSize;
        mostSize = ~size < mostSize ? ~size : mostSize;
        leastBits = bits < leastBits ? bits : leastBits;
        mostBits = ~bits < mostBits ? ~bits : mostBits;
    }
    return SpanOfBits(LeastOfLanes<Bytes>(leastSize), ~LeastOfLanes<Bytes>(mostSize),
                      LeastOfLanes<Bytes>(leastBits) < 0, ~LeastOfLanes<Bytes>(mostBits) > 0);
}

#if defined(__x86_64__)
[[gnu::target("avx512f")]] void AddProductsAvx512(const double* a, const double* b, const StepSet* felt,
                                                  Index groups, double* sums, Index stride) {
    AddProducts<64, 8, 3>(a, b, felt, groups, sums, stride);
}
[[gnu::target("avx512f")]] void AddFaintProductsAvx512(const double* a, const double* b, const Span& spanOfB,
                                                       double* sums, Index stride) {
    AddFaintProducts<64, 8, 3>(a, b, spanOfB, sums, stride);
}
[[gnu::target("avx512f")]] SumSpan SpanOfSumsAvx512(const double* sums, Index stride) {
    return SpanOfSums<64, 8, 3>(sums, stride);
}
[[gnu::target("avx512f")]] Span SpanOfStepAvx512(const double* numbers, Index width) {
    return SpanOfStep<64>(numbers, width);
}
[[gnu::target("avx2")]] void AddProductsAvx2(const double* a, const double* b, const StepSet* felt,
                                             Index groups, double* sums, Index stride) {
    AddProducts<32, 4, 2>(a, b, felt, groups, sums, stride);
}
[[gnu::target("avx2,fma")]] void AddFaintProductsAvx2(const double* a, const double* b, const Span& spanOfB,
                                                      double* sums, Index stride) {
    AddFaintProducts<32, 4, 2>(a, b, spanOfB, sums, stride);
}
[[gnu::target("avx2")]] SumSpan SpanOfSumsAvx2(const double* sums, Index stride) {
    return SpanOfSums<32, 4, 2>(sums, stride);
}
[[gnu::target("avx2")]] Span SpanOfStepAvx2(const double* numbers, Index width) {
    return SpanOfStep<32>(numbers, width);
}
#endif
void AddProductsBaseline(const double* a, const double* b, const StepSet* felt, Index groups, double* sums,
                         Index stride) {
    AddProducts<16, 4, 2>(a, b, felt, groups, sums, stride);
}
/// The processor's own way: these vectors have no fused operation to round with.
void AddFaintProductsBaseline(const double* a, const double* b, const Span&, double* sums, Index stride) {
    const StepSet first = 1;
    AddProductsBaseline(a, b, &first, 1, sums, stride);
}
SumSpan SpanOfSumsBaseline(const double* sums, Index stride) {
    return SpanOfSums<16, 4, 2>(sums, stride);
}
Span SpanOfStepBaseline(const double* numbers, Index width) {
    return SpanOfStep<16>(numbers, width);
}

constexpr Tile Tiles[] = {
#if defined(__x86_64__)
    {InstructionSet::Avx512, 8, 24, AddProductsAvx512, AddFaintProductsAvx512, SpanOfSumsAvx512,
     SpanOfStepAvx512},
    {InstructionSet::Avx2, 4, 8, AddProductsAvx2, AddFaintProductsAvx2, SpanOfSumsAvx2, SpanOfStepAvx2},
#endif
    {InstructionSet::Baseline, 4, 4, AddProductsBaseline, AddFaintProductsBaseline, SpanOfSumsBaseline,
     SpanOfStepBaseline},
};

static_assert(std::all_of(std::begin(Tiles), std::end(Tiles),
                          [](const Tile& tile) { return tile.Rows * tile.Columns <= LargestTile; }));

} // namespace

const Tile& ChosenTile() {
    const InstructionSet set = ChosenInstructionSet();
    return *std::find_if(std::begin(Tiles), std::end(Tiles),
                         [set](const Tile& tile) { return tile.Set == set; });
}

} // namespace vastrel
