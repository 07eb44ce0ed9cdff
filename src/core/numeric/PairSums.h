#pragma once

#include "core/numeric/FaintFlush.h"
#include "core/numeric/FaintSums.h"
#include "core/numeric/RowWorkers.h"
#include "core/numeric/Vectors.h"
#include "core/workspace/Pairs.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <vector>

namespace vastrel {

/// A Region, for what a term takes of arrays 1..n.
struct OneRegion {
    using Value = double;
    static constexpr std::ptrdiff_t Count = 1;
    std::ptrdiff_t First;
    Value Of(const Array1<double>& values) const { return values.data()[First]; }
};

/// Some Regions that follow one another.
struct SomeRegions {
    using Value = VectorOf<16>::Unaligned;
    static constexpr std::ptrdiff_t Count = VectorOf<16>::Lanes;
    std::ptrdiff_t First;
    Value Of(const Array1<double>& values) const {
        return *reinterpret_cast<const Value*>(values.data() + First);
    }
};

/// The way of a sum through the pairs. The matrix is cut into strips of columns, and a strip is worked down
/// row by row. The sum of a Region takes the pairs above the diagonal, in the column of its strip, first;
/// then it goes along the row, from strip to strip to the right. So one strip follows another as close as it
/// may: a row is taken when the strip to its left has left it.
template <typename Term>
class PairSums {
public:
    PairSums(const Pairs& pairs, double diagonal, const Term& term, FaintTerms faint, Array1<double>& sums)
        : pairs_(pairs), diagonal_(diagonal), term_(term), faint_(faint), n_(pairs.Regions()),
          sum_(sums.data()), rowsDone_(static_cast<std::size_t>((n_ + Width - 1) / Width)) {}

    /// Takes strips from left to right until none is left; for any number of threads at once.
    void Work() {
        for (std::size_t strip = next_++; strip < rowsDone_.size(); strip = next_++)
            WorkDown(strip);
    }

private:
    using Index = std::ptrdiff_t;
    using Vector = SomeRegions::Value;

    static constexpr Index Width = 128;
    static constexpr Index Together = 8; // rows whose sums advance together, since additions wait for another
    static constexpr Index Piece = 32;   // rows between two looks at the strip to the left
    static_assert(Width % Piece == 0 && Piece % Together == 0);

    /// A strip in work.
    struct Strip {
        Index First = 0, End = 0;
        double Terms[Width][Together]{}; // of some rows, for each of its columns
        bool MayBeFaint = true;          // a sum of its columns

        Index Columns() const { return End - First; }
    };

    void WorkDown(std::size_t at) {
        const Index first = 1 + static_cast<Index>(at) * Width;
        Strip strip{first, std::min(n_ + 1, first + Width)};
        for (Index row = 1; row < first; row += Piece) {
            WaitFor(at - 1, row + Piece - 1);
            for (Index i = row; i < row + Piece; i += Together)
                TakeRowsAbove(i, strip);
            Report(at, row + Piece - 1);
        }
        TakeTriangle(strip);
        Report(at, n_);
    }

    void WaitFor(std::size_t strip, Index row) {
        for (Index done = rowsDone_[strip]; done < row; done = rowsDone_[strip])
            rowsDone_[strip].wait(done);
    }

    void Report(std::size_t strip, Index row) {
        rowsDone_[strip] = row;
        rowsDone_[strip].notify_all();
    }

    /// Adds the pairs of some rows from i on with the columns of a strip to the sums of both.
    void TakeRowsAbove(Index i, Strip& strip) {
        const bool mayFlush =
            faint_ != FaintTerms::Told && !strip.MayBeFaint && !AnyIsFaint(sum_ + i, Together);
        if (mayFlush && AddFlushed(i, strip)) return;
        AddRows<false>(i, strip);
        strip.MayBeFaint = AnyIsFaint(sum_ + strip.First, strip.Columns());
    }

    /// Takes faint terms for zero; where a sum became so small that it may have felt one, puts all sums back
    /// and says no.
    bool AddFlushed(Index i, Strip& strip) {
        std::array<double, Together> rowSums{};
        std::array<double, Width> columnSums{};
        std::copy_n(sum_ + i, Together, rowSums.begin());
        std::copy_n(sum_ + strip.First, strip.Columns(), columnSums.begin());
        {
            const FaintFlush flush(true);
            const bool onlyGrow = faint_ == FaintTerms::FlushedOfOneSign;
            if (onlyGrow ? AddRows<false>(i, strip) : AddRows<true>(i, strip)) return true;
        }
        std::copy_n(rowSums.begin(), Together, sum_ + i);
        std::copy_n(columnSums.begin(), strip.Columns(), sum_ + strip.First);
        return false;
    }

