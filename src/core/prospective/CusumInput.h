#pragma once

#include "core/prospective/PointCusum.h"
#include "core/text/TextFile.h"

namespace vastrel {

// The text files of a prospective run: three of one on points, and the z-scores of one on polygons. Fields
// stand between commas; the first line alone decides how many columns a file has; there is no header. The
// numbers of rows of the files are not compared.
//
// Each is read from a file that stands in memory, or by its path. A load that is refused shows its message
// and gives false; an empty path is refused as a file that was not chosen. Run-time errors: those of
// TextFile; 62 an empty file; 9 a later line with too few fields; 13 a field that is no number, 6 a number
// too large; 7 a table beyond the memory. A load that stops half way, by a message or an error, leaves what
// it had filled, and the period count of the load before it.

/// Loads ids and coordinates: id, x, y, one line for each point. The id is kept as it stands. Sets N and
/// NumTextRegion and drops the plotted positions of an earlier dataset. Only the first line is tested for
/// three fields.
bool LoadIDXY(PointCusum& watch, const TextFile& file);
bool LoadIDXY(PointCusum& watch, const std::string& path);

/// Loads new z-scores: one line for each Region, one value for each period. Replaces N. An empty field is
/// refused with a message that names its row, one too high, and its column; it is meant so.
bool LoadNewZScore(PointCusum& watch, const TextFile& file);
bool LoadNewZScore(PointCusum& watch, const std::string& path);

/// Loads a saved table of cusums, in the format of the z-scores; N stays.
bool LoadOldCusum(PointCusum& watch, const TextFile& file);
bool LoadOldCusum(PointCusum& watch, const std::string& path);

/// Loads the z-scores of a polygon dataset into TextZScore, TextPeriodCount and RunPeriodCount of the store,
/// for NumRegion Regions. Fewer rows leave the rest at 0; a row beyond NumRegion is run-time error 9, an
/// empty field is no number (13). Nothing is shown.
void ReadTextZScores(const TextFile& file);
void ReadTextZScores(const std::string& path);

} // namespace vastrel
