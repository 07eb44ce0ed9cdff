#pragma once

#include "core/workspace/Arrays.h"

#include <string>

namespace vastrel {

/// The outputs of a cusum run, wherever they are kept: in the store for polygons, in the screen's dataset for
/// points. Lists, reports, charts and files read them through this.
struct CusumOutputs {
    Table<double>& Cusum;             // (Region, period)
    Array1<double>& MaxCusum;         // of each period the largest cusum, 0 at least
    Array1<std::string>& MaxRegion;   // the label of its Region; empty where no cusum is above 0
    Array1<std::string>& RegionLabel; // of each Region

    /// Re-dimensions all four for n Regions, and so drops an earlier run. Run-time error 6 for more periods
    /// than a 16-bit counter holds, 7 where the table would not fit in memory; all are empty then.
    void ReDim(std::ptrdiff_t n, std::ptrdiff_t periods) const;
    void SetZero() const;
};

/// Re-dimensions a table after the check that it fits in memory (run-time error 7, and the table is empty).
void ReDimWithinMemory(Table<double>& table, std::ptrdiff_t n, std::ptrdiff_t m, const char* source);

} // namespace vastrel
