#include "core/retrospective/PointDataset.h"

#include "core/numeric/Memory.h"
#include "core/numeric/RunProcedure.h"
#include "core/retrospective/PointExpected.h"
#include "core/spatial/StudyArea.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

constexpr size_t FieldCount = 5;

void Allocate(std::ptrdiff_t n) {
    constexpr double bytesOfRegion = sizeof(RegionPoint) + 4 * sizeof(double);
    RequireMemory(static_cast<double>(n + 1) * bytesOfRegion, "LoadPointDataset");
    ws.NumTextRegion = static_cast<double>(n);
    ws.RegionCentroid.ReDim(n);
    for (auto* counts : {&ws.PopBase, &ws.ObsCount, &ws.ExpCount, &ws.ExpRatio})
        counts->ReDim(n);
    // What belongs to the points of an earlier dataset must not be drawn or measured with these.
    ForgetPlottedPoints();
    for (auto* values : {&ws.MapClassScore, &ws.MapDrawScore, &ws.MapClassM, &ws.MapDrawM,
                         &ws.DisplayClassValues, &ws.DisplayDrawValues})
        values->Clear();
    ws.StatisticTable.Clear();
}

void ReadRecords(const TextFile& file, PointFormat format) {
    auto& firstCount = format == PointFormat::ObsExp ? ws.ObsCount : ws.PopBase;
    auto& secondCount = format == PointFormat::ObsExp ? ws.ExpCount : ws.ObsCount;
    LineReader reader(file);
    std::string line;
    for (std::ptrdiff_t i = 1; reader.NextLine(line); ++i) {
        const auto fields = SplitAtCommas(line, FieldCount);
        const std::string place = reader.Place();
        const auto number = [&](size_t column) { return ToNumber(FieldAt(fields, column, place), place); };
        auto& region = ws.RegionCentroid(i);
        region.ID = FieldAt(fields, 0, place);
        region.X = number(1);
        region.Y = number(2);
        firstCount(i) = number(3);
        secondCount(i) = number(4);
    }
}

void DeriveExpected(PointFormat format) {
    const auto derive = format == PointFormat::ObsExp ? SharesOfExpected : ExpectedFromPopulation;
    RunProcedure("LoadPointDataset", derive, [format] {
        if (format == PointFormat::PopCase) ws.ExpCount.SetZero(); // derived there, read otherwise
        ws.ExpRatio.SetZero();
        ws.TotalObs = 0;
    });
}

} // namespace

bool LoadPointDataset(const TextFile& file, PointFormat format) {
    if (SplitAtCommas(file.FirstLine(), FieldCount + 1).size() != FieldCount) return false;
    Allocate(file.CountLines());
    if (format == PointFormat::None) return true;
    ReadRecords(file, format);
    DeriveExpected(format);
    return true;
}

bool LoadPointDataset(const std::string& path, PointFormat format) {
    return LoadPointDataset(TextFile(path), format);
}

} // namespace vastrel
