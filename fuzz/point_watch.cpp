// The prospective test on points, from the files up to lists, report, maps and layer. An input is a byte for
// the start, the parameters in three lines, the ids and the saved cusums, each behind its length, and the
// z-scores.
#include "CheckingSurface.h"
#include "FuzzTarget.h"
#include "WatchFlow.h"
#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "core/prospective/CusumInput.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const auto start = static_cast<StartOption>(parts.TakeChoice(4));
    const CusumTexts texts = TakeTexts(parts);
    const TextFile ids("ids.txt", std::string(parts.TakePart())),
        saved("saved.txt", std::string(parts.TakePart())), zScores("z.txt", std::string(parts.Rest()));
    if (ids.CountLines() > MostWatched) return 0;
    RunOnInput([&] {
        ws.bTextfileData = true;
        PointCusum watch;
        if (!LoadIDXY(watch, ids)) return;
        if (start == StartOption::Previous && !LoadOldCusum(watch, saved)) return;
        if (!LoadNewZScore(watch, zScores) || watch.PeriodCount(start) > MostWatched) return;
        PointMap map(ProspectivePointMapZoom.Start);
        map.X = watch.RegionX;
        map.Y = watch.RegionY;
        CheckingSurface surface(ProspectivePointSurface());
        map.DrawPlainPoints(surface);
        if (!TakeParameters(texts)) return;
        RunPointCusum(watch, start);
        const CusumOutputs run = watch.Outputs(start);
        ShowResults(
            run, PointWatchRegions(watch, start),
            [&](std::ptrdiff_t t) { map.DrawCusumPoints(surface, run.Cusum, watch.N, t, ws.HValue); },
            PointLayer);
    });
    return 0;
}
