#include "core/numeric/GaussianKernel.h"

#include "core/numeric/Exponentials.h"
#include "core/numeric/Power.h"
#include "core/numeric/RowWorkers.h"
#include "core/numeric/Vectors.h"

#include <cmath>
#include <functional>

namespace vastrel {

namespace {

/// What a distance, an exponential, and a root or a division take, in ordinary operations.
constexpr std::ptrdiff_t DistanceCost = 10;
constexpr std::ptrdiff_t ExponentialCost = 20;
constexpr std::ptrdiff_t DivisionCost = 5;

/// Rows 1..n of a table, shared out to the workers, where all of them together cost so many operations.
void ForRows(std::ptrdiff_t n, std::ptrdiff_t operations, const std::function<void(std::ptrdiff_t i)>& row) {
    RunRowWorkers(WorkersFor(operations), n, [&](RowRange range) {
        for (std::ptrdiff_t i = range.First + 1; i <= range.Last; ++i)
            row(i);
    });
}

/// The powers of exponent 2 and 0.5, which are the product and the root in every bit.
inline double SquaredLength(double dx, double dy) {
    const double distance = std::sqrt(dx * dx + dy * dy);
    return distance * distance;
}

bool BelongTo(const PairDistances& distances, const Array1<RegionPoint>& at, std::ptrdiff_t n) {
    if (distances.X.UpperBound() != n) return false;
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        if (distances.X(i) != at(i).X || distances.Y(i) != at(i).Y) return false;
    return true;
}

} // namespace

double KernelPeak(double sigma) {
    return 1 / (sigma * std::sqrt(NineDigitPi));
}

double KernelSpread(std::ptrdiff_t n, double area, double sigma) {
    const double sigmaSquared = Power(sigma, 2);
    return (sigmaSquared + sigmaSquared) * (area / static_cast<double>(n));
}

double SquaredDistance(const RegionPoint& from, const RegionPoint& to) {
    return SquaredLength(from.X - to.X, from.Y - to.Y);
}

void TakeDistances(const Array1<RegionPoint>& at, std::ptrdiff_t n, PairDistances& distances) {
    if (BelongTo(distances, at, n)) return;
    distances = {};
    distances.Squared.ReDimUnset(n);
    distances.X.ReDim(n);
    distances.Y.ReDim(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        distances.X(i) = at(i).X;
        distances.Y(i) = at(i).Y;
    }
    const double* x = distances.X.data();
    const double* y = distances.Y.data();
    ForRows(n, distances.Squared.Count() * DistanceCost, [&](std::ptrdiff_t i) {
        double* squared = distances.Squared.After(i);
        for (std::ptrdiff_t j = i + 1; j <= n; ++j)
            *squared++ = SquaredLength(x[i] - x[j], y[i] - y[j]);
    });
}

void GaussianKernel(const Pairs& squaredDistances, double area, double sigma, KernelWeights& kernel) {
    const std::ptrdiff_t n = squaredDistances.Regions();
    kernel.SetUnitLengths(n);
    if (&squaredDistances != &kernel.Values) kernel.Values.ReDimUnset(n);

    const double peak = kernel.Peak = KernelPeak(sigma);
    const std::ptrdiff_t count = squaredDistances.Count();
    const double spread = count > 0 ? KernelSpread(n, area, sigma) : 0; // a Region alone does not ask for it
    const double* from = squaredDistances.All();
    double* to = kernel.Values.All();
    const auto takePiece = [=](RowRange pairs) {
        GaussianValues(from + pairs.First, pairs.Last - pairs.First, spread, peak, to + pairs.First);
    };
    constexpr std::ptrdiff_t piece = 8192;
    RunTeam(WorkersFor(count * ExponentialCost),
            [&](Team& team) { team.Share(count, piece, piece, takePiece); });
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
