#pragma once

#include "core/prospective/CusumRules.h"
#include "core/workspace/Arrays.h"

namespace vastrel {

// The charts of a cusum against the threshold over the periods: the maxima of a run, filled period by period,
// and one Region, filled at once. All are operations on one table of the store, CusumChartData, and its row
// labels, since only one chart is filled at a time. Periods that are not reached yet stand at 0.

/// The captions of the two series.
constexpr const char* CusumSeriesCaption = "Cusum";
constexpr const char* ThresholdSeriesCaption = "h-value";
constexpr const char* PeriodAxisTitle = "Period";

/// Prepares the table for `periods` periods against the threshold h, rows labelled 1, 2, ...
void ChartSet(std::ptrdiff_t periods, double h);

/// The same for a continued run: `savedMaxima` (1..savedPeriods) stand in the first rows. The rows have no
/// labels before the first update. Run-time error 9 for more saved periods than periods.
void ChartSetPrev(std::ptrdiff_t periods, double h, const Array1<double>& savedMaxima,
                  std::ptrdiff_t savedPeriods);

/// Puts in the value of period t and labels all rows. Run-time error 9 beyond the table.
void ChartUpdate(std::ptrdiff_t t, double cusum);

/// The same with labels on the first `labelled` rows alone, or on all where there are not as many.
void ChartUpdatePrev(std::ptrdiff_t t, double cusum, std::ptrdiff_t labelled);

/// How many rows a continued run of `periods` periods labels: all on points; on polygons as many as the saved
/// periods and the columns chosen last, also where the z-scores come from a text file, which is meant.
std::ptrdiff_t ContinuedLabelCount(const CusumRules& rules, std::ptrdiff_t periods);

/// Fills the chart of one Region: row i of a cusum table.
void ChartRegion(const Table<double>& cusum, std::ptrdiff_t i, std::ptrdiff_t periods, double h);

} // namespace vastrel
