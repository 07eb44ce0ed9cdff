#pragma once

#include "core/text/TextFile.h"
#include "core/workspace/Arrays.h"

#include <string>
#include <vector>

namespace vastrel {

// A cusum file (.csm) keeps the cusums of a run for a later one: a header "period1,period2," and a line of
// numbers for each Region, with a comma behind every field. It holds no ids and no parameters.
//
//     period1,period2,period3,
//     0.31,0,1.8,
//     0,0.4,2.25,

/// The lines of the file for the Regions 1..rows and the periods 1..columns. Numbers have up to 15
/// significant digits, so that a continued run goes on with that precision.
std::vector<std::string> CusumFileLines(const Table<double>& cusum, std::ptrdiff_t rows,
                                        std::ptrdiff_t columns);

/// Reads a cusum file into PreviousCusum (NumRegion rows) and PreviousPeriodCount, the number of commas in
/// its first line; nothing else of that line is looked at. Faults of the content are passed over without a
/// message, which is meant: a field that is no number and a field that is missing leave 0, a row beyond
/// NumRegion is dropped, Regions without a row stand at 0, an empty file has no period.
///
/// Run-time errors only for a file that cannot be read (those of TextFile, over-long lines included) and for
/// a table beyond the memory (7).
void ReadCusumFile(const TextFile& file);
void ReadCusumFile(const std::string& path);

} // namespace vastrel
