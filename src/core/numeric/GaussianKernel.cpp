#include "core/numeric/GaussianKernel.h"

#include "core/numeric/DenseProduct.h"
#include "core/numeric/Exponentials.h"
#include "core/numeric/Power.h"
#include "core/numeric/RowSums.h"
#include "core/numeric/RowWorkers.h"
#include "core/text/Numbers.h"

#include <cmath>

namespace vastrel {

namespace {

/// What a power, an exponential, and a root or a division take, in ordinary operations.
constexpr std::ptrdiff_t PowerCost = 60;
constexpr std::ptrdiff_t ExponentialCost = 20;
constexpr std::ptrdiff_t DivisionCost = 5;

/// Rows 1..n of a table, shared out to the workers, where all of them together cost so many operations.
void ForRows(std::ptrdiff_t n, std::ptrdiff_t operations, const std::function<void(std::ptrdiff_t i)>& row) {
    RunRowWorkers(WorkersFor(operations), n, [&](RowRange range) {
        for (std::ptrdiff_t i = range.First + 1; i <= range.Last; ++i)
            row(i);
    });
}

bool BelongTo(const PairDistances& distances, const Array1<RegionPoint>& at, std::ptrdiff_t n) {
    if (distances.X.UpperBound() != n) return false;
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        if (distances.X(i) != at(i).X || distances.Y(i) != at(i).Y) return false;
    return true;
}

} // namespace

void TakeDistances(const Array1<RegionPoint>& at, std::ptrdiff_t n, PairDistances& distances) {
    if (BelongTo(distances, at, n)) return;
    distances = {};
    distances.Squared.ReDim(PairDistances::Count(n));
    distances.X.ReDim(n);
    distances.Y.ReDim(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        distances.X(i) = at(i).X;
        distances.Y(i) = at(i).Y;
    }
    const double* x = distances.X.data();
    const double* y = distances.Y.data();
    ForRows(n, PairDistances::Count(n) * 4 * PowerCost, [&](std::ptrdiff_t i) {
        double* squared = distances.PairsOf(i, n);
        for (std::ptrdiff_t j = i + 1; j <= n; ++j) {
            const double distance = Power(Power(x[i] - x[j], 2) + Power(y[i] - y[j], 2), 0.5);
            *squared++ = Power(distance, 2);
        }
    });
}

void GaussianKernel(const PairDistances& distances, std::ptrdiff_t n, double area, double sigma,
                    Table<double>& kernel) {
    const double peak = 1 / (sigma * std::sqrt(NineDigitPi));
    const double sigmaSquared = Power(sigma, 2);
    const double spread = (sigmaSquared + sigmaSquared) * (area / static_cast<double>(n));
    ForRows(n, PairDistances::Count(n) * ExponentialCost, [&](std::ptrdiff_t i) {
        const double* squared = distances.PairsOf(i, n);
        double* row = kernel.row(i);
        row[i] = peak;
        for (std::ptrdiff_t j = i + 1; j <= n; ++j)
            row[j] = (*squared++ * -1.0) / spread;
        Exponentials(row + i + 1, n - i, row + i + 1);
        for (std::ptrdiff_t j = i + 1; j <= n; ++j)
            row[j] = peak * row[j];
    });
    if (n > 0) MirrorUpperTriangle(kernel.row(1) + 1, n, kernel.stride());
}

void GaussianKernel(const Array1<RegionPoint>& at, std::ptrdiff_t n, double area, double sigma,
                    Table<double>& kernel) {
    PairDistances distances;
    TakeDistances(at, n, distances);
    GaussianKernel(distances, n, area, sigma, kernel);
}

void RowNormalise(Table<double>& kernel, std::ptrdiff_t n) {
    const auto square = [](const double* row, std::ptrdiff_t j) { return row[j] * row[j]; };
    const auto divide = [&](std::ptrdiff_t i, double sum) {
        double* row = kernel.row(i);
        const double length = std::sqrt(sum);
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            row[j] = row[j] / length;
    };
    SumAlongRows(kernel, n, DivisionCost, square, divide);
}

void ScaleGramByShares(const Table<double>& gram, const Array1<double>& shares, std::ptrdiff_t n,
                       Table<double>& adjusted) {
    if (n > 0) (void)shares(n); // as many as there are Regions
    const double* p = shares.data();
    ForRows(n, n * n * 2 * DivisionCost, [&](std::ptrdiff_t i) {
        const double* from = gram.row(i - 1);
        double* to = adjusted.row(i - 1);
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            to[j - 1] = from[j - 1] / std::sqrt(p[i] * p[j]);
    });
}

void ScaleColumnsByExpected(const Table<double>& weights, const Array1<double>& expected, std::ptrdiff_t n,
                            Table<double>& adjusted) {
    Array1<double> root(n);
    for (std::ptrdiff_t j = 1; j <= n; ++j)
        root(j) = std::sqrt(expected(j));
    ForRows(n, n * n * DivisionCost, [&, r = root.data()](std::ptrdiff_t i) {
        const double* from = weights.row(i);
        double* to = adjusted.row(i);
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            to[j] = from[j] / r[j];
    });
}

} // namespace vastrel
