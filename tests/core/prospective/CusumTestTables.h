#pragma once

#include "core/prospective/CusumTables.h"

#include <initializer_list>

namespace vastrel {

/// A table with these rows from (1, 1) on.
inline Table<double> TableOf(std::initializer_list<std::initializer_list<double>> rows) {
    Table<double> table(static_cast<std::ptrdiff_t>(rows.size()),
                        static_cast<std::ptrdiff_t>(rows.begin()->size()));
    std::ptrdiff_t i = 0;
    for (const auto& row : rows) {
        ++i;
        std::ptrdiff_t j = 0;
        for (const double value : row)
            table(i, ++j) = value;
    }
    return table;
}

/// Row i of a table from column 1 on.
inline std::vector<double> RowOf(const Table<double>& table, std::ptrdiff_t i) {
    return {table.row(i) + 1, table.row(i) + table.stride()};
}

/// The elements of an array from 1 on.
template <typename T>
std::vector<T> FromOne(const Array1<T>& array) {
    std::vector<T> values;
    for (std::ptrdiff_t i = 1; i <= array.UpperBound(); ++i)
        values.push_back(array(i));
    return values;
}

/// Outputs of a run of a test's own.
struct OwnOutputs {
    OwnOutputs(std::ptrdiff_t n, std::ptrdiff_t periods) { All().ReDim(n, periods); }
    CusumOutputs All() { return {Cusum, MaxCusum, MaxRegion, RegionLabel}; }

    Table<double> Cusum;
    Array1<double> MaxCusum;
    Array1<std::string> MaxRegion, RegionLabel;
};

/// The number of the run-time error that an action raises; 0 for none.
template <typename Action>
long ErrorOf(Action action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.Number();
    }
    return 0;
}

using Texts = std::vector<std::string>;
using Numbers = std::vector<double>;

} // namespace vastrel
