#include "core/numeric/Tiles.h"

#include "core/numeric/FaintProducts.h"
#include "core/numeric/Vectors.h"

#include <algorithm>
#include <iterator>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

/// Adds `depth` products to each of Rows x Vectors sums, vectors of Bytes each. `a` holds Rows elements for
/// every k, `b` a row of the tile's width for every k.
///
/// This is the one body for all instruction sets: it is inlined into functions that carry their attribute.
template <int Bytes, int Rows, int Vectors>
[[gnu::always_inline]] inline void AddProducts(const double* a, const double* b, Index depth, double* result,
                                               Index stride) {
    using Vector = typename VectorOf<Bytes>::Doubles;
    using Unaligned = typename VectorOf<Bytes>::Unaligned;
    constexpr Index lanes = VectorOf<Bytes>::Lanes;

    Vector sum[Rows][Vectors];
#pragma GCC unroll 16
    for (int i = 0; i < Rows; ++i)
#pragma GCC unroll 16
        for (int v = 0; v < Vectors; ++v)
            sum[i][v] = *reinterpret_cast<const Unaligned*>(result + i * stride + v * lanes);
    // The next tile stands below this one; a prefetch past the end of the result does nothing.
    for (int i = Rows; i < 2 * Rows; ++i)
        for (int v = 0; v < Vectors; ++v)
            __builtin_prefetch(result + i * stride + v * lanes);
    for (Index k = 0; k < depth; ++k, a += Rows, b += Vectors * lanes)
#pragma GCC unroll 16
        for (int i = 0; i < Rows; ++i)
#pragma GCC unroll 16
            for (int v = 0; v < Vectors; ++v)
                sum[i][v] = sum[i][v] + *reinterpret_cast<const Unaligned*>(b + v * lanes) * a[i];
#pragma GCC unroll 16
    for (int i = 0; i < Rows; ++i)
#pragma GCC unroll 16
        for (int v = 0; v < Vectors; ++v)
            *reinterpret_cast<Unaligned*>(result + i * stride + v * lanes) = sum[i][v];
}

#if defined(__x86_64__)
[[gnu::target("avx512f")]] void AddProductsAvx512(const double* a, const double* b, Index depth,
                                                  double* result, Index stride) {
    AddProducts<64, 8, 3>(a, b, depth, result, stride);
}
[[gnu::target("avx512f")]] void AddFaintProductsAvx512(const double* a, const double* b, Index depth,
                                                       double* result, Index stride) {
    AddFaintProducts<64, 8, 3>(a, b, depth, result, stride);
}
[[gnu::target("avx2")]] void AddProductsAvx2(const double* a, const double* b, Index depth, double* result,
                                             Index stride) {
    AddProducts<32, 4, 2>(a, b, depth, result, stride);
}
[[gnu::target("avx2,fma")]] void AddFaintProductsAvx2(const double* a, const double* b, Index depth,
                                                      double* result, Index stride) {
    AddFaintProducts<32, 4, 2>(a, b, depth, result, stride);
}
#endif
void AddProductsBaseline(const double* a, const double* b, Index depth, double* result, Index stride) {
    AddProducts<16, 4, 2>(a, b, depth, result, stride);
}

constexpr Tile Tiles[] = {
#if defined(__x86_64__)
    {InstructionSet::Avx512, 8, 24, AddProductsAvx512, AddFaintProductsAvx512},
    {InstructionSet::Avx2, 4, 8, AddProductsAvx2, AddFaintProductsAvx2},
#endif
    {InstructionSet::Baseline, 4, 4, AddProductsBaseline, AddProductsBaseline},
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
