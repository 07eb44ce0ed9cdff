#include "core/spatial/PlotArea.h"

#include <cmath>

namespace vastrel {

double PlotAreaToMap(double plotArea, double scaleX, double scaleY) {
    return std::fabs(plotArea) * (1 / scaleX) * (1 / scaleY);
}

} // namespace vastrel
