// The dense product: sums over k of products of elements of two matrices, as fast as the processor's vectors
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
// The innermost loop is AddProducts in Tiles.cpp.
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

#include "core/numeric/DenseProduct.h"

#include "core/numeric/Panels.h"
#include "core/numeric/RowWorkers.h"
#include "core/numeric/Tiles.h"

#include <algorithm>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

constexpr Index DepthBlock = 384; // as long as a panel of a fits the inner cache beside the running one of b
constexpr Index RowBlock = 144;   // the packed piece of a fills half of a middle cache; whole tiles
constexpr Index ColumnBlock = 1536; // the packed rows of b stay in the outer cache; whole tiles

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
                const PanelPair panels{a.Panel(i - rows.First), b.Panel(j - j0), a.Spans(i - rows.First),
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
    struct PanelPair {
        const double *A, *B;
        const Span *ASpans, *BSpans; // null where no step needs to be told from another
        Index Depth;
    };

    void AddTile(const PanelPair& panels, double* sums, Index stride) const {
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
    void AddAtEdge(const PanelPair& panels, double* sums, Index height, Index width) const {
        double copy[LargestTile];
        for (Index i = 0; i < tile_.Rows; ++i)
            for (Index j = 0; j < tile_.Columns; ++j)
                copy[i * tile_.Columns + j] =
                    sums[std::min(i, height - 1) * stride_ + std::min(j, width - 1)];
        AddTile(panels, copy, tile_.Columns);
        for (Index i = 0; i < height; ++i)
            std::copy_n(copy + i * tile_.Columns, width, sums + i * stride_);
    }

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

} // namespace vastrel
