#include "core/retrospective/Bandwidth.h"

#include "core/platform/Platform.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

#include <cmath>

namespace vastrel {

bool TakeSingleSigma(const std::string& text) {
    if (!IsNumeric(text)) {
        Warn("Bandwidth should be numerical.");
        return false;
    }
    const double sigma = ToNumber(text);
    if (sigma < 0) {
        Warn("Bandwidth should not be negative.");
        return false;
    }
    ws.CurrentSigma = sigma == 0 ? SigmaForZero : sigma;
    return true;
}

bool TakeSweepRange(const SweepTexts& texts, SweepRange& range) {
    if (!IsNumeric(texts.From) || !IsNumeric(texts.To) || !IsNumeric(texts.Step)) {
        Warn("A range of bandwidth parameters should be numeric.");
        return false;
    }
    ws.CurrentSigma = range.From = ToNumber(texts.From);
    ws.SigmaTo = range.To = ToNumber(texts.To);
    range.Step = ToNumber(texts.Step);
    if (!(range.From >= 0 && range.To > 0 && range.From < range.To && range.Step > 0)) {
        Warn("Ivalid range of bandwidth was input. Check the parameters!");
        return false;
    }
    return true;
}

std::int16_t SweepStepCount(const SweepRange& range) {
    return RoundToInt16(std::fabs(range.From - range.To) / range.Step + 1);
}

} // namespace vastrel
