#pragma once

#include "display/PolygonMap.h"

#include <functional>
#include <string>

namespace vastrel {

/// The yields before each frame.
constexpr long BandwidthFrameDelay = 50000;

/// What the animation asks of the screens.
struct AnimationScreen {
    std::function<bool()> IsStillShown;                // asked after each wait
    std::function<void(std::ptrdiff_t row)> SelectRow; // of lstGlobalPatternSummary
};

/// The row of lstGlobalPatternSummary that stands for step k of the sweep; two title rows come first.
constexpr std::ptrdiff_t RowOfSweepStep(std::ptrdiff_t k) {
    return k + 2;
}

/// Steps the statistic map through the bandwidths of the last sweep. Each frame takes its values, waits,
/// paints, and selects its row; CurrentSigma is left to the row's click. False where the screen was gone
/// after a wait: nothing more is done then.
bool AnimateBandwidths(const PolygonMap& map, const AnimationScreen& screen);

/// "Bandwidth=0.400" for step k.
std::string BandwidthTip(std::ptrdiff_t k);

} // namespace vastrel
