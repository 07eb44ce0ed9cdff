#pragma once

#include "core/workspace/Arrays.h"

#include <string>
#include <vector>

namespace vastrel {

// The rows of the two list boxes of a prospective screen.

/// The two rows on top of lstPeriod. Below them stand the periods, and a row of CusumDashes at the end.
std::vector<std::string> PeriodTitleRows();
std::string CusumDashes();

/// The row of a period in lstPeriod. It carries no mark of a signal.
std::string PeriodRow(std::ptrdiff_t period, double maximum, const std::string& region);

/// The period behind a row of lstPeriod (rows counted from 0), for a list of `periods` periods; 0 for a title
/// or closing row.
std::ptrdiff_t PeriodOfRow(std::ptrdiff_t row, std::ptrdiff_t periods);

/// The row of a Region in lstRegion.
std::string SignaledRow(double cusum, const std::string& label);

/// The Regions of 1..n that signal in a period: their cusum is strictly above the threshold. In Region order.
std::vector<std::ptrdiff_t> SignaledRegions(const Table<double>& cusum, std::ptrdiff_t n,
                                            std::ptrdiff_t period, double h);

/// The rows of lstRegion for these Regions.
std::vector<std::string> SignaledRows(const Table<double>& cusum, const Array1<std::string>& labels,
                                      std::ptrdiff_t period, const std::vector<std::ptrdiff_t>& regions);

/// The text about one Region in one period: "A12 in 7: ---> 3.25".
std::string RegionInfo(const std::string& label, std::ptrdiff_t period, double cusum);

} // namespace vastrel
