#pragma once

#include <string>
#include <vector>

namespace vastrel {

/// The values that rows of lists and reports are built of.
struct RowValues {
    std::string ID1, ID2;
    double Local = 0; // U(i) or M(i)
    double Z = 0;     // Z[U(i)]
    double Obs = 0, Exp = 0;
    double Sigma = 0;
    double Stat = 0; // global U, or the maximum M where no score is computed
    double Chi = 0, DF = 0, P = 0;
    double M = 0, MCritical = 0;
};

/// One piece of a row: a number in a pattern, a text, or a literal, right-aligned in `Width` characters.
struct RowField {
    RowField(double RowValues::*number, int width, const char* pattern)
        : Number(number), Width(width), Pattern(pattern) {}
    RowField(std::string RowValues::*text, int width) : Text(text), Width(width) {}
    RowField(const char* literal, int width = 0) : Width(width), Pattern(literal) {}

    double RowValues::*Number = nullptr;
    std::string RowValues::*Text = nullptr;
    int Width = 0;
    const char* Pattern = "";
};

/// The columns of a table: its heading as texts with their widths, and its rows. The two are told apart since
/// their widths differ.
struct RowLayout {
    std::vector<RowField> Heading;
    std::vector<RowField> Row;
};

std::string RowText(const std::vector<RowField>& fields, const RowValues& values);
std::string HeadingText(const RowLayout& layout);

/// A line of n minus signs.
std::string Dashes(int n);

} // namespace vastrel
