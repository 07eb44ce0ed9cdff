// The dense kernel: sums over k of products of elements of two matrices, as fast as the processor's vectors
// go, without a change in any bit.
//
// The order of a sum fixes only what happens within one element. Which elements advance together is free, and
// the blocking below lives from that:
//
//                                               b, or the second w
//                                        .---------------------------.
//                                      k |                           |
//                                        |===========================| DepthBlock rows, packed into panels
//                                        |===========================| of the tile's width: outer cache
//                                        |            .--.           |
//               a, or the first w        '------------|  |-----------'
//             .---------===-------.      .------------|  |-----------.
//             |         ===       |      |            |  | one panel of b: inner cache
//             |---------===-------|      |------------|--|-----------|
//           i |         ###  <- RowBlock rows,        |##| <- one tile of the result: its sums stand
//             |         ###     packed into panels    |  |    in registers while k runs down the two
//             |---------###-------|     of the tile's |--|    panels and every step adds one column of a
//             |    k    ===       |     height:       |  |    times one row of b
//             '---------===-------'     middle cache -'--'-----------'
//
//   for every block of k, ascending:   pack b's rows of the block
//     for every block of rows i:       pack a's piece
//       for every panel of b, for every panel of a:   run the tile; it goes on from the sums of the last
//       block
//
// At the right and lower edge a panel is filled up with copies of its last column or row. A tile then
// computes some elements twice over and drops the copies; zeros in their place could raise faults (0 *
// infinity) that the matrices do not hold.
//
// Weights of distant Regions are tiny. A product below the smallest normal number takes the processor a
// detour of a hundred cycles and more, so the steps of a tile are told apart by the exponents of its panels:
// those whose products all round to zero are left out, and those that hold such a product go by another way
// to the same bits.
//
// The rows of the result are split over threads; each packs for itself. Of the Gram matrix only tiles that
// reach the diagonal or lie right of it are computed: a product has the same bits with its operands swapped,
// so that the other half is a mirror image.

#include "core/numeric/DenseKernel.h"

#include "core/numeric/FaintProducts.h"
#include "core/numeric/RowWorkers.h"
#include "core/platform/RunTimeError.h"
#include "core/workspace/Arrays.h"

#include <algorithm>
#include <atomic>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

constexpr Index DepthBlock = 384; // as long as a panel of a fits the inner cache beside the running one of b
constexpr Index RowBlock = 144;   // the packed piece of a fills half of a middle cache; whole tiles
constexpr Index ColumnBlock = 1536; // the packed rows of b stay in the outer cache; whole tiles

// ---- The tile

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

using AddSteps = void (*)(const double* a, const double* b, Index depth, double* result, Index stride);

struct Tile {
    const char* InstructionSet;
    bool (*IsOffered)();
    Index Rows, Columns;
    AddSteps AddProducts, AddFaintProducts;
};

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

