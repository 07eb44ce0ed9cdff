#include "core/prospective/CusumParameters.h"

#include "core/platform/Platform.h"
#include "core/prospective/CusumEngine.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

bool TakeCusumParameters(const CusumTexts& texts) {
    if (!IsNumeric(texts.K) || !IsNumeric(texts.H) || !IsNumeric(texts.Sigma)) {
        Warn("Parameters are not properly input.");
        return false;
    }
    const double k = ToNumber(texts.K), h = ToNumber(texts.H);
    if (k < 0 || h < 0 || ToNumber(texts.Sigma) < 0) {
        Warn("Parameters should be positive values.");
        return false;
    }
    ws.KValue = k;
    ws.HValue = h;
    return true;
}

void TakeCusumSigma(const std::string& text) {
    if (!IsNumeric(text)) {
        Warn("The bandwidht should be properly input.");
        return;
    }
    const double sigma = ToNumber(text);
    ws.CurrentSigma = sigma == 0 ? CusumSigmaForZero : sigma;
}

} // namespace vastrel
