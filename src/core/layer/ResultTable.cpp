#include "core/layer/ResultTable.h"

#include <memory>

namespace vastrel {

void ResultTable::AddTexts(const std::string& name, ResultColumn::Texts values) {
    Columns.push_back({name, std::move(values)});
}

void ResultTable::AddNumbers(const std::string& name, ResultColumn::Numbers values) {
    Columns.push_back({name, std::move(values)});
}

void ResultTable::AddWholes(const std::string& name, ResultColumn::Wholes values) {
    Columns.push_back({name, std::move(values)});
}

namespace {

/// The values of all rows. Copies share them.
template <typename Value>
std::function<Value(std::ptrdiff_t)> Taken(const std::function<Value(std::ptrdiff_t)>& values,
                                           std::ptrdiff_t rowCount) {
    auto taken = std::make_shared<std::vector<Value>>();
    taken->reserve(static_cast<size_t>(rowCount));
    for (std::ptrdiff_t row = 1; row <= rowCount; ++row)
        taken->push_back(values(row));
    return [taken](std::ptrdiff_t row) { return taken->at(static_cast<size_t>(row - 1)); };
}

} // namespace

ResultTable Kept(const ResultTable& table) {
    ResultTable kept{table.RowCount, {}};
    for (const ResultColumn& column : table.Columns)
        std::visit(
            [&](const auto& values) {
                kept.Columns.push_back({column.Name, Taken(values, table.RowCount)});
            },
            column.Values);
    return kept;
}

} // namespace vastrel
