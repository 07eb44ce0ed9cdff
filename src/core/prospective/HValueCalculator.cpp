#include "core/prospective/HValueCalculator.h"

#include "core/numeric/RunProcedure.h"
#include "core/platform/Platform.h"
#include "core/prospective/HValueArithmetic.h"
#include "core/text/Numbers.h"

#include <algorithm>
#include <vector>

namespace vastrel {

namespace {

/// A box with the test that its number must pass.
struct TestedBox {
    std::string* Text;
    bool ZeroPasses;
};

/// The boxes that an option uses, in the order in which they are tested.
std::vector<TestedBox> BoxesOf(HValueOption option, HValueTexts& texts) {
    std::vector<TestedBox> boxes{{&texts.K, false}, {&texts.ARL0, false}};
    if (option != HValueOption::Overall) boxes.push_back({&texts.NumRegion, false});
    if (option == HValueOption::Spatial) boxes.push_back({&texts.Sigma, true});
    return boxes;
}

double SeriesOf(HValueOption option, const HValueTexts& texts) {
    if (option == HValueOption::Overall) return 1;
    const double n = ToNumber(texts.NumRegion);
    return option == HValueOption::Bonferroni ? n : IndependentSeries(n, ToNumber(texts.Sigma));
}

} // namespace

std::optional<std::string> HValueResult(HValueOption option, HValueTexts& texts) {
    const auto boxes = BoxesOf(option, texts);
    if (!std::all_of(boxes.begin(), boxes.end(), [](const auto& box) { return IsNumeric(*box.Text); }))
        return {};
    for (const auto& box : boxes) {
        const double value = ToNumber(*box.Text);
        if (value > 0 || (box.ZeroPasses && value == 0)) continue;
        Warn("k-value and ARL0 should be positive numerical values");
        box.Text->clear();
        return {};
    }
    const double g = RunFunction("HValueResult", [&] {
        return UnroundedThreshold(ToNumber(texts.K), ToNumber(texts.ARL0), SeriesOf(option, texts));
    });
    return GeneralText(ToNumber(Num(g, "0.00")) - 1.166);
}

} // namespace vastrel
