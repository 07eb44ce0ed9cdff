#pragma once

#include <optional>
#include <string>

namespace vastrel {

// The calculator behind Get p-value: texts as typed in, the text of the result box out. No value, and a
// message where one belongs, for texts that are refused.

/// The p-value of a z text. Empty or not numeric texts are refused with their messages.
std::optional<std::string> NormalResult(const std::string& z);

/// The p-value of a chi-squared text and a text of degrees of freedom, which is rounded to a 16-bit integer
/// ("2.5" becomes 2). An empty text is refused with its message; texts that are not both numeric are refused
/// in silence, which is meant. Run-time errors: those of ChiSquarePValue, 6 for degrees beyond 16 bits.
std::optional<std::string> ChiSquareResult(const std::string& chi, const std::string& df);

} // namespace vastrel
