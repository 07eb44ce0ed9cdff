#include "core/layer/CsvTable.h"

#include "core/text/Numbers.h"

namespace vastrel {

namespace {

std::string Quoted(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

struct Cell {
    std::ptrdiff_t Row;
    std::string operator()(const ResultColumn::Texts& values) const { return Quoted(values(Row)); }
    std::string operator()(const ResultColumn::Numbers& values) const { return ShortestText(values(Row)); }
    std::string operator()(const ResultColumn::Wholes& values) const { return std::to_string(values(Row)); }
};

/// Appends a line of one field a column.
template <typename Field>
void AppendLine(std::string& text, const ResultTable& table, const Field& field) {
    for (const ResultColumn& column : table.Columns) {
        if (&column != &table.Columns.front()) text += ',';
        text += field(column);
    }
    text += '\n';
}

} // namespace

std::string CsvText(const ResultTable& table) {
    std::string text;
    AppendLine(text, table, [](const ResultColumn& column) { return Quoted(column.Name); });
    for (std::ptrdiff_t row = 1; row <= table.RowCount; ++row)
        AppendLine(text, table,
                   [row](const ResultColumn& column) { return std::visit(Cell{row}, column.Values); });
    return text;
}

} // namespace vastrel
