#pragma once

#include "validation/StudyMaps.h"

namespace vastrel::validation {

/// How counts arise: with a fixed total that is dealt out by population, or each region by itself.
enum class CountModel { Multinomial, Poisson };
const char* NameOf(CountModel model);

/// Expected counts of this average, in proportion to the populations; they sum to `average` times the
/// regions.
Array1<double> ExpectedCounts(const StudyMap& map, double average);

/// The expected counts of a truth in which the risk of the regions of `disc` is `risk` times that of the
/// others and the total is the same.
Array1<double> WithCluster(const Array1<double>& expected, const std::vector<std::ptrdiff_t>& disc,
                           double risk);

constexpr long BlockSize = 250; // replications that are drawn from one stream

/// Draws counts with these true means (1..n): tables (region 1..n, replication 1..BlockSize) of blocks 0, 1,
/// and so on, drawn from streams named `stream`.
std::vector<Table<double>> DrawCounts(const std::string& stream, CountModel model,
                                      const Array1<double>& means, long replications);

} // namespace vastrel::validation
