#pragma once

#include "core/workspace/Workspace.h"

#include <functional>
#include <string>
#include <vector>

namespace vastrel {

/// What a walk does with a ring: its record, counted from 0, and its vertices without the closing one.
using RingAction = std::function<void(std::int32_t record, const std::vector<PointXY>& ring)>;

/// Walks the rings of all records of a polygon file, in the order of the file.
///
/// The painters' own reading of a .shp, apart from CShapeFile: it needs no .shx, and takes the records back
/// to back from behind the main header, each as long as its counts of parts and points tell; the lengths and
/// numbers in the record headers and the shape types are not looked at. One record is held at a time. A
/// record without a part, and a part of no more than one vertex, has no ring.
///
/// Run-time errors: 53, 70 and 75 for a file that cannot be opened; 62 where the file ends before a record
/// does; 9 for negative counts and for part indexes that do not rise within the points; 6 for a coordinate
/// that is not finite. All but the first name file and record, and so does an overflow of the action.
void WalkRings(const std::string& path, const RingAction& action);

} // namespace vastrel
