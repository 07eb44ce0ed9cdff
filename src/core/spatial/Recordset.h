#pragma once

#include "core/spatial/CodePage.h"
#include "core/spatial/DbaseTable.h"
#include "core/spatial/FieldValue.h"

#include <string>
#include <vector>

namespace vastrel {

class Recordset;

/// A column of a recordset, and its value in the current row.
class Field {
public:
    Field(Recordset& owner, DbaseColumn column);

    const std::string& Name() const { return column_.Name; }
    FieldType Type() const { return type_; }
    /// Run-time error 3021 where the recordset stands at its end.
    FieldValue Value() const;

private:
    friend class Recordset;

    Recordset* owner_;
    DbaseColumn column_;
    FieldType type_;
};

/// All rows of an attribute table, in the order of the file, read-only, with a current row. It stands on the
/// first row when it is opened. A column with N, no decimals and a width below 10 is of type integer, any
/// other N and F column double; a memo keeps its place and reads as null.
class Recordset {
public:
    /// Opens the table; errors as for DbaseTable.
    explicit Recordset(const std::string& path);
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    int RecordCount() const { return table_.RowCount(); }
    /// A recordset without rows stands at its end at once.
    void MoveFirst() { row_ = 0; }
    /// Run-time error 3021 behind the end.
    void MoveNext();
    bool EndOfFile() const { return row_ >= RecordCount(); }

    int FieldCount() const { return static_cast<int>(fields_.size()); }
    /// Run-time error 3265 for a column that does not exist. Numbers count from 0; a name is found as it
    /// stands, then without regard to case.
    const Field& Fields(int number) const;
    const Field& Fields(const std::string& name) const;

    /// A value of any row, counted from 0; the current row stays. Errors as for a field's value.
    FieldValue ValueAt(int row, int field);

    /// The rest of the rows, from the current one on, as text: a tab between columns, a carriage return
    /// between rows, nothing for a null. The recordset stands at its end afterwards.
    std::string GetString();

private:
    friend class Field;
    FieldValue ValueOf(int row, const Field& field);

    DbaseTable table_;
    CodePage codePage_;
    std::vector<Field> fields_;
    int row_ = 0;
};

} // namespace vastrel
