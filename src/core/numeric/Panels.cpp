#include "core/numeric/Panels.h"

#include <algorithm>

namespace vastrel {

using Index = std::ptrdiff_t;

namespace {

constexpr Index RoundedUp(Index n, Index step) {
    return (n + step - 1) / step * step;
}

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

} // namespace

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

PanelBlock::PanelBlock(Index depth, Index count, Index width, bool withSpans)
    : width_(width), panels_(static_cast<size_t>(depth * RoundedUp(count, width))),
      spans_(withSpans ? panels_.size() / static_cast<size_t>(width) : 0) {}

void PanelBlock::Pack(const Operand& from, Index first, Index last, Index k0, Index k1) {
    PackPanels(from, first, last, k0, k1, width_, panels_.data());
    depth_ = k1 - k0;
    if (spans_.empty()) return;
    const Index steps = RoundedUp(last - first, width_) / width_ * depth_;
    for (Index step = 0; step < steps; ++step)
        spans_[static_cast<size_t>(step)] = SpanOf(panels_.data() + step * width_, width_);
}

} // namespace vastrel
