#pragma once

#include "core/display/PolygonMap.h"

#include <functional>
#include <string>

namespace vastrel {

/// The yields before each frame.
constexpr long BandwidthFrameDelay = 50000;

/// What the animation asks of the screens.
struct AnimationScreen {
    std::function<bool()> IsStillShown;                // asked after each wait
    std::function<PolygonMap()> Map;                   // as it is at each frame
    std::function<void(std::ptrdiff_t row)> SelectRow; // of lstGlobalPatternSummary
};

/// Steps the statistic map through the bandwidths of the last sweep. Each frame takes its values, waits,
/// paints by the variable of that moment, and selects its row; CurrentSigma is left to the row's click. False
/// where the screens were gone after a wait, or play something newer: nothing more is done then.
bool AnimateBandwidths(const AnimationScreen& screen);

/// "Bandwidth=0.400" for step k.
std::string BandwidthTip(std::ptrdiff_t k);

} // namespace vastrel
