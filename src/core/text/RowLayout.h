#pragma once

#include "core/text/Numbers.h"

#include <string>
#include <type_traits>
#include <vector>

namespace vastrel {

/// One piece of a row: a number of `Values` in a pattern, a text of it, or a literal, right-aligned in
/// `Width` characters.
template <typename Values>
struct RowField {
    RowField(double Values::*number, int width, const char* pattern)
        : Number(number), Width(width), Pattern(pattern) {}
    RowField(std::string Values::*text, int width) : Text(text), Width(width) {}
    RowField(const char* literal, int width = 0) : Width(width), Pattern(literal) {}

    double Values::*Number = nullptr;
    std::string Values::*Text = nullptr;
    int Width = 0;
    const char* Pattern = "";
};

/// The columns of a table: its heading as texts with their widths, and its rows. The two are told apart since
/// their widths differ.
template <typename Values>
struct RowLayout {
    std::vector<RowField<Values>> Heading;
    std::vector<RowField<Values>> Row;
};

template <typename Values>
std::string RowText(const std::vector<RowField<Values>>& fields, const std::type_identity_t<Values>& values) {
    std::string row;
    for (const auto& field : fields) {
        if (field.Number != nullptr)
            row += Pad(Num(values.*field.Number, field.Pattern), field.Width);
        else
            row += Pad(field.Text != nullptr ? values.*field.Text : field.Pattern, field.Width);
    }
    return row;
}

template <typename Values>
std::string HeadingText(const RowLayout<Values>& layout) {
    return RowText(layout.Heading, {});
}

/// A line of n minus signs.
std::string Dashes(int n);

} // namespace vastrel
