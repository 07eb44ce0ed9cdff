#include "display/BandwidthAnimation.h"

#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "retrospective/Sweep.h"

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
