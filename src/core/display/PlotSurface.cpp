#include "core/display/PlotSurface.h"

#include <cmath>

namespace vastrel {

SurfaceSize FramedSurface(float width, float height) {
    constexpr double frame = 4; // two pixels on each side
    const auto inside = [](float outside) {
        return static_cast<float>(std::nearbyint(outside / LayoutUnit) - frame);
    };
    return {width, height, inside(width), inside(height)};
}

} // namespace vastrel
