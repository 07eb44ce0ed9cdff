#pragma once

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
    PairSums(const Pairs& pairs, double diagonal, const Term& term, Array1<double>& sums)
        : pairs_(pairs), diagonal_(diagonal), term_(term), n_(pairs.Regions()), sum_(sums.data()),
          rowsDone_(static_cast<std::size_t>((n_ + Width - 1) / Width)) {}

    /// Takes strips from left to right until none is left; for any number of threads at once.
    void Work() {
        for (std::size_t strip = next_++; strip < rowsDone_.size(); strip = next_++)
            WorkDown(strip);
    }

private:
    using Index = std::ptrdiff_t;

    static constexpr Index Width = 128;
    static constexpr Index Together = 8; // rows whose sums advance together, since additions wait for another
    static constexpr Index Piece = 32;   // rows between two looks at the strip to the left
    static_assert(Width % Piece == 0 && Piece % Together == 0);

    using Terms = std::array<std::array<double, Width>, Together>; // of the sums of some rows

    void WorkDown(std::size_t strip) {
        const Index first = 1 + static_cast<Index>(strip) * Width, end = std::min(n_ + 1, first + Width);
        Terms terms{};
        for (Index row = 1; row < first; row += Piece) {
            WaitFor(strip - 1, row + Piece - 1);
            for (Index i = row; i < row + Piece; i += Together)
                TakeRows<Together>(i, first, end, terms);
            Report(strip, row + Piece - 1);
        }
        for (Index i = first; i < end; ++i) {
            sum_[i] = sum_[i] + term_(diagonal_, OneRegion{i}, OneRegion{i});
            TakeRows<1>(i, i + 1, end, terms);
        }
        Report(strip, n_);
    }

    void WaitFor(std::size_t strip, Index row) {
        for (Index done = rowsDone_[strip]; done < row; done = rowsDone_[strip])
            rowsDone_[strip].wait(done);
    }

    void Report(std::size_t strip, Index row) {
        rowsDone_[strip] = row;
        rowsDone_[strip].notify_all();
    }

    /// Adds the pairs of rows i, i + 1 and so on with the Regions first .. end - 1 to the sums of both.
    template <std::size_t Rows>
    void TakeRows(Index i, Index first, Index end, Terms& terms) {
        std::array<const double*, Rows> row{};
        for (std::size_t r = 0; r < Rows; ++r) {
            const Index region = i + static_cast<Index>(r);
            row[r] = pairs_.After(region) + (first - region - 1);
        }
        const auto take = [&]<typename Columns>(Columns columns) {
            using Value = typename Columns::Value;
            const Index at = columns.First - first;
            Value sum = *reinterpret_cast<const Value*>(sum_ + columns.First);
#pragma GCC unroll 8
            for (std::size_t r = 0; r < Rows; ++r) {
                const OneRegion region{i + static_cast<Index>(r)};
                const auto value = *reinterpret_cast<const Value*>(row[r] + at);
                sum = sum + term_(value, columns, region);
                *reinterpret_cast<Value*>(terms[r].data() + at) = term_(value, region, columns);
            }
            *reinterpret_cast<Value*>(sum_ + columns.First) = sum;
        };
        Index j = first;
        for (; j + SomeRegions::Count <= end; j += SomeRegions::Count)
            take(SomeRegions{j});
        for (; j < end; ++j)
            take(OneRegion{j});
        AddAlongRows<Rows>(terms, static_cast<std::size_t>(end - first), sum_ + i);
    }

    template <std::size_t Rows>
    static void AddAlongRows(const Terms& terms, std::size_t count, double* sum) {
        std::array<double, Rows> sums{};
        std::copy_n(sum, Rows, sums.begin());
        for (std::size_t at = 0; at < count; ++at)
#pragma GCC unroll 8
            for (std::size_t r = 0; r < Rows; ++r)
                sums[r] = sums[r] + terms[r][at];
        std::copy_n(sums.begin(), Rows, sum);
    }

    const Pairs& pairs_;
    const double diagonal_;
    const Term& term_;
    const Index n_;
    double* const sum_;
    std::vector<std::atomic<Index>> rowsDone_; // of each strip
    std::atomic<std::size_t> next_ = 0;
};

/// sums(i) = the sum over j = 1..n, ascending, of term(K(i, j), i, j), for each i = 1..n of the symmetric
/// matrix K of `pairs` and the number on its diagonal; on all workers. The term takes one element with an
/// OneRegion for each of i and j, or some elements with SomeRegions for the one or the other, and does not
/// throw.
template <typename Term>
void SumAlongPairs(const Pairs& pairs, double diagonal, const Term& term, Array1<double>& sums) {
    constexpr std::ptrdiff_t operations = 4;
    const std::ptrdiff_t n = pairs.Regions();
    sums.ReDim(n);
    PairSums work(pairs, diagonal, term, sums);
    RunTeam(WorkersFor(n * n * operations), [&](Team&) { work.Work(); });
}

} // namespace vastrel
