#include "core/prospective/CusumArithmetic.h"

namespace vastrel {

namespace {

void TakeMaximum(double cusum, std::ptrdiff_t t, const std::string& label, const CusumOutputs& outputs) {
    if (!(cusum > outputs.MaxCusum(t))) return;
    outputs.MaxCusum(t) = cusum;
    outputs.MaxRegion(t) = label;
}

} // namespace

void SumCusums(const Table<double>& filtered, std::ptrdiff_t n, std::ptrdiff_t periods, double k,
               const Array1<double>& start, std::ptrdiff_t first, const Array1<std::string>& labels,
               const CusumOutputs& outputs) {
    for (std::ptrdiff_t t = 1; t <= periods; ++t) {
        const std::ptrdiff_t column = first + t - 1;
        for (std::ptrdiff_t i = 1; i <= n; ++i) {
            const double before = t == 1 ? start(i) : outputs.Cusum(i, column - 1);
            double cusum = (filtered(i, t) + before) - k;
            if (cusum < 0) cusum = 0;
            outputs.Cusum(i, column) = cusum;
            TakeMaximum(cusum, column, labels(i), outputs);
            if (t == 1) outputs.RegionLabel(i) = labels(i);
        }
    }
}

void TakeSavedPeriods(const Table<double>& saved, std::ptrdiff_t rows, std::ptrdiff_t periods,
                      const Array1<std::string>& labels, const CusumOutputs& outputs) {
    for (std::ptrdiff_t t = 1; t <= periods; ++t) {
        for (std::ptrdiff_t i = 1; i <= rows; ++i) {
            outputs.Cusum(i, t) = saved(i, t);
            TakeMaximum(saved(i, t), t, labels(i), outputs);
        }
    }
}

} // namespace vastrel
