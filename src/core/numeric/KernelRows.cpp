#include "core/numeric/KernelRows.h"

#include "core/numeric/GaussianKernel.h"
#include "core/numeric/PairSums.h"
#include "core/numeric/RowWorkers.h"
#include "core/numeric/RunProcedure.h"
#include "core/numeric/Vectors.h"

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <utility>

namespace vastrel {

namespace {

using Index = std::ptrdiff_t;

/// Puts the weights between Regions a and b of two blocks, both ways, those with a < b.
void PutBlock(const KernelWeights& kernel, RowRange as, RowRange bs, Table<double>& weights) {
    const double* length = kernel.Length.data();
    const Index stride = weights.stride();
    for (Index a = as.First; a < as.Last; ++a) {
        const Index begin = std::max(a + 1, bs.First), count = bs.Last - begin;
        const double* values = kernel.Values.After(a) + (begin - a - 1);
        ForEachNumber(values, count, weights.row(a) + begin, [=](auto value) { return value / length[a]; });
        double* column = weights.row(0) + a;
        for (Index b = begin; b < bs.Last; ++b)
            column[b * stride] = values[b - begin] / length[b];
    }
}

/// Of rows of length 1, scores up to 2^30 and divisors from 2^-30 on, a term with an element, score, weight
/// or product that is flushed was below 2^-960. The comparisons raise no fault for a score that is no number.
FaintTerms FaintTermsOf(const KernelWeights& kernel, const Array1<double>& scores, Index n) {
    for (Index i = 1; i <= n; ++i)
        if (!std::islessequal(std::fabs(scores(i)), 0x1p30) ||
            !std::isgreaterequal(kernel.Length(i), 0x1p-30))
            return FaintTerms::Told;
    return FaintTerms::Flushed;
}

} // namespace

void RowNormalise(KernelWeights& kernel) {
    const auto square = [](auto value, auto, auto) { return value * value; };
    SumAlongPairs(kernel.Values, kernel.Peak, square, FaintTerms::FlushedOfOneSign, kernel.Length);
    for (Index i = 1; i <= kernel.Length.UpperBound(); ++i) {
        kernel.Length(i) = std::sqrt(kernel.Length(i));
        if (kernel.Length(i) == 0) std::feraiseexcept(FE_DIVBYZERO); // the row cannot be scaled
    }
}

void CheckFirstWeights(const Array1<RegionPoint>& at, Index n, double area, double sigma) {
    constexpr auto name = "GaussianKernel";
    if (n > 0) RunFunction(name, [=] { return KernelPeak(sigma); });
    if (n < 2) return; // a Region alone asks for nothing else
    RunFunction(name, [&] { return SquaredDistance(at(1), at(2)); });
    RunFunction(name, [=] { return KernelSpread(n, area, sigma); });
}

KernelWeights GaussianWeights(const Array1<RegionPoint>& at, Index n, double area, double sigma) {
    CheckFirstWeights(at, n, area, sigma);
    KernelWeights kernel;
    const auto compute = [&] {
        PairDistances distances;
        TakeDistances(at, n, distances);
        kernel.Values = std::move(distances.Squared);
        GaussianKernel(kernel.Values, area, sigma, kernel);
    };
    RunProcedure("GaussianKernel", compute, [] {});
    RowNormalise(kernel);
    return kernel;
}

void PutWeights(const KernelWeights& kernel, Table<double>& weights) {
    constexpr Index block = 32; // what goes both ways stays in the cache
    constexpr Index operations = 10;
    const Index n = kernel.Values.Regions();
    if (n > 0) (void)weights(n, n); // as large as that
    const auto putRows = [&](RowRange rows) {
        for (Index i = rows.First + 1; i <= rows.Last; ++i)
            weights(i, i) = kernel.Peak / kernel.Length(i);
        for (Index i = rows.First + 1; i <= rows.Last; i += block)
            for (Index j = i; j <= n; j += block)
                PutBlock(kernel, {i, std::min(i + block, rows.Last + 1)}, {j, std::min(j + block, n + 1)},
                         weights);
    };
    RunRowWorkers(WorkersFor(n * n * operations), n, putRows, block);
}

void WeightedSums(const KernelWeights& kernel, const Array1<double>& scores, Index n, Array1<double>& sums) {
    if (kernel.Values.Regions() != n || (n > 0 && scores.UpperBound() < n))
        RaiseCustomary(SubscriptOutOfRange, "WeightedSums", "Weights or scores of other Regions.");
    const auto weighted = [&](auto value, auto i, auto j) {
        return j.Of(scores) * (value / i.Of(kernel.Length));
    };
    SumAlongPairs(kernel.Values, kernel.Peak, weighted, FaintTermsOf(kernel, scores, n), sums);
}

} // namespace vastrel
