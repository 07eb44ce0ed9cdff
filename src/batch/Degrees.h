#pragma once

#include "batch/Command.h"

#include <cstddef>

namespace vastrel {

struct Place {
    double X = 0, Y = 0;
};

/// Whether a place could be longitude and latitude: it lies between -180 and 360 by -90 and 90.
bool CouldBeDegrees(const Place& place);

/// Whether all of the places 1 to `count` could be; false for no place.
template <typename PlaceOf>
bool AreDegrees(std::ptrdiff_t count, PlaceOf placeOf) {
    for (std::ptrdiff_t i = 1; i <= count; ++i)
        if (!CouldBeDegrees(placeOf(i))) return false;
    return count > 0;
}

/// Whether the positions of the Regions could be degrees; of a shapefile its projection tells it, where it
/// has one.
bool HasDegrees();
bool HasDegrees(const std::string& shapefilePath);

/// Tells on standard error that distances are planar; nothing where the program is to be quiet.
void NoteDegrees(const ProgramOptions& program);

} // namespace vastrel
