#include "validation/PValueCut.h"

#include "core/retrospective/PValues.h"

#include <cmath>

namespace vastrel::validation {

PValueCut::PValueCut(double limit) : limit_(limit) {
    double low = 0, high = 4.6;
    for (int i = 0; i < 30; ++i) {
        z_ = (low + high) / 2;
        (NormalPValue(z_) < limit ? high : low) = z_;
    }
    // The last step of the walk may go beyond 0 and takes up to 0.00004 off the p-value.
    constexpr double unsure = 0.0001, root2Pi = 2.5066;
    margin_ = unsure * root2Pi * std::exp(z_ * z_ / 2);
}

bool PValueCut::Below(double z) const {
    const double distance = std::abs(z) - z_;
    if (std::abs(distance) > margin_) return distance > 0;
    return NormalPValue(z) < limit_;
}

} // namespace vastrel::validation
