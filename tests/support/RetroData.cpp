#include "support/RetroData.h"

#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "core/retrospective/PointDataset.h"
#include "core/workspace/Workspace.h"
#include "support/ProjectFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace vastrel {

namespace {
const std::string GoldenFolder = InProject("tests/golden/");
}

void TakeRetroRegions(const std::vector<RetroRegion>& regions, double area) {
    ws = Workspace{};
    ws.bShapefileData = true;
    ws.AlphaLevel = 0.05;
    ws.TotalShapeArea = area;
    ws.NumRegion = static_cast<std::int32_t>(regions.size());
    ws.RegionCentroid.ReDim(ws.NumRegion);
    ws.PrimaryIDs.ReDim(ws.NumRegion);
    for (auto* values : {&ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        values->ReDim(ws.NumRegion);
    std::ptrdiff_t i = 0;
    for (const auto& region : regions) {
        ++i;
        ws.RegionCentroid(i) = {std::to_string(i), region.X, region.Y};
        ws.PrimaryIDs(i) = std::to_string(i);
        ws.ObsCount(i) = region.Obs;
        ws.ExpCount(i) = region.Exp;
        ws.TotalObs += region.Obs;
    }
    for (i = 1; i <= ws.NumRegion; ++i)
        ws.ExpRatio(i) = ws.ExpCount(i) / ws.TotalObs;
}

void TakeFivePoints() {
    ws = Workspace{};
    ws.bTextfileData = true;
    ws.AlphaLevel = 0.05;
    ASSERT_TRUE(LoadPointDataset(GoldenFolder + "five.txt", PointFormat::ObsExp));
    PointMap map(RetroPointMapZoom.Start);
    map.TakeCentroids(5);
    PlotAllPoints(map.View, {5595, 4275, 369, 281}, map.X, map.Y);
}

std::string GoldenFive(const std::string& variable, const std::string& kind, const std::string& what) {
    return ReadFile(GoldenFolder + "five_" + variable + "_" + kind + "_" + what + ".txt");
}

} // namespace vastrel
