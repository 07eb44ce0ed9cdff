#pragma once

#include "core/numeric/StepSpans.h"
#include "core/workspace/Arrays.h"

#include <cstddef>
#include <vector>

namespace vastrel {

/// One of the two matrices as the sums see it: a series of `Count` vectors along k. Element k of vector x
/// lies at Data[x * Across + k * Along].
struct Operand {
    const double* Data;
    std::ptrdiff_t Count;
    std::ptrdiff_t Across;
    std::ptrdiff_t Along;
};

/// The span of vectors first..last-1 of an operand.
Span SpanOfVectors(const Operand& of, std::ptrdiff_t first, std::ptrdiff_t last, std::ptrdiff_t depth);

/// Pieces of an operand, copied into panels of one width as a tile reads them: k by k, each step with the
/// elements of the panel's vectors. The last panel is filled up with copies of its last vector. The spans of
/// the steps are kept only where they matter.
class PanelBlock {
public:
    PanelBlock(std::ptrdiff_t depth, std::ptrdiff_t count, std::ptrdiff_t width, bool withSpans);

    /// Takes elements k0..k1-1 of vectors first..last-1.
    void Pack(const Operand& from, std::ptrdiff_t first, std::ptrdiff_t last, std::ptrdiff_t k0,
              std::ptrdiff_t k1);

    /// The panel that begins with the block's vector x.
    const double* Panel(std::ptrdiff_t x) const { return panels_.data() + x * depth_; }
    const Span* Spans(std::ptrdiff_t x) const {
        return spans_.empty() ? nullptr : spans_.data() + x / width_ * depth_;
    }

private:
    std::ptrdiff_t width_, depth_ = 0;
    std::vector<double, AlignedAllocator<double>> panels_;
    std::vector<Span> spans_;
};

} // namespace vastrel