    /// Whether no sum was seen to be faint. A look at every second one is enough: a faint sum is as faint
    /// after a flushed term. This is no part of its callers, so that it stays within their FaintFlush.
    template <bool Watched>
    [[gnu::noinline]] bool AddRows(Index i, Strip& strip) {
        const double* row[Together];
        for (Index r = 0; r < Together; ++r)
            row[r] = pairs_.After(i + r) + (strip.First - (i + r) - 1);
        FaintWatch<Watched> watch;
        Index j = strip.First;
        for (; j + SomeRegions::Count <= strip.End; j += SomeRegions::Count) {
            const SomeRegions columns{j};
            const Index at = j - strip.First;
            Vector sums = At(sum_ + j);
#pragma GCC unroll 8
            for (Index r = 0; r < Together; r += 2) {
                const OneRegion upper{i + r}, lower{i + r + 1};
                const Vector above = At(row[r] + at), below = At(row[r + 1] + at);
                sums = sums + term_(above, columns, upper);
                sums = watch(sums + term_(below, columns, lower));
                const Vector ofUpper = term_(above, upper, columns), ofLower = term_(below, lower, columns);
                Put(__builtin_shufflevector(ofUpper, ofLower, 0, 2), strip.Terms[at] + r);
                Put(__builtin_shufflevector(ofUpper, ofLower, 1, 3), strip.Terms[at + 1] + r);
            }
            Put(sums, sum_ + j);
        }
        for (; j < strip.End; ++j)
            for (Index r = 0; r < Together; ++r) {
                const OneRegion region{i + r}, column{j};
                const double value = row[r][j - strip.First];
                sum_[j] = watch(sum_[j] + term_(value, column, region));
                strip.Terms[j - strip.First][r] = term_(value, region, column);
            }
        AddAlongRows(strip, sum_ + i, watch);
        return !watch.SawFaint();
    }

    template <bool Watched>
    static void AddAlongRows(const Strip& strip, double* rowSums, FaintWatch<Watched>& watch) {
        constexpr Index vectors = Together / SomeRegions::Count;
        Vector sums[vectors];
#pragma GCC unroll 8
        for (Index v = 0; v < vectors; ++v)
            sums[v] = At(rowSums + v * SomeRegions::Count);
        for (Index at = 0; at < strip.Columns(); ++at)
#pragma GCC unroll 8
            for (Index v = 0; v < vectors; ++v)
                sums[v] = watch(sums[v] + At(strip.Terms[at] + v * SomeRegions::Count));
#pragma GCC unroll 8
        for (Index v = 0; v < vectors; ++v)
            Put(sums[v], rowSums + v * SomeRegions::Count);
    }

    /// The pairs of a strip's own Regions with each other.
    void TakeTriangle(const Strip& strip) {
        for (Index i = strip.First; i < strip.End; ++i) {
            const OneRegion row{i};
            const double* value = pairs_.After(i);
            double sum = sum_[i] + term_(diagonal_, row, row);
            for (Index j = i + 1; j < strip.End; ++j, ++value) {
                const OneRegion column{j};
                sum_[j] = sum_[j] + term_(*value, column, row);
                sum = sum + term_(*value, row, column);
            }
            sum_[i] = sum;
        }
    }

    static Vector At(const double* numbers) {
        return *reinterpret_cast<const Vector*>(numbers);
    }
    static void Put(Vector numbers, double* to) {
        *reinterpret_cast<Vector*>(to) = numbers;
    }

    const Pairs& pairs_;
    const double diagonal_;
    const Term& term_;
    const FaintTerms faint_;
    const Index n_;
    double* const sum_;
    std::vector<std::atomic<Index>> rowsDone_; // of each strip
    std::atomic<std::size_t> next_ = 0;
};

/// sums(i) = the sum over j = 1..n, ascending, of term(K(i, j), i, j), for each i = 1..n of the symmetric
/// matrix K of `pairs` and the number on its diagonal; on all workers. The term takes one element with an
/// OneRegion for each of i and j, or some elements with SomeRegions for the one or the other, and does not
/// throw. Where faint terms may be flushed, a term that a FaintFlush changes becomes zero,
/// and was below 2^-960.
template <typename Term>
void SumAlongPairs(const Pairs& pairs, double diagonal, const Term& term, FaintTerms faint,
                   Array1<double>& sums) {
    constexpr std::ptrdiff_t operations = 4;
    const std::ptrdiff_t n = pairs.Regions();
    sums.ReDim(n);
    PairSums work(pairs, diagonal, term, faint, sums);
    RunTeam(WorkersFor(n * n * operations), [&](Team&) { work.Work(); });
}

} // namespace vastrel
