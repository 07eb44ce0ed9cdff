#pragma once

#include <string>

namespace vastrel {

/// The parameter boxes of a prospective screen, as typed in.
struct CusumTexts {
    std::string K = "0.5";
    std::string H = "9.3";
    std::string Sigma = "0";
};

/// Takes k and h into KValue and HValue. A text of the three that is not numeric, and then a number below 0,
/// is refused with a message: false, and nothing has changed. 0 passes.
bool TakeCusumParameters(const CusumTexts& texts);

/// Takes sigma into CurrentSigma at the start of a run, CusumSigmaForZero for 0. A text that is not numeric
/// (it may have changed since the parameters were taken) shows a message, and the run goes on with the sigma
/// before.
void TakeCusumSigma(const std::string& text);

} // namespace vastrel
