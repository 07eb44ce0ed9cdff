#pragma once

#include "core/spatial/CodePage.h"

#include <string>
#include <string_view>
#include <variant>

namespace vastrel {

/// The types of columns, with the numbers by which database drivers know them.
enum class FieldType { Integer = 3, Double = 5, Date = 7, Logical = 11, Text = 202, Memo = 203 };

/// The type of a column of this native letter, width and number of decimals.
FieldType TypeOfColumn(char letter, int width, int decimals);

/// Whether a column of this type can hold counts: integer or double.
constexpr bool IsNumberType(FieldType type) {
    return type == FieldType::Integer || type == FieldType::Double;
}

/// A value of an attribute table: null, a number, a logical, or a text (dates too).
class FieldValue {
public:
    FieldValue() = default;
    explicit FieldValue(double number) : value_(number) {}
    explicit FieldValue(bool logical) : value_(logical) {}
    explicit FieldValue(std::string text) : value_(std::move(text)) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(value_); }

    /// Whether it is a number, or a text that holds one; a null, a logical and a date are not.
    bool IsNumeric() const;

    /// A text is converted; a logical is -1 or 0. Run-time error 94 for a null, 13 for other text, 6 for a
    /// number too large.
    double Number() const;

    /// A number in its general text (12, not 12.0), a date as 2026-11-20, a logical as True or False.
    /// Run-time error 94 for a null.
    std::string Text() const;

    bool operator==(const FieldValue&) const = default;

private:
    std::variant<std::monostate, double, bool, std::string> value_;
};

/// The value that the bytes of a table hold. Null are numbers that are blank, all "*" or no number at all,
/// dates that are none, logicals that are neither true nor false, and memos. Trailing blanks of a text are
/// cut, leading ones kept; a blank text is empty, not null. Run-time error 6 for a number too large.
FieldValue ValueOfBytes(std::string_view bytes, FieldType type, const CodePage& codePage);

} // namespace vastrel
