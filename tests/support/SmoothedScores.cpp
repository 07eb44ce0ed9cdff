#include "support/SmoothedScores.h"

#include "core/workspace/Workspace.h"

#include <cmath>

namespace vastrel {

long double ScoreAnotherWay(const std::string& option, long double observed, long double expected) {
    const long double o = std::sqrt(observed), e = std::sqrt(expected);
    if (option == "poisson") return observed / e - e;
    if (option == "standard") return o + std::sqrt(1 + observed) - std::sqrt(1 + 4 * expected);
    return observed / (2 * e) - 1.5L * e + o;
}

std::vector<double> SmoothedAnotherWay(const std::vector<long double>& scores, long double sigma) {
    const long double mean = static_cast<long double>(ws.TotalShapeArea) / ws.NumRegion;
    std::vector<double> z;
    for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i) {
        long double sum = 0, squares = 0;
        for (std::ptrdiff_t j = 1; j <= ws.NumRegion; ++j) {
            const long double dx = ws.RegionCentroid(i).X - ws.RegionCentroid(j).X;
            const long double dy = ws.RegionCentroid(i).Y - ws.RegionCentroid(j).Y;
            const long double g = std::exp(-(dx * dx + dy * dy) / (2 * sigma * sigma * mean));
            sum += g * scores[static_cast<size_t>(j - 1)];
            squares += g * g;
        }
        z.push_back(static_cast<double>(sum / std::sqrt(squares)));
    }
    return z;
}

} // namespace vastrel
