#include "core/spatial/CentroidFile.h"

#include "core/platform/Computation.h"
#include "core/spatial/Centroids.h"
#include "core/text/Numbers.h"
#include "core/text/TextFile.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

std::string CentroidFileText() {
    const int count = Counter16(ws.NumRegion);
    const auto coordinate = [](double value) { return Pad(Num(value, "###0.000000"), 18); };
    std::string text = " ID,           CentX,           CentY\r\n";
    for (int i = 1; i <= count; ++i) {
        const RegionPoint& centroid = ws.RegionCentroid(i);
        text +=
            Pad(std::to_string(i), 3) + "," + coordinate(centroid.X) + "," + coordinate(centroid.Y) + "\r\n";
    }
    return text;
}

void mnuGetCentroid() {
    {
        const Computation places;
        ComputeShapeAreas();
        ComputeCentroids();
    }
    FileQuestion question;
    question.Way = FileQuestion::Kind::Save;
    question.Filter = CentroidFilter;
    const FileChoice choice = platform().ChooseFile(question);
    if (choice.Cancelled || choice.Path.empty()) return;
    WriteFile(choice.Path, CentroidFileText());
}

} // namespace vastrel
