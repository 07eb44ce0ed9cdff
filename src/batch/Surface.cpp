#include "batch/Command.h"
#include "core/display/PlotSurface.h"
#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"
#include "core/text/TextFile.h"

#include <cmath>

namespace vastrel {

namespace {

float Side(const std::string& text, double longest) {
    try {
        const double side = ToNumber(text);
        if (std::fabs(side) <= longest) return static_cast<float>(side);
    } catch (const RunTimeError&) { // beyond all numbers
    }
    throw WrongUse("--surface goes up to 10,000 pixels a side, or 150,000 layout units.");
}

} // namespace

SurfaceSize ParseSurface(const std::string& text) {
    const auto fields = SplitAtCommas(text);
    const bool numeric =
        std::all_of(fields.begin(), fields.end(), [](const auto& field) { return IsNumeric(field); });
    if (fields.size() != 4 || !numeric) throw WrongUse("--surface takes four numbers, W,H,SW,SH.");
    constexpr double longest = 10000, unitsOfSide = longest * LayoutUnit;
    return {Side(fields[0], unitsOfSide), Side(fields[1], unitsOfSide), Side(fields[2], longest),
            Side(fields[3], longest)};
}

std::string SurfaceText(const SurfaceSize& size) {
    return GeneralText(size.Width) + "," + GeneralText(size.Height) + "," + GeneralText(size.ScaleWidth) +
           "," + GeneralText(size.ScaleHeight);
}

} // namespace vastrel
