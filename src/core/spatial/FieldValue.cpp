#include "core/spatial/FieldValue.h"

#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"

#include <algorithm>

namespace vastrel {

namespace {

constexpr int WidestInteger = 9;

/// The text up to its first NUL, without trailing blanks.
std::string_view CutText(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0'));
    const size_t last = bytes.find_last_not_of(' ');
    return bytes.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

FieldValue NumberOf(std::string_view bytes) {
    const std::string_view text = CutText(bytes);
    return IsNumeric(text) ? FieldValue(ToNumber(text)) : FieldValue();
}

FieldValue DateOf(std::string_view bytes) {
    const std::string_view text = CutText(bytes);
    const bool hasDigits = text.size() == 8 &&
                           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!hasDigits) return {};
    const std::string year(text.substr(0, 4)), month(text.substr(4, 2)), day(text.substr(6, 2));
    if (month < "01" || month > "12" || day < "01" || day > "31") return {};
    return FieldValue(year + "-" + month + "-" + day);
}

FieldValue LogicalOf(std::string_view bytes) {
    if (bytes.empty()) return {};
    if (std::string_view("TtYy").find(bytes[0]) != std::string_view::npos) return FieldValue(true);
    if (std::string_view("FfNn").find(bytes[0]) != std::string_view::npos) return FieldValue(false);
    return {};
}

} // namespace

FieldType TypeOfColumn(char letter, int width, int decimals) {
    switch (letter) {
    case 'N':
        return decimals == 0 && width <= WidestInteger ? FieldType::Integer : FieldType::Double;
    case 'F':
        return FieldType::Double;
    case 'C':
        return FieldType::Text;
    case 'D':
        return FieldType::Date;
    case 'L':
        return FieldType::Logical;
    default:
        return FieldType::Memo;
    }
}

bool FieldValue::IsNumeric() const {
    return !IsNull() && vastrel::IsNumeric(Text());
}

double FieldValue::Number() const {
    if (IsNull()) RaiseCustomary(InvalidUseOfNull, "FieldValue");
    if (const double* number = std::get_if<double>(&value_)) return *number;
    if (const bool* logical = std::get_if<bool>(&value_)) return *logical ? -1 : 0;
    return ToNumber(std::get<std::string>(value_));
}

std::string FieldValue::Text() const {
    if (IsNull()) RaiseCustomary(InvalidUseOfNull, "FieldValue");
    if (const double* number = std::get_if<double>(&value_)) return GeneralText(*number);
    if (const bool* logical = std::get_if<bool>(&value_)) return *logical ? "True" : "False";
    return std::get<std::string>(value_);
}

FieldValue ValueOfBytes(std::string_view bytes, FieldType type, const CodePage& codePage) {
    switch (type) {
    case FieldType::Integer:
    case FieldType::Double:
        return NumberOf(bytes);
    case FieldType::Text:
        return FieldValue(codePage.Decode(CutText(bytes)));
    case FieldType::Date:
        return DateOf(bytes);
    case FieldType::Logical:
        return LogicalOf(bytes);
    default:
        return {};
    }
}

} // namespace vastrel
