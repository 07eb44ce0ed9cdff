#pragma once

#include "core/text/TextFile.h"

#include <string>

namespace vastrel {

/// What the last two columns of a point file hold.
enum class PointFormat {
    None,    // not chosen: nothing is read
    ObsExp,  // observed count, expected count
    PopCase, // population, cases
};

/// What a person is told of a file whose first line has not five fields.
constexpr const char* WrongPointFormat =
    "Data does not fit the required format. Check the data and requirement, please.";

/// Loads a point text file into the store. The file has one Region a line and no header; its five fields are
/// id, x, y and two counts by `format`. The id is kept as it stands, blanks included.
///
/// Fills NumTextRegion, RegionCentroid, PopBase, ObsCount, ExpCount, ExpRatio and TotalObs. NumRegion is left
/// to the tests. The plotted positions of an earlier dataset are dropped.
///
/// Only the field count of the first line is checked: false, and nothing has changed, where it is not five.
/// Run-time errors: those of TextFile; 62 an empty file; 9 a later line with too few fields; 13 a field that
/// is no number, 6 a number too large; 7 more lines than memory holds, and nothing has changed; 11 counts
/// (ObsExp) or populations (PopCase) that sum to zero, 5 where zero is to be divided by that zero. A load
/// that stops half way leaves what it had filled; what was to be derived stands at zero.
bool LoadPointDataset(const TextFile& file, PointFormat format);
bool LoadPointDataset(const std::string& path, PointFormat format);

} // namespace vastrel
