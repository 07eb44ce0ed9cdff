#pragma once

#include <cstdint>
#include <string>

namespace vastrel {

/// What the prospective test and the export put in the place of sigma 0 is theirs; this is the retrospective
/// one.
constexpr double SigmaForZero = 0.00000001;

/// Takes the text of a single bandwidth into CurrentSigma. A text that is not numeric or a negative number is
/// refused with a message: false, and CurrentSigma stays.
bool TakeSingleSigma(const std::string& text);

struct SweepTexts {
    std::string From, To, Step;
};

/// A range of bandwidths as typed.
struct SweepRange {
    double From = 0, To = 0, Step = 0;
};

/// The number of bandwidths in a range. Run-time error 6 for more than a 16-bit counter holds.
std::int16_t SweepStepCount(const SweepRange& range);

/// Takes the texts of a range: From into CurrentSigma, To into SigmaTo. Texts that are not numeric, and then
/// a range that is not valid, are refused with a message: false.
bool TakeSweepRange(const SweepTexts& texts, SweepRange& range);

} // namespace vastrel
