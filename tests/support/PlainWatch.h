#pragma once

#include "support/TemporaryFolder.h"

#include <string>
#include <vector>

namespace vastrel {

// The watch worked out plainly from the bytes of the files; nothing here uses the program's own code.

using NumberRows = std::vector<std::vector<double>>;

/// A table read field by field as its format says.
struct PlainTable {
    std::vector<std::string> Names;
    std::vector<std::vector<std::string>> Rows;

    explicit PlainTable(const std::string& bytes);

    /// So many columns from the named one on, a row a record.
    NumberRows Columns(const std::string& first, size_t count) const;
};

/// The sums by their definition, a row a Region; they go on from `start`, or from 0 where it is empty.
NumberRows PlainCusums(const NumberRows& z, double k, const std::vector<double>& start = {});

/// The scores smoothed between the places, of which `area` is the mean area.
NumberRows PlainSmoothed(const NumberRows& z, const NumberRows& places, double area, double sigma);

/// The columns from..to - 1 of each row.
NumberRows ColumnsOf(const NumberRows& rows, size_t from, size_t to);

/// A copy of the measles map whose table holds a NAME and Z1 to Z40, the z-scores of the first 40 weeks
/// against each region's mean, to four decimals; and the same as text files.
struct MeaslesWatch {
    explicit MeaslesWatch(const TemporaryFolder& folder);

    bool IsThere() const { return !Shp.empty(); }

    std::string Shp;                  // empty where the real data are not there
    std::string Whole, First, Second; // all weeks, the first 20, the others
    NumberRows Z;
};

} // namespace vastrel
