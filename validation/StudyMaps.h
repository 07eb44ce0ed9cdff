#pragma once

#include "core/workspace/Workspace.h"

#include <string>
#include <vector>

namespace vastrel::validation {

/// A map of the study: where its regions lie, its study area, and how many people live in each.
struct StudyMap {
    std::string Name;
    Array1<RegionPoint> At;    // 1..n
    Array1<double> Population; // 1..n
    double Area = 0;           // in square map units

    std::ptrdiff_t Count() const { return At.UpperBound(); }
};

/// The sample as polygons, the area being theirs, and as points, the area being that of their plotted
/// positions.
StudyMap CountryMap(const std::string& samples);
StudyMap CountryPointsMap(const std::string& samples);

/// side x side unit squares with as many people in each.
StudyMap GridMap(int side);

/// The same with populations whose logarithm is normal with a standard deviation of 1.5: the largest of 400
/// regions has thousands of times the people of the smallest.
StudyMap UnequalMap(int side);

/// The region next to the middle of the map, and the regions round it that hold at least this share of the
/// people, nearest first.
std::ptrdiff_t MiddleRegion(const StudyMap& map);
std::vector<std::ptrdiff_t> Disc(const StudyMap& map, double share);

/// Takes the places of the map into the store, as a polygon dataset has them.
void TakeMap(const StudyMap& map);

} // namespace vastrel::validation
