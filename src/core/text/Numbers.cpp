#include "core/text/Numbers.h"

#include "core/platform/RunTimeError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

namespace vastrel {

namespace {

/// A positive decimal number: value = 0.d1d2d3... * 10^exponent.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

/// The decimal digits of |value|, rounded to 15 significant ones.
Decimal FifteenDigits(double value) {
    char text[40]; // d.dddddddddddddde+XX
    *std::to_chars(text, text + sizeof text - 1, std::fabs(value), std::chars_format::scientific, 14).ptr = 0;
    Decimal decimal;
    decimal.digits = std::string(1, text[0]) + std::string(text + 2, 14);
    decimal.exponent = std::atoi(text + 17) + 1;
    return decimal;
}

/// The digits before and behind the point after rounding to `decimals` places, ties away from zero.
std::string RoundedDigits(const Decimal& number, int decimals) {
    const int kept = number.exponent + decimals; // digits that stay; may be negative
    const int known = static_cast<int>(number.digits.size());
    std::string digits = number.digits.substr(0, static_cast<size_t>(std::clamp(kept, 0, known)));
    const bool up = kept >= 0 && kept < known && number.digits[static_cast<size_t>(kept)] >= '5';
    if (kept > known) digits.append(static_cast<size_t>(kept - known), '0');
    if (!up) return digits;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return digits;
        }
        *digit = '0';
    }
    return "1" + digits;
}

} // namespace

std::string Num(double value, std::string_view pattern) {
    if (!std::isfinite(value)) RaiseCustomary(Overflow, "Num");
    const size_t blanks = std::min(pattern.find_first_not_of(' '), pattern.size());
    const size_t point = pattern.find('.');
    const bool hasPoint = point != std::string_view::npos;
    const int decimals = hasPoint ? static_cast<int>(pattern.size() - point - 1) : 0;

    std::string digits = value == 0 ? "" : RoundedDigits(FifteenDigits(value), decimals);
    const size_t least = static_cast<size_t>(decimals) + 1; // one digit before the point at least
    if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
    if (hasPoint) digits.insert(digits.size() - static_cast<size_t>(decimals), ".");
    return std::string(blanks, ' ') + (value < 0 ? "-" : "") + digits;
}

std::string Pad(std::string_view text, int n) {
    const auto isLead = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    const auto length = std::count_if(text.begin(), text.end(), isLead);
    return std::string(static_cast<size_t>(std::max<std::ptrdiff_t>(0, n - length)), ' ') + std::string(text);
}

namespace {

std::string UpperExponent(char* begin, char* end) {
    std::replace(begin, end, 'e', 'E');
    return {begin, end};
}

} // namespace

std::string GeneralText(double value) {
    if (value == 0) return "0";
    char text[40];
    char* const end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15).ptr;
    return UpperExponent(text, end);
}

std::string ShortestFloatText(float value) {
    if (value == 0) return "0";
    char text[40];
    const char* end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr;
    double digits = 0; // nine at the most, so that the text of the double has no others
    std::from_chars(text, end, digits);
    return GeneralText(digits);
}

std::string ShortestText(double value) {
    char text[40];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

size_t SkipDigits(std::string_view text, size_t from) {
    while (from < text.size() && IsDigit(text[from]))
        ++from;
    return from;
}

} // namespace

bool IsNumeric(std::string_view text) {
    text = Trimmed(text);
    size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    size_t end = SkipDigits(text, at);
    size_t digits = end - at;
    at = end;
    if (at < text.size() && text[at] == '.') {
        end = SkipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0) return false;
    if (at == text.size()) return true;
    if (std::string_view("eEdD").find(text[at]) == std::string_view::npos) return false;
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    end = SkipDigits(text, at);
    return end > at && end == text.size();
}

double ToNumber(std::string_view text, const std::string& place) {
    const auto where = [&] { return place.empty() ? std::string() : place + ": "; };
    if (!IsNumeric(text)) {
        constexpr size_t shown = 40;
        const std::string quoted(text.substr(0, shown));
        RaiseCustomary(TypeMismatch, "ToNumber",
                       where() + "\"" + quoted + (text.size() > shown ? "..." : "") + "\" is not a number.");
    }
    std::string plain(Trimmed(text));
    if (plain.front() == '+') plain.erase(0, 1);
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
    double value = 0;
    const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    // Out of the range of a double at either end: a stream reads the small end as zero or the smallest
    // numbers, and refuses the large one.
    std::istringstream stream(plain);
    stream.imbue(std::locale::classic());
    if (stream >> value) return value;
    RaiseCustomary(Overflow, "ToNumber", where() + "the number is too large.");
}

std::int32_t RoundToInt32(double value) {
    const double whole = std::nearbyint(value); // the rounding mode is always to nearest, ties to even
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max()))
        RaiseCustomary(Overflow, "RoundToInt32");
    return static_cast<std::int32_t>(whole);
}

std::int16_t RoundToInt16(double value) {
    const std::int32_t whole = RoundToInt32(value);
    if (whole < std::numeric_limits<std::int16_t>::min() || whole > std::numeric_limits<std::int16_t>::max())
        RaiseCustomary(Overflow, "RoundToInt16");
    return static_cast<std::int16_t>(whole);
}

int Counter16(double n) {
    if (!(n <= std::numeric_limits<std::int16_t>::max()))
        RaiseCustomary(Overflow, "Counter16",
                       GeneralText(n) + " is more than a 16-bit counter holds (32767).");
    return static_cast<int>(n);
}

} // namespace vastrel
