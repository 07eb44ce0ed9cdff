#include "batch/Command.h"
#include "core/display/PlotSurface.h"
#include "core/text/Numbers.h"
#include "core/text/TextFile.h"

namespace vastrel {

SurfaceSize ParseSurface(const std::string& text) {
    const auto fields = SplitAtCommas(text);
    const bool numeric =
        std::all_of(fields.begin(), fields.end(), [](const auto& field) { return IsNumeric(field); });
    if (fields.size() != 4 || !numeric) throw WrongUse("--surface takes four numbers, W,H,SW,SH.");
    const auto size = [&](size_t i) { return static_cast<float>(ToNumber(fields[i])); };
    return {size(0), size(1), size(2), size(3)};
}

std::string SurfaceText(const SurfaceSize& size) {
    return GeneralText(size.Width) + "," + GeneralText(size.Height) + "," + GeneralText(size.ScaleWidth) +
           "," + GeneralText(size.ScaleHeight);
}

} // namespace vastrel