/// The widest first.
constexpr Tile Tiles[] = {
#if defined(__x86_64__)
    {"avx512", [] { return __builtin_cpu_supports("avx512f") != 0; }, 8, 24, AddProductsAvx512,
     AddFaintProductsAvx512},
    {"avx2", [] { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"); }, 4, 8,
     AddProductsAvx2, AddFaintProductsAvx2},
#endif
    {"baseline", [] { return true; }, 4, 4, AddProductsBaseline, AddProductsBaseline},
};

std::atomic<const Tile*> forcedTile = nullptr;

const Tile& ChosenTile() {
    if (const Tile* forced = forcedTile) return *forced;
    return *std::find_if(std::begin(Tiles), std::end(Tiles),
                         [](const Tile& tile) { return tile.IsOffered(); });
}

// ---- Packing

using PackedDoubles = std::vector<double, AlignedAllocator<double>>;

constexpr Index RoundedUp(Index n, Index step) {
    return (n + step - 1) / step * step;
}

/// One of the two matrices as the sums see it: a series of `Count` vectors along k. Element k of vector x
/// lies at Data[x * Across + k * Along].
struct Operand {
    const double* Data;
    Index Count;
    Index Across;
    Index Along;
};

/// Copies elements k0..k1-1 of vectors first..last-1 into panels of `width` vectors, k by k; the last panel
/// is filled up with copies of its last vector.
void PackPanels(const Operand& from, Index first, Index last, Index k0, Index k1, Index width, double* to) {
    for (Index x0 = first; x0 < last; x0 += width) {
        const double* panel = from.Data + x0 * from.Across;
        const Index count = std::min(width, last - x0);
        for (Index k = k0; k < k1; ++k, to += width) {
            const double* step = panel + k * from.Along;
            for (Index x = 0; x < count; ++x)
                to[x] = step[x * from.Across];
            std::fill(to + count, to + width, to[count - 1]);
        }
    }
}

// ---- Faint steps

/// The span of vectors first..last-1 of an operand.
Span SpanOfVectors(const Operand& of, Index first, Index last, Index depth) {
    const bool inRows = of.Along == 1;
    Span span;
    for (Index i = inRows ? first : 0; i < (inRows ? last : depth); ++i) {
        const double* row = inRows ? of.Data + i * of.Across : of.Data + i * of.Along + first;
        const Span other = SpanOf(row, inRows ? depth : last - first);
        span = {std::min(span.Least, other.Least), std::max(span.Most, other.Most)};
    }
    return span;
}

/// Panels of one width with the spans of their steps; the spans only where they matter.
class PanelBlock {
public:
    PanelBlock(Index depth, Index count, Index width, bool withSpans)
        : width_(width), panels_(static_cast<size_t>(depth * RoundedUp(count, width))),
          spans_(withSpans ? panels_.size() / static_cast<size_t>(width) : 0) {}

    void Pack(const Operand& from, Index first, Index last, Index k0, Index k1) {
        PackPanels(from, first, last, k0, k1, width_, panels_.data());
        depth_ = k1 - k0;
        if (spans_.empty()) return;
        const Index steps = RoundedUp(last - first, width_) / width_ * depth_;
        for (Index step = 0; step < steps; ++step)
            spans_[static_cast<size_t>(step)] = SpanOf(panels_.data() + step * width_, width_);
    }

    /// The panel that begins with the block's vector x.
    const double* Panel(Index x) const { return panels_.data() + x * depth_; }
    const Span* Spans(Index x) const {
        return spans_.empty() ? nullptr : spans_.data() + x / width_ * depth_;
    }

private:
    Index width_, depth_ = 0;
    PackedDoubles panels_;
    std::vector<Span> spans_;
};

// ---- The sums

enum class Part { Whole, UpperTriangle };

/// The sums of some rows of the result.
class RowSums {
public:
    RowSums(const Operand& a, const Operand& b, Index depth, Part part, double* result, Index stride)
        : a_(a), b_(b), depth_(depth), part_(part), result_(result), stride_(stride), tile_(ChosenTile()) {}

    void Compute(RowRange rows) const {
        for (Index i = rows.First; i < rows.Last; ++i)
            std::fill_n(result_ + i * stride_, b_.Count, 0.0);
        const Index left = part_ == Part::Whole ? 0 : rows.First / tile_.Columns * tile_.Columns;
        const Index depth = std::min(depth_, DepthBlock);
        const bool spans = HasFaintProducts(SpanOfVectors(a_, rows.First, rows.Last, depth_),
                                            SpanOfVectors(b_, left, b_.Count, depth_));
        PanelBlock a(depth, std::min(rows.Last - rows.First, RowBlock), tile_.Rows, spans);
        PanelBlock b(depth, std::min(b_.Count - left, ColumnBlock), tile_.Columns, spans);
        for (Index j0 = left; j0 < b_.Count; j0 += ColumnBlock) {
            const Index j1 = std::min(b_.Count, j0 + ColumnBlock);
            for (Index k0 = 0; k0 < depth_; k0 += DepthBlock) {
                const Index k1 = std::min(depth_, k0 + DepthBlock);
                b.Pack(b_, j0, j1, k0, k1);
                for (Index i0 = rows.First; i0 < rows.Last; i0 += RowBlock) {
                    const Index i1 = std::min(rows.Last, i0 + RowBlock);
                    a.Pack(a_, i0, i1, k0, k1);
                    AddBlock({i0, i1}, j0, j1, k1 - k0, a, b);
                }
            }
        }
    }

private:
    void AddBlock(RowRange rows, Index j0, Index j1, Index depth, const PanelBlock& a,
                  const PanelBlock& b) const {
        for (Index j = j0; j < j1; j += tile_.Columns)
            for (Index i = rows.First; i < rows.Last; i += tile_.Rows) {
                if (part_ == Part::UpperTriangle && j + tile_.Columns <= i) break;
                const Panels panels{a.Panel(i - rows.First), b.Panel(j - j0), a.Spans(i - rows.First),
                                    b.Spans(j - j0), depth};
                const Index height = std::min(tile_.Rows, rows.Last - i);
                const Index width = std::min(tile_.Columns, j1 - j);
                double* sums = result_ + i * stride_ + j;
                if (height == tile_.Rows && width == tile_.Columns)
                    AddTile(panels, sums, stride_);
                else
                    AddAtEdge(panels, sums, height, width);
            }
    }

    /// The two panels of a tile.
    struct Panels {
        const double *A, *B;
        const Span *ASpans, *BSpans; // null where no step needs to be told from another
        Index Depth;
    };

    void AddTile(const Panels& panels, double* sums, Index stride) const {
        if (!panels.ASpans) {
            tile_.AddProducts(panels.A, panels.B, panels.Depth, sums, stride);
            return;
        }
        for (Index k = 0, next = 0; k < panels.Depth; k = next) {
            const auto stepAt = [&](Index at) { return StepOf(panels.ASpans[at], panels.BSpans[at]); };
            const Step step = stepAt(k);
            for (next = k + 1; next < panels.Depth && stepAt(next) == step;)
                ++next;
            if (step == Step::Void) continue;
            const AddSteps add = step == Step::Faint ? tile_.AddFaintProducts : tile_.AddProducts;
            add(panels.A + k * tile_.Rows, panels.B + k * tile_.Columns, next - k, sums, stride);
        }
    }

    /// A tile that reaches over the edge goes through a copy of its sums, filled up as the panels are.
    void AddAtEdge(const Panels& panels, double* sums, Index height, Index width) const {
        double copy[LargestTile];
        for (Index i = 0; i < tile_.Rows; ++i)
            for (Index j = 0; j < tile_.Columns; ++j)
                copy[i * tile_.Columns + j] =
                    sums[std::min(i, height - 1) * stride_ + std::min(j, width - 1)];
        AddTile(panels, copy, tile_.Columns);
        for (Index i = 0; i < height; ++i)
            std::copy_n(copy + i * tile_.Columns, width, sums + i * stride_);
    }

    static constexpr Index LargestTile = [] {
        Index largest = 0;
        for (const Tile& tile : Tiles)
            largest = std::max(largest, tile.Rows * tile.Columns);
        return largest;
    }();

    const Operand& a_;
    const Operand& b_;
    Index depth_;
    Part part_;
    double* result_;
    Index stride_;
    const Tile& tile_;
};

/// Writes rows of the lower triangle from the upper one, in square blocks so that both stay in the cache.
void MirrorRows(double* table, Index stride, RowRange rows) {
    constexpr Index block = 32;
    for (Index i0 = rows.First; i0 < rows.Last; i0 += block)
        for (Index j0 = 0; j0 < rows.Last; j0 += block)
            for (Index i = i0; i < std::min(rows.Last, i0 + block); ++i)
                for (Index j = j0; j < std::min(i, j0 + block); ++j)
                    table[i * stride + j] = table[j * stride + i];
}

} // namespace

