#pragma once

#include "core/prospective/CusumTables.h"

namespace vastrel {

// The plain arithmetic of the cusum engine; faults show in the floating-point flags.

/// The one-sided cusum over `periods` columns of `filtered`, Region by Region within each period:
/// S(i, t) = max(0, F(i, t) + S(i, t - 1) - k), where S of the first period goes on from start(i). Column 1
/// of `filtered` goes to column `first` of the outputs. Nothing is reset when a sum passes the threshold.
///
/// MaxCusum and MaxRegion take the strict maximum of each period, starting from what they hold (0 and an
/// empty label): the first of equal Regions stays. E. S. Page, Continuous inspection schemes,
/// Biometrika 41 (1954).
void SumCusums(const Table<double>& filtered, std::ptrdiff_t n, std::ptrdiff_t periods, double k,
               const Array1<double>& start, std::ptrdiff_t first, const Array1<std::string>& labels,
               const CusumOutputs& outputs);

/// The saved table of `rows` Regions as the first columns of the outputs, unchanged and not bounded at 0,
/// with the strict maximum of each period.
void TakeSavedPeriods(const Table<double>& saved, std::ptrdiff_t rows, std::ptrdiff_t periods,
                      const Array1<std::string>& labels, const CusumOutputs& outputs);

} // namespace vastrel
