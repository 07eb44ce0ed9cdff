#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vastrel {

/// The number in a decimal pattern: blanks, then any of "#" and ",", digits "0", and decimals behind a
/// point. "0.000", "###0.000" and " 0.0000" are such patterns. Leading blanks of the pattern stand before the
/// sign.
///
/// Rounds on the decimal text of the value with 15 significant digits, ties away from zero: 2.675 in "0.00"
/// is 2.68. A negative value keeps its minus sign when it prints as zero; a negative zero has none.
/// A value that is not finite is run-time error 6.
std::string Num(double value, std::string_view pattern);

/// The text right-aligned in n characters (not bytes). A longer text is kept whole.
std::string Pad(std::string_view text, int n);

/// The general text of a double: up to 15 significant digits, plain from 0.0001 to below 1E+15, else like
/// 2.5E+20 or 1E-05; "0" for both zeros.
std::string GeneralText(double value);

/// The fewest digits that read back as the same 32-bit float, in the same plain or exponent form.
std::string ShortestFloatText(float value);

/// The fewest digits that read back as the same 64-bit float, as files for other programs hold it: 12, 0.1,
/// -0, 1e-09; no more than 24 characters.
std::string ShortestText(double value);

/// Blanks or tabs around, a sign, digits 0 to 9 with an optional point, an optional exponent (e, E, d, D).
/// No thousands marks, hexadecimal, nan or inf; the point is the decimal sign in every locale.
/// The empty text is not numeric. A number too large for a double is.
bool IsNumeric(std::string_view text);

/// The value of a numeric text. Run-time error 13 for any other text, 6 for a number too large for a double.
/// `place` (a file and line, say) goes into the error's description.
double ToNumber(std::string_view text, const std::string& place = {});

/// Rounds to the nearest whole number, ties to the even one. Run-time error 6 outside the 32-bit range.
std::int32_t RoundToInt32(double value);

/// The same for the 16-bit range.
std::int16_t RoundToInt16(double value);

/// States a 16-bit counter: run-time error 6 above 32767, otherwise the number itself.
int Counter16(double n);

} // namespace vastrel
