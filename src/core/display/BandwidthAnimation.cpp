#include "core/display/BandwidthAnimation.h"

#include "core/platform/Platform.h"
#include "core/retrospective/Sweep.h"
#include "core/text/Numbers.h"

namespace vastrel {

bool AnimateBandwidths(const AnimationScreen& screen) {
    for (std::ptrdiff_t k = 0; k < ws.BandwidthCount; ++k) {
        TakeSweepValues(k);
        platform().Yield(BandwidthFrameDelay);
        if (!screen.IsStillShown()) return false;
        ShowRetroMap(screen.Map(), ws.DisplayClassValues, ws.DisplayDrawValues);
        screen.SelectRow(RowOfSweepStep(k));
    }
    return true;
}

std::string BandwidthTip(std::ptrdiff_t k) {
    return "Bandwidth=" + Num(ws.BandwidthList(k), "0.000");
}

} // namespace vastrel
