#include "core/numeric/Panels.h"

#include <algorithm>

namespace vastrel {

using Index = std::ptrdiff_t;

namespace {

constexpr Index RoundedUp(Index n, Index step) {
    return (n + step - 1) / step * step;
}

/// Where the vectors of panels of one width begin, those that fill up the last one included.
std::vector<Index> BeginsOfVectors(const Operand& from, Index x0, Index x1, Index width) {
    std::vector<Index> begins;
    for (Index x = x0; x < x0 + RoundedUp(x1 - x0, width); ++x) {
        const Index vector = std::min(x, x1 - 1);
        begins.push_back((from.Order ? from.Order[vector] : vector) * from.Across);
    }
    return begins;
}

} // namespace

PanelBlock::PanelBlock(Index depth, Index count, Index width, const Tile& tile)
    : tile_(tile), width_(width), depth_(depth), groups_(RoundedUp(depth, GroupSteps) / GroupSteps) {
    const auto panels = static_cast<size_t>(RoundedUp(count, width) / width);
    const auto groups = panels * static_cast<size_t>(groups_);
    panels_.resize(panels * static_cast<size_t>(width * depth));
    least_.resize(groups * GroupSteps);
    most_.resize(groups * GroupSteps);
    spansOfGroups_.resize(groups);
    spansOfPanels_.resize(panels);
}

void PanelBlock::Pack(const Operand& from, const Piece& piece, Index at) {
    const std::vector<Index> begins = BeginsOfVectors(from, piece.X0, piece.X1, width_);
    const auto panels = static_cast<Index>(begins.size()) / width_;
    const Index first = at / width_, steps = piece.K1 - piece.K0;
    // Vectors that are rows are read along, a panel at a time; of columns, row after row through all panels.
    const Index together = from.Along == 1 ? steps : 1;
    for (Index k = 0; k < steps; k += together)
        for (Index panel = 0; panel < panels; ++panel)
            CopySteps(from.Data + piece.K0 * from.Along, from.Along, begins.data() + panel * width_,
                      {k, k + together}, first + panel);
    for (Index panel = 0; panel < panels; ++panel)
        TakeSpans(first + panel, steps);
}

void PanelBlock::Pack(const PanelBlock& from, const Piece& piece) {
    const Index steps = piece.K1 - piece.K0;
    std::vector<Index> begins(static_cast<size_t>(width_));
    for (Index x = piece.X0, panel = 0; x < piece.X1; x += width_, ++panel) {
        for (Index v = 0; v < width_; ++v) {
            const Index vector = std::min(x + v, piece.X1 - 1), inPanel = vector % from.width_;
            begins[static_cast<size_t>(v)] = (vector - inPanel) * from.depth_ + inPanel;
        }
        CopySteps(from.panels_.data(), from.width_, begins.data(), {0, steps}, panel);
        TakeSpans(panel, steps);
    }
}

void PanelBlock::CopySteps(const double* from, Index along, const Index* begins, StepRange steps,
                           Index panel) {
    double* to = panels_.data() + (panel * depth_ + steps.First) * width_;
    for (Index k = steps.First; k < steps.Last; ++k, to += width_)
        for (Index x = 0; x < width_; ++x)
            to[x] = from[k * along + begins[x]];
}

void PanelBlock::TakeSpans(Index panel, Index steps) {
    const double* numbers = panels_.data() + panel * width_ * depth_;
    StepsSpan ofPanel;
    for (Index group = 0; group * GroupSteps < steps; ++group) {
        const Index at = panel * groups_ + group;
        GroupSpan ofGroup;
        for (Index k = 0; k < GroupSteps; ++k) {
            const Index step = group * GroupSteps + k;
            const bool isThere = step < steps;
            const Span span = isThere ? tile_.SpanOfStep(numbers + step * width_, width_) : Span{};
            least_[static_cast<size_t>(at * GroupSteps + k)] = span.Least;
            most_[static_cast<size_t>(at * GroupSteps + k)] = span.Most;
            if (isThere) ofGroup.All.Add({span, span.Most});
            ofGroup.Negative |= StepSet{span.Negative ? 1U : 0U} << k;
            ofGroup.Positive |= StepSet{span.Positive ? 1U : 0U} << k;
        }
        spansOfGroups_[static_cast<size_t>(at)] = ofGroup;
        ofPanel.Add(ofGroup.All);
    }
    spansOfPanels_[static_cast<size_t>(panel)] = ofPanel;
}

PanelSpans PanelBlock::Spans(Index x) const {
    const Index panel = x / width_, at = panel * groups_;
    return {least_.data() + at * GroupSteps, most_.data() + at * GroupSteps, spansOfGroups_.data() + at,
            spansOfPanels_[static_cast<size_t>(panel)]};
}

} // namespace vastrel
