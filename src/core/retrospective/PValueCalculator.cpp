#include "core/retrospective/PValueCalculator.h"

#include "core/platform/Platform.h"
#include "core/retrospective/PValues.h"
#include "core/text/Numbers.h"

namespace vastrel {

namespace {
constexpr const char* ResultPattern = "0.00000000";
}

std::optional<std::string> NormalResult(const std::string& z) {
    if (IsNumeric(z)) return Num(NormalPValue(ToNumber(z)), ResultPattern);
    Warn(z.empty() ? "Z-score should be specified." : "Z-score should be numeric.");
    return {};
}

std::optional<std::string> ChiSquareResult(const std::string& chi, const std::string& df) {
    if (IsNumeric(chi) && IsNumeric(df)) {
        const double value = ToNumber(chi);
        return Num(ChiSquarePValue(value, RoundToInt16(ToNumber(df))), ResultPattern);
    }
    if (chi.empty() || df.empty()) Warn("Both chi-square statistic and D.F. should be specified.");
    return {};
}

} // namespace vastrel
