#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace vastrel {

/// A column of results: its name of at most 10 characters, and its value in each row, counted from 1. The
/// values are taken where they stand; a table lives no longer than what it is made from.
struct ResultColumn {
    using Texts = std::function<std::string(std::ptrdiff_t row)>;
    using Numbers = std::function<double(std::ptrdiff_t row)>;
    using Wholes = std::function<std::int64_t(std::ptrdiff_t row)>; // of at most nine digits

    std::string Name;
    std::variant<Texts, Numbers, Wholes> Values;
};

/// Rows of results, as every format of a layer or a table writes them.
struct ResultTable {
    std::ptrdiff_t RowCount = 0;
    std::vector<ResultColumn> Columns;

    void AddTexts(const std::string& name, ResultColumn::Texts values);
    void AddNumbers(const std::string& name, ResultColumn::Numbers values);
    void AddWholes(const std::string& name, ResultColumn::Wholes values);
};

/// The same rows with values of their own: they stay when what they were taken from changes or goes.
ResultTable Kept(const ResultTable& table);

} // namespace vastrel
