#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel {

/// A column of a dBASE table as the table's header tells it.
struct DbaseColumn {
    std::string Name;
    char Letter = 'C'; // the native type: N, F, C, D, L, M and others
    int Width = 0;
    int Decimals = 0;
    size_t Place = 0; // in a row, behind the byte that marks a deleted one
};

/// An open dBASE table, whose rows are given as the bytes of the file. They are read whole at the open: what
/// becomes of the file later is not seen. Rows that are marked as deleted are rows like the others.
class DbaseTable {
public:
    /// Opens a table; the file is found regardless of the case of its name. What keeps it from being one is a
    /// run-time error whose description tells a person which file it is and what is wrong: 53 no such file,
    /// 70 not permitted, 62 a file that is cut off, 13 a header that contradicts itself.
    explicit DbaseTable(const std::string& path);
    ~DbaseTable();
    DbaseTable(const DbaseTable&) = delete;
    DbaseTable& operator=(const DbaseTable&) = delete;

    const std::string& Path() const { return path_; }
    int RowCount() const { return rowCount_; }
    int LanguageByte() const { return languageByte_; }
    const std::vector<DbaseColumn>& Columns() const { return columns_; }

    /// The bytes of one value; rows and columns count from 0.
    std::string_view Bytes(int row, const DbaseColumn& column);

private:
    std::string path_;
    std::vector<DbaseColumn> columns_;
    int rowCount_ = 0;
    int languageByte_ = 0;
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

} // namespace vastrel
