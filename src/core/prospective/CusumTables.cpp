#include "core/prospective/CusumTables.h"

#include "core/numeric/Memory.h"
#include "core/text/Numbers.h"

namespace vastrel {

void CusumOutputs::ReDim(std::ptrdiff_t n, std::ptrdiff_t periods) const {
    Cusum.Clear();
    MaxCusum.Clear();
    MaxRegion.Clear();
    RegionLabel.Clear();
    Counter16(static_cast<double>(periods));
    ReDimWithinMemory(Cusum, n, periods, "RunCusum");
    MaxCusum.ReDim(periods);
    MaxRegion.ReDim(periods);
    RegionLabel.ReDim(n);
}

void CusumOutputs::SetZero() const {
    Cusum.SetZero();
    MaxCusum.SetZero();
    MaxRegion.SetZero();
    RegionLabel.SetZero();
}

void ReDimWithinMemory(Table<double>& table, std::ptrdiff_t n, std::ptrdiff_t m, const char* source) {
    table.Clear();
    RequireMemory(static_cast<double>(n + 1) * static_cast<double>(m + 1) * sizeof(double), source);
    table.ReDim(n, m);
}

} // namespace vastrel
