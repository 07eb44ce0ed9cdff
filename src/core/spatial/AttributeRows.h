#pragma once

#include "core/platform/RunTimeError.h"
#include "core/spatial/Recordset.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

// What a person is told of a column that is refused.
constexpr const char* NotNumericalData = "Data should be numerical values!";
constexpr const char* InvalidData = "Data include invalid values. Check data and try again!";
constexpr const char* NullData = "Data include null values. Check data and try again!";

/// The open attribute table of the store; run-time error 91 where none was ever opened.
Recordset& AttributeTable();

/// The names of its columns in table order.
std::vector<std::string> FieldNames();

/// The same of the columns that hold numbers, of type integer or double.
std::vector<std::string> NumericFieldNames();

/// How many rows the table has, and how many Regions there are.
std::string RowsForRegions();

/// Raises run-time error 9 for rows beyond the Regions.
[[noreturn]] void RaiseSurplusRows();

/// Calls row(i) on each row of the table, counted from 1. It begins on the first row and ends there again; an
/// error leaves the table on the row that it came from.
template <typename Row>
void WalkRows(Row row) {
    Recordset& table = AttributeTable();
    table.MoveFirst();
    for (std::ptrdiff_t i = 1; !table.EndOfFile(); ++i) {
        try {
            row(i);
        } catch (const RunTimeError& error) {
            if (error.Number() == SubscriptOutOfRange && i > ws.NumRegion) RaiseSurplusRows();
            throw;
        }
        table.MoveNext();
    }
    table.MoveFirst();
}

/// Re-dimensions `values` to the Regions and fills it with the column's values as text, in row order. A null
/// is run-time error 94, a row beyond the Regions 9, a column that does not exist 3265; the rows before it
/// stay filled.
void ReadTexts(const std::string& column, Array1<std::string>& values);

} // namespace vastrel
