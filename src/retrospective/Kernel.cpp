#include "retrospective/Kernel.h"

#include "platform/Numbers.h"

#include <cmath>

namespace vastrel {

void GaussianKernel(const Array1<RegionPoint>& at, std::ptrdiff_t n, double area, double sigma,
                    Table<double>& kernel) {
    const double peak = 1 / (sigma * std::sqrt(NineDigitPi));
    const double sigmaSquared = Power(sigma, 2);
    const double spread = (sigmaSquared + sigmaSquared) * (area / static_cast<double>(n));
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        const RegionPoint& from = at(i);
        double* row = kernel.row(i);
        for (std::ptrdiff_t j = 1; j <= n; ++j) {
            if (i == j) {
                row[j] = peak;
                continue;
            }
            const RegionPoint& to = at(j);
            const double distance = Power(Power(from.X - to.X, 2) + Power(from.Y - to.Y, 2), 0.5);
            row[j] = peak * std::exp((Power(distance, 2) * -1.0) / spread);
        }
    }
}

void RowNormalise(Table<double>& kernel, std::ptrdiff_t n) {
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        double* row = kernel.row(i);
        double sum = 0;
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            sum = sum + row[j] * row[j];
        const double length = std::sqrt(sum);
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            row[j] = row[j] / length;
    }
}

void ScaleGramByShares(const Table<double>& gram, const Array1<double>& shares, std::ptrdiff_t n,
                       Table<double>& adjusted) {
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        const double* from = gram.row(i);
        double* to = adjusted.row(i - 1);
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            to[j - 1] = from[j] / std::sqrt(shares(i) * shares(j));
    }
}

void ScaleColumnsByExpected(const Table<double>& weights, const Array1<double>& expected, std::ptrdiff_t n,
                            Table<double>& adjusted) {
    for (std::ptrdiff_t i = 1; i <= n; ++i) {
        const double* from = weights.row(i);
        double* to = adjusted.row(i);
        for (std::ptrdiff_t j = 1; j <= n; ++j)
            to[j] = from[j] / std::sqrt(expected(j));
    }
}

} // namespace vastrel
