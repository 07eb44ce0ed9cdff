#pragma once

#include "core/numeric/Tiles.h"
#include "core/workspace/Arrays.h"

#include <cstddef>
#include <vector>

namespace vastrel {

/// One of the two matrices as the sums see it: a series of `Count` vectors along k. Element k of vector x
/// lies at Data[x * Across + k * Along]; where there is an order, at Data[Order[x] * Across + k * Along].
struct Operand {
    const double* Data;
    std::ptrdiff_t Count;
    std::ptrdiff_t Across;
    std::ptrdiff_t Along;
    const std::ptrdiff_t* Order;
};

/// Elements k0..k1-1 of vectors x0..x1-1.
struct Piece {
    std::ptrdiff_t X0, X1, K0, K1;
};

/// Pieces of an operand, copied into panels of one width as a tile reads them: k by k, each step with the
/// elements of the panel's vectors. A last panel is filled up with copies of its last vector.
class PanelBlock {
public:
    /// Room for `count` vectors of `depth` elements, in panels of the rows or columns of a tile.
    PanelBlock(std::ptrdiff_t depth, std::ptrdiff_t count, std::ptrdiff_t width, const Tile& tile);

    /// Takes a piece into the panels that begin with the block's vector `at`.
    void Pack(const Operand& from, const Piece& piece, std::ptrdiff_t at);

    /// Takes the same from panels of another width, which hold the elements of these steps of all vectors.
    void Pack(const PanelBlock& from, const Piece& piece);

    /// The panel that begins with the block's vector x.
    const double* Panel(std::ptrdiff_t x) const { return panels_.data() + x * depth_; }
    PanelSpans Spans(std::ptrdiff_t x) const;

private:
    struct StepRange {
        std::ptrdiff_t First, Last;
    };
    void CopySteps(const double* from, std::ptrdiff_t along, const std::ptrdiff_t* begins, StepRange steps,
                   std::ptrdiff_t panel);
    void TakeSpans(std::ptrdiff_t panel, std::ptrdiff_t steps);

    const Tile& tile_;
    std::ptrdiff_t width_, depth_, groups_;
    std::vector<double, AlignedAllocator<double>> panels_;
    std::vector<short> least_, most_;
    std::vector<GroupSpan> spansOfGroups_;
    std::vector<StepsSpan> spansOfPanels_;
};

} // namespace vastrel
