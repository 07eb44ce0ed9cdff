#include "core/retrospective/ScoreArithmetic.h"

#include "core/numeric/Power.h"
#include "core/numeric/RowWorkers.h"
#include "core/text/Numbers.h"

#include <cmath>

namespace vastrel {

LocalScore LocalScoreOf(const double* weights, const Array1<double>& observed, const Array1<double>& expected,
                        double total, std::ptrdiff_t n) {
    if (n > 0) (void)observed(n), (void)expected(n); // as many as there are Regions
    const double* o = observed.data();
    const double* e = expected.data();
    double a = 0, b = 0, c = 0;
    for (std::ptrdiff_t j = 1; j <= n; ++j) {
        a = a + (o[j] - e[j]) * weights[j];
        b = b + weights[j] * weights[j] * e[j];
        c = c + (e[j] * weights[j]) / total;
    }
    return {a, a / std::sqrt(b - c)};
}

Table<double> ShareCovariance(const Array1<double>& shares, std::ptrdiff_t n) {
    Table<double> covariance;
    covariance.ReDimUnset(n - 1, n - 1);
    if (n > 0) (void)shares(n); // as many as there are Regions
    const double* p = shares.data() + 1;
    RunRowWorkers(WorkersFor(2 * n * n), n, [&](RowRange rows) {
        for (std::ptrdiff_t i = rows.First; i < rows.Last; ++i) {
            double* row = covariance.row(i);
            for (std::ptrdiff_t j = 0; j < n; ++j)
                row[j] = 0 - p[i] * p[j];
            row[i] = p[i] - p[i] * p[i];
        }
    });
    return covariance;
}

double Trace(const Table<double>& matrix) {
    double sum = 0;
    for (std::ptrdiff_t i = 0; i <= matrix.UpperBound1(); ++i)
        sum = sum + matrix(i, i);
    return sum;
}

double ColumnSum(const Table<double>& matrix) {
    double sum = 0;
    for (std::ptrdiff_t i = 0; i <= matrix.UpperBound1(); ++i)
        sum = sum + matrix(i, 0);
    return sum;
}

Moments MomentsOf(double trace1, double trace2, double trace3, double total) {
    Moments moments;
    const double ratio = Power(trace2, 1.5) / trace3;
    moments.DegreesOfFreedom = ratio * ratio;
    moments.Mean = trace1 / total;
    moments.Variance = (trace2 + trace2) / (total * total);
    return moments;
}

Approximation Standardise(double scaledU, const Moments& moments) {
    Approximation result;
    const double deviation = std::sqrt(moments.Variance);
    result.Z = (scaledU - moments.Mean) / deviation;
    const double df = moments.DegreesOfFreedom;
    result.Chi = result.Z * std::sqrt(df + df) + df;
    return result;
}

double DividedBy(double a, double b) {
    return a / b;
}

} // namespace vastrel
