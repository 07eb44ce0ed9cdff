// The retrospective test on points, from the file up to lists, report, map and layer. An input is a byte for
// the format, what is chosen, and the file.
#include "CheckingSurface.h"
#include "FuzzTarget.h"
#include "RetroFlow.h"
#include "core/display/MapZoom.h"
#include "core/display/PointLegend.h"
#include "core/display/PointMap.h"
#include "core/retrospective/PointDataset.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const auto format = parts.TakeChoice(2) == 0 ? PointFormat::ObsExp : PointFormat::PopCase;
    const RetroChoice choice(parts);
    const TextFile file("points.txt", std::string(parts.Rest()));
    if (file.CountLines() > MostRegions) return 0;
    CheckingSurface surface(RetroPointSurface());
    for (const auto run : {RunOneBandwidth, RunRange})
        RunOnInput([&] {
            ws.bTextfileData = true;
            if (!LoadPointDataset(file, format)) return;
            PointMap map(RetroPointMapZoom.Start);
            map.TakeCentroids(static_cast<std::ptrdiff_t>(ws.NumTextRegion));
            map.DrawPlainPoints(surface);
            run(choice, PointRules(), [&](const Array1<double>& values) {
                map.DrawStatisticPointsFrom(surface, values);
                PrintPointLegend(surface, choice.Variable);
            });
        });
    return 0;
}
