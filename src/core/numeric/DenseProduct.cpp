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
//   for every block of k, ascending:   pack b's rows of the block, all threads together
//     for every piece of rows i:       pack a's piece
//       for every panel of b, for every panel of a:   run the tile; it goes on from the sums of the last
//       block
//
// The innermost loop is AddProducts in Tiles.cpp. The pieces of rows are taken by the threads as they become
// free, since they differ in cost.
//
// At the right and lower edge a panel is filled up with copies of its last column or row. A tile then
// computes some elements twice over and drops the copies; zeros in their place could raise faults (0 *
// infinity) that the matrices do not hold.
//
// Weights of distant Regions are tiny, and most of their products are far too small to change the sums that
// they are added to. What can be left out of a tile without a change of any bit is told by the exponents of
// its panels and sums: FeltSteps.h, TileSteps.cpp.
//
// Of the Gram matrix only tiles that reach the diagonal or lie right of it are computed: a product has the
// same bits with its operands swapped, so that the other half is a mirror image. Both operands are then the
// same, and the panels of the one are taken from those of the other.

#include "core/numeric/DenseProduct.h"

#include "core/numeric/Panels.h"
#include "core/numeric/RowWorkers.h"
#include "core/numeric/TileSteps.h"

#include <algorithm>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

constexpr Index DepthBlock = DepthAtMost;
constexpr Index RowsTogether = 24; // whole tiles of every instruction set
constexpr Index RowBlock = 192;    // a packed piece of a of this many rows fits a middle cache

enum class Part { Whole, UpperTriangle };

/// The sums of a result whose rows are shared out to a team.
class SharedSums {
public:
    SharedSums(const Operand& a, const Operand& b, Index depth, Part part, double* result, Index stride)
        : a_(a), b_(b), depth_(depth), part_(part), result_(result), stride_(stride), tile_(ChosenTile()),
          panelsOfB_(std::min(depth_, DepthBlock), b_.Count, tile_.Columns, tile_) {}

    /// What a member of the team does.
    void Compute(Team& team) {
        PanelBlock panelsOfA(std::min(depth_, DepthBlock), std::min(a_.Count, RowBlock), tile_.Rows, tile_);
        team.Share(a_.Count, 1, a_.Count, [this](RowRange rows) {
            for (Index i = rows.First; i < rows.Last; ++i)
                std::fill_n(result_ + i * stride_, b_.Count, 0.0);
        });
        for (Index k0 = 0; k0 < depth_; k0 += DepthBlock) {
            const Index k1 = std::min(depth_, k0 + DepthBlock);
            team.Share(b_.Count, tile_.Columns, b_.Count, [&](RowRange columns) {
                panelsOfB_.Pack(b_, {columns.First, columns.Last, k0, k1}, columns.First);
            });
            team.Share(a_.Count, RowsTogether, RowBlock, [&](RowRange rows) {
                const Piece piece{rows.First, rows.Last, k0, k1};
                if (part_ == Part::UpperTriangle)
                    panelsOfA.Pack(panelsOfB_, piece);
                else
                    panelsOfA.Pack(a_, piece, 0);
                AddBlock(rows, k1 - k0, panelsOfA);
            });
        }
    }

private:
    void AddBlock(RowRange rows, Index depth, const PanelBlock& panelsOfA) const {
        const Index left = part_ == Part::Whole ? 0 : rows.First / tile_.Columns * tile_.Columns;
        for (Index j = left; j < b_.Count; j += tile_.Columns)
            for (Index i = rows.First; i < rows.Last; i += tile_.Rows) {
                if (part_ == Part::UpperTriangle && j + tile_.Columns <= i) break;
                const Index inA = i - rows.First;
                const PanelPair panels{panelsOfA.Panel(inA), panelsOfB_.Panel(j), panelsOfA.Spans(inA),
                                       panelsOfB_.Spans(j), depth};
                const Index height = std::min(tile_.Rows, rows.Last - i);
                const Index width = std::min(tile_.Columns, b_.Count - j);
                double* sums = result_ + i * stride_ + j;
                if (height == tile_.Rows && width == tile_.Columns)
                    AddPanels(tile_, panels, sums, stride_);
                else
                    AddAtEdge(panels, sums, height, width);
            }
    }

