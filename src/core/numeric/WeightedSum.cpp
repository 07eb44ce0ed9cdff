#include "core/numeric/WeightedSum.h"

namespace vastrel {

double WeightedSum(const double* weights, const Array1<double>& scores, std::ptrdiff_t n) {
    if (n > 0) (void)scores(n); // as many as there are Regions
    const double* score = scores.data();
    double sum = 0;
    for (std::ptrdiff_t j = 1; j <= n; ++j)
        sum = sum + score[j] * weights[j];
    return sum;
}

} // namespace vastrel
