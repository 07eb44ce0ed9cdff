#include "batch/Degrees.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/Projection.h"
#include "core/workspace/Workspace.h"

#include <iostream>

namespace vastrel {

bool CouldBeDegrees(const Place& place) {
    return place.X >= -180 && place.X <= 360 && place.Y >= -90 && place.Y <= 90;
}

namespace {

/// A projection that cannot be read tells nothing, and the dataset is still good.
std::string ProjectionIfReadable(const std::string& shapefilePath) {
    try {
        return ProjectionOf(shapefilePath);
    } catch (const RunTimeError&) {
        return "";
    }
}

} // namespace

bool HasDegrees() {
    return AreDegrees(ws.RegionCentroid.UpperBound(), [](std::ptrdiff_t i) {
        return Place{ws.RegionCentroid(i).X, ws.RegionCentroid(i).Y};
    });
}

bool HasDegrees(const std::string& shapefilePath) {
    const std::string projection = ProjectionIfReadable(shapefilePath);
    if (!projection.empty()) return IsGeographic(projection);
    return HasDegrees();
}

void NoteDegrees(const ProgramOptions& program) {
    if (program.Quiet) return;
    std::cerr << "Note: the coordinates look like degrees. Distances are computed in the plane: "
                 "project the data first.\n";
}

} // namespace vastrel