    /// A tile that reaches over the edge goes through a copy of its sums, filled up as the panels are.
    void AddAtEdge(const PanelPair& panels, double* sums, Index height, Index width) const {
        double copy[LargestTile];
        for (Index i = 0; i < tile_.Rows; ++i)
            for (Index j = 0; j < tile_.Columns; ++j)
                copy[i * tile_.Columns + j] =
                    sums[std::min(i, height - 1) * stride_ + std::min(j, width - 1)];
        AddPanels(tile_, panels, copy, tile_.Columns);
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
    PanelBlock panelsOfB_;
};

void Product(MatrixView a, MatrixView b, const Index* order, double* result, Index stride) {
    const Operand rows{a.Data, a.Rows, a.Stride, 1, order};
    const Operand columns{b.Data, b.Columns, 1, b.Stride, order};
    SharedSums sums(rows, columns, b.Rows, Part::Whole, result, stride);
    RunTeam(WorkersFor(2 * a.Rows * b.Columns * b.Rows), [&](Team& team) { sums.Compute(team); });
}

/// Writes rows of the lower triangle from the upper one, in square blocks so that both stay in the cache.
void MirrorRows(double* table, Index stride, RowRange rows) {
    constexpr Index block = 32;
    for (Index i0 = rows.First; i0 < rows.Last; i0 += block)
        for (Index j0 = 0; j0 < rows.Last; j0 += block)
            for (Index i = i0; i < std::min(rows.Last, i0 + block); ++i)
                for (Index j = j0; j < std::min(i, j0 + block); ++j)
                    table[i * stride + j] = table[j * stride + i];
}

/// Copies the part of an n x n table right of its diagonal to its mirror image, left of it.
void MirrorUpperTriangle(double* table, Index n, Index stride) {
    RunRowWorkers(WorkersFor(n * n), n, [&](RowRange range) { MirrorRows(table, stride, range); });
}

void Gram(MatrixView w, const Index* order, double* result, Index stride) {
    const Operand columns{w.Data, w.Columns, 1, w.Stride, order};
    SharedSums sums(columns, columns, w.Rows, Part::UpperTriangle, result, stride);
    RunTeam(WorkersFor(w.Columns * w.Columns * w.Rows), [&](Team& team) { sums.Compute(team); });
    MirrorUpperTriangle(result, w.Columns, stride);
}

} // namespace

void DenseProduct(MatrixView a, MatrixView b, double* result, Index resultStride) {
    Product(a, b, nullptr, result, resultStride);
}

void DenseProduct(MatrixView a, MatrixView b, const VectorOrder& order, double* result, Index resultStride) {
    Product(a, b, order.data(), result, resultStride);
}

void DenseProductDiagonal(MatrixView a, MatrixView b, double* diagonal) {
    constexpr Index together = 8; // a cache line of b
    const Index count = std::min(a.Rows, b.Columns);
    const auto compute = [&](RowRange range) {
        for (Index i0 = range.First; i0 < range.Last; i0 += together) {
            const Index i1 = std::min(range.Last, i0 + together);
            std::fill(diagonal + i0, diagonal + i1, 0.0);
            for (Index k = 0; k < b.Rows; ++k)
                for (Index i = i0; i < i1; ++i)
                    diagonal[i] = diagonal[i] + b.Data[k * b.Stride + i] * a.Data[i * a.Stride + k];
        }
    };
    RunRowWorkers(WorkersFor(2 * count * b.Rows), count, compute, together);
}

void DenseGram(MatrixView w, double* result, Index resultStride) {
    Gram(w, nullptr, result, resultStride);
}

void DenseGram(MatrixView w, const VectorOrder& order, double* result, Index resultStride) {
    Gram(w, order.data(), result, resultStride);
}

} // namespace vastrel
