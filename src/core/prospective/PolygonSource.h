#pragma once

#include "core/workspace/Arrays.h"

#include <string>

namespace vastrel {

// Where a prospective run on polygons has its z-scores from: columns of the attribute table that lie side by
// side in period order, or a text file.

enum class ZSource { Fields, Text };

/// Takes the first or the last column by its number, counted from 0, into StartFieldIndex or EndFieldIndex,
/// and looks through the column of this name. False where it is refused, after the message; the index is
/// taken all the same. Values that are no numbers are refused, nulls among them, and a last column in front
/// of the first. Columns between the two are not looked at; it is meant so.
/// Run-time error 91 without a table.
bool TakeStartField(std::ptrdiff_t number, const std::string& name);
bool TakeEndField(std::ptrdiff_t number, const std::string& name);

/// The periods of a run: the columns from the first to the last one, or those of the text file.
std::ptrdiff_t SourcePeriodCount(ZSource source);

/// Sets RunPeriodCount and fills `z`, NumRegion x RunPeriodCount, with the columns in table order, a record a
/// Region; fewer records leave the rest at 0. The results of the run before are dropped first: those of this
/// one stand at zero where a column stops it.
/// Run-time errors: 9 for a last column two or more in front of the first, and for more records than Regions;
/// 3265 for a number behind the last column; 94 for a null, 13 for a text.
void ReadFieldZScores(Table<double>& z);

/// The labels of the records, with both ids. There may be fewer records than Regions.
/// Run-time error 94 for a null.
Array1<std::string> RecordLabels();

/// The labels of the Regions in a run: those of the records with columns, the primary ids alone with a text
/// file, where Regions without a record have none. Run-time errors with columns: 3021 for fewer records than
/// Regions, 9 for more, 94 for a null.
Array1<std::string> RunLabels(ZSource source);

} // namespace vastrel