void DenseProduct(MatrixView a, MatrixView b, double* result, Index resultStride) {
    const Operand rows{a.Data, a.Rows, a.Stride, 1};
    const Operand columns{b.Data, b.Columns, 1, b.Stride};
    const RowSums sums(rows, columns, b.Rows, Part::Whole, result, resultStride);
    RunRowWorkers(WorkersFor(2 * a.Rows * b.Columns * b.Rows), EvenShares(a.Rows),
                  [&](RowRange range) { sums.Compute(range); });
}

void DenseProductDiagonal(MatrixView a, MatrixView b, double* diagonal) {
    constexpr Index together = 8; // a cache line of b
    const Index count = std::min(a.Rows, b.Columns);
    for (Index i0 = 0; i0 < count; i0 += together) {
        const Index i1 = std::min(count, i0 + together);
        std::fill(diagonal + i0, diagonal + i1, 0.0);
        for (Index k = 0; k < b.Rows; ++k)
            for (Index i = i0; i < i1; ++i)
                diagonal[i] = diagonal[i] + b.Data[k * b.Stride + i] * a.Data[i * a.Stride + k];
    }
}

void DenseGram(MatrixView w, double* result, Index resultStride) {
    const Index n = w.Columns;
    const Operand columns{w.Data, n, 1, w.Stride};
    const RowSums sums(columns, columns, w.Rows, Part::UpperTriangle, result, resultStride);
    RunRowWorkers(WorkersFor(n * n * w.Rows), TriangleShares(n),
                  [&](RowRange range) { sums.Compute(range); });
    MirrorUpperTriangle(result, n, resultStride);
}

void MirrorUpperTriangle(double* table, Index n, Index stride) {
    RunRowWorkers(WorkersFor(n * n), EvenShares(n),
                  [&](RowRange range) { MirrorRows(table, stride, range); });
}

// ---- The choice of the instruction set

std::vector<std::string> DenseInstructionSets() {
    std::vector<std::string> names;
    for (const Tile& tile : Tiles)
        names.emplace_back(tile.InstructionSet);
    return names;
}

std::vector<std::string> OfferedInstructionSets() {
    std::vector<std::string> names;
    for (const Tile& tile : Tiles)
        if (tile.IsOffered()) names.emplace_back(tile.InstructionSet);
    return names;
}

void ForceInstructionSet(const std::string& name) {
    if (name.empty()) {
        forcedTile = nullptr;
        return;
    }
    for (const Tile& tile : Tiles) {
        if (name != tile.InstructionSet || !tile.IsOffered()) continue;
        forcedTile = &tile;
        return;
    }
    RaiseCustomary(InvalidProcedureCall, "DenseKernel", "This processor has no " + name + ".");
}

} // namespace vastrel
