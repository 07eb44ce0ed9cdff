#pragma once

#include <map>
#include <string>
#include <vector>

namespace vastrel::validation {

/// The raw counts of a study: files of comma-separated values in one folder, a row each of what was counted.
/// The first column of every file names the cell. `cells.csv` says with how many replications each finished
/// cell was done.
class Results {
public:
    using Row = std::vector<std::string>;

    /// Takes what an earlier start has left in the folder, which is made where it is missing.
    explicit Results(const std::string& folder);

    /// 0 for a cell that is not finished.
    long ReplicationsOf(const std::string& cell) const;

    /// A row of a cell that is being computed; `columns` is the head of the file without its first column.
    void Add(const std::string& file, const std::string& columns, Row row);

    /// Puts the rows in the place of earlier ones of this cell and writes the files, `cells.csv` last.
    void Finish(const std::string& cell, long replications);

private:
    struct File {
        std::string Columns;
        std::map<std::string, std::vector<Row>> Rows; // by cell
        std::vector<Row> Fresh;
    };
    void Read(const std::string& name);
    void Write(const std::string& name) const;

    std::string folder_;
    std::map<std::string, File> files_;
};

/// A number for a file: up to `digits` significant digits.
std::string Shown(double value, int digits = 9);

} // namespace vastrel::validation
