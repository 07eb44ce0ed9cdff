#include "core/numeric/TileSteps.h"

#include "core/numeric/FaintFlush.h"
#include "core/numeric/FaintProducts.h"
#include "core/numeric/FeltSteps.h"

#include <array>
#include <bit>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

constexpr Index GroupsAtMost = (DepthAtMost + GroupSteps - 1) / GroupSteps;
constexpr int StepsAtMost = std::bit_width(static_cast<unsigned>(DepthAtMost - 1)); // as a power of two

using FeltSteps = std::array<StepSet, GroupsAtMost>;

/// Adds the panels of one tile to its sums.
class TileSums {
public:
    TileSums(const Tile& tile, const PanelPair& panels, double* sums, Index stride)
        : tile_(tile), panels_(panels), sums_(sums), stride_(stride),
          groups_((panels.Depth + GroupSteps - 1) / GroupSteps) {}

    /// All groups at once where nothing needs to be told apart or the sums stand firm; else group by group
    /// until they do.
    void Add() {
        const StepsSpan &a = panels_.ASpans.All, &b = panels_.BSpans.All;
        if (AreVoid(a.Of, b.Of)) return;
        if (AreAlike(a, b)) return AddEvery();
        for (Index group = 0; group < groups_; ++group) {
            if (FeltOf(group, HalfOfSmallest) == 0) continue;
            const SumSpan sums = tile_.SpanOfSums(sums_, stride_);
            const Negligible ofAll = NegligibleIn(group, groups_, sums, a.Of, b.Of);
            if (ofAll.Faint) return AddFelt(group, groups_, ofAll);
            const Span &inA = panels_.ASpans.Groups[group].All.Of, &inB = panels_.BSpans.Groups[group].All.Of;
            const Negligible ofGroup = NegligibleIn(group, group + 1, sums, inA, inB);
            if (ofGroup.Faint || !HasFaintProducts(inA, inB))
                AddFelt(group, group + 1, ofGroup);
            else
                AddWithFaint(group, FeltOf(group, ofGroup.Product));
        }
    }

private:
    Negligible NegligibleIn(Index first, Index last, const SumSpan& sums, const Span& a,
                            const Span& b) const {
        const int against = sums.Least > -Span::Beyond ? MostAgainst(first, last, sums) : 0;
        return BelowFloor(FloorOfSums(sums, against, StepsAtMost), a, b);
    }

    /// The bound of the products that go against a sum, as a power of two.
    int MostAgainst(Index first, Index last, const SumSpan& sums) const {
        int most = -Span::Beyond;
        for (Index group = first; group < last; ++group) {
            const GroupSpan &a = panels_.ASpans.Groups[group], &b = panels_.BSpans.Groups[group];
            for (StepSet against = AgainstSums(sums, a, b); against != 0; against &= against - 1) {
                const Index k = group * GroupSteps + std::countr_zero(against);
                most = std::max(most, panels_.ASpans.Most[k] + panels_.BSpans.Most[k]);
            }
        }
        return most;
    }

    StepSet FeltOf(Index group, int negligible) const {
        const Index first = group * GroupSteps;
        return StepsAbove(panels_.ASpans.Most + first, panels_.BSpans.Most + first, negligible);
    }

    void AddEvery() {
        FeltSteps every;
        every.fill(~StepSet{0});
        if (const Index rest = panels_.Depth % GroupSteps; rest != 0)
            every[static_cast<size_t>(groups_ - 1)] = (StepSet{1} << rest) - 1;
        Run(0, every.data(), groups_);
    }

    void AddFelt(Index first, Index last, const Negligible& negligible) {
        FeltSteps felt;
        StepSet any = 0;
        for (Index group = first; group < last; ++group)
            any |= felt[static_cast<size_t>(group - first)] = FeltOf(group, negligible.Product);
        if (any == 0) return;
        const FaintFlush flush(negligible.Faint);
        Run(first, felt.data(), last - first);
    }

    /// The steps of a group in their order, those with faint products by the way of their own.
    void AddWithFaint(Index group, StepSet felt) {
        const Index first = group * GroupSteps;
        const short *aMost = panels_.ASpans.Most + first, *bMost = panels_.BSpans.Most + first;
        StepSet faint =
            felt & StepsBelow(panels_.ASpans.Least + first, panels_.BSpans.Least + first, SmallestNormal);
        while (felt != 0) {
            if (faint == 0) return Run(group, &felt, 1);
            const Index k = std::countr_zero(faint);
            const StepSet step = StepSet{1} << k;
            const StepSet before = felt & (step - 1);
            if (before != 0) Run(group, &before, 1);
            felt ^= before;
            if (std::max(aMost[k], bMost[k]) <= FaintLimit)
                tile_.AddFaintProducts(A(first + k), B(first + k), SpanOfBAt(first + k), sums_, stride_);
            else
                Run(group, &step, 1);
            felt ^= step;
            faint ^= step;
        }
    }

    void Run(Index group, const StepSet* felt, Index groups) {
        tile_.AddProducts(A(group * GroupSteps), B(group * GroupSteps), felt, groups, sums_, stride_);
    }

    Span SpanOfBAt(Index k) const { return {panels_.BSpans.Least[k], panels_.BSpans.Most[k]}; }
    const double* A(Index k) const { return panels_.A + k * tile_.Rows; }
    const double* B(Index k) const { return panels_.B + k * tile_.Columns; }

    const Tile& tile_;
    const PanelPair& panels_;
    double* sums_;
    Index stride_, groups_;
};

} // namespace

void AddPanels(const Tile& tile, const PanelPair& panels, double* sums, Index stride) {
    TileSums(tile, panels, sums, stride).Add();
}

} // namespace vastrel
