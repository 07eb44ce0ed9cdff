#pragma once

#include "core/workspace/Arrays.h"

#include <string>
#include <vector>

namespace vastrel {

/// A chart of two series over labelled rows, as in the store: element (row, 0 or 1), rows from 0.
struct ChartPicture {
    Table<double> Data;
    std::vector<std::string> RowLabels;
    std::string SeriesNames[2];
    std::string AxisTitle;
};

} // namespace vastrel
