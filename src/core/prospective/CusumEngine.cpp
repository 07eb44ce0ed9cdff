#include "core/prospective/CusumEngine.h"

#include "core/numeric/DenseProduct.h"
#include "core/numeric/KernelRows.h"
#include "core/numeric/Memory.h"
#include "core/numeric/RunProcedure.h"
#include "core/prospective/CusumArithmetic.h"

#include <algorithm>

namespace vastrel {

namespace {

Array1<RegionPoint> Places(const Array1<double>& x, const Array1<double>& y, std::ptrdiff_t n) {
    Array1<RegionPoint> at(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        at(i) = {{}, x(i), y(i)};
    return at;
}

} // namespace

Table<double> BuildCusumWeights(const Array1<double>& x, const Array1<double>& y, std::ptrdiff_t n,
                                double area, double sigma) {
    // The distance of this test is defined with y before x; the sum of two squares is the same to the bit.
    const auto at = Places(x, y, n);
    constexpr double tables = 1.5; // the weights, and beside them the kernel that they are put from
    const auto count = static_cast<double>(n + 1);
    RequireMemory(tables * count * count * sizeof(double), "BuildCusumWeights");
    Table<double> weights(n, n);
    RunProcedure(
        "BuildCusumWeights", [&] { PutWeights(GaussianWeights(at, n, area, sigma), weights); }, [] {});
    return weights;
}

Table<double> FilterZScores(const Table<double>& weights, const Table<double>& z, std::ptrdiff_t n,
                            std::ptrdiff_t periods) {
    Table<double> filtered;
    ReDimWithinMemory(filtered, n, periods, "FilterZScores");
    if (n == 0 || periods == 0) return filtered;
    (void)weights(n, n), (void)z(n, periods); // both are large enough
    RunProcedure(
        "FilterZScores",
        [&] {
            DenseProduct({weights.row(1) + 1, n, n, weights.stride()}, {z.row(1) + 1, n, periods, z.stride()},
                         filtered.row(1) + 1, filtered.stride());
        },
        [] {});
    return filtered;
}

void RunCusum(const Table<double>& filtered, std::ptrdiff_t n, std::ptrdiff_t periods, double k, double s0,
              const Array1<std::string>& labels, const CusumOutputs& outputs) {
    Array1<double> start(n);
    std::fill_n(start.data() + 1, n, s0);
    RunProcedure(
        "RunCusum", [&] { SumCusums(filtered, n, periods, k, start, 1, labels, outputs); },
        [&] { outputs.SetZero(); });
}

void ContinueCusum(const CusumRules& rules, const Table<double>& filtered, std::ptrdiff_t n,
                   std::ptrdiff_t periods, double k, const SavedCusum& saved,
                   const Array1<std::string>& labels, const CusumOutputs& outputs) {
    const std::ptrdiff_t before = rules.KeepsSavedPeriods ? saved.Periods : 0;
    RunProcedure(
        "ContinueCusum",
        [&] {
            TakeSavedPeriods(saved.Cusum, saved.Rows, before, labels, outputs);
            Array1<double> start(n);
            for (std::ptrdiff_t i = 1; i <= n; ++i)
                start(i) = saved.Cusum(i, saved.Periods);
            SumCusums(filtered, n, periods, k, start, before + 1, labels, outputs);
        },
        [&] { outputs.SetZero(); });
}

Array1<double> ColumnMaxima(const Table<double>& table, std::ptrdiff_t rows, std::ptrdiff_t columns) {
    Array1<double> maxima(columns);
    for (std::ptrdiff_t j = 1; j <= columns && rows > 0; ++j) {
        maxima(j) = table(1, j);
        for (std::ptrdiff_t i = 2; i <= rows; ++i)
            maxima(j) = std::max(maxima(j), table(i, j));
    }
    return maxima;
}

} // namespace vastrel
