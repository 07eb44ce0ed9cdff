#pragma once

#include <optional>
#include <string>

namespace vastrel {

/// How the calculator counts the independent series.
enum class HValueOption {
    Overall,    // one
    Bonferroni, // as many as Regions
    Spatial,    // fewer, by sigma
};

/// The parameter boxes of Get h-value from ARL, as typed in.
struct HValueTexts {
    std::string K = "0.5";
    std::string ARL0;
    std::string NumRegion = "100";
    std::string Sigma = "1";
};

/// The text of the option's result box: the threshold for a wanted in-control run length. It is rounded to
/// two decimals before 1.166 is taken off, so it has three decimals at most.
///
/// No value in silence where a box that the option uses is not numeric. No value, a message, and the first
/// box at fault emptied, where k, ARL0 or the number of Regions is not above 0 or sigma is below 0.
/// Run-time error 6 for inputs too large.
std::optional<std::string> HValueResult(HValueOption option, HValueTexts& texts);

} // namespace vastrel
