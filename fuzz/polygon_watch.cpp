// The prospective test on polygons, from the files up to lists, report, maps and layer. An input is a byte
// for the source of the z-scores and three for the columns, the parameters in three lines, the cusum file and
// the text of the z-scores, each behind its length, and the three files as in the target shapefile.
#include "CheckingSurface.h"
#include "FuzzTarget.h"
#include "ShapefileInput.h"
#include "WatchFlow.h"
#include "core/binding/CusumNames.h"
#include "core/display/PolygonPainter.h"
#include "core/prospective/CusumFile.h"
#include "core/prospective/CusumInput.h"
#include "core/prospective/PolygonCusum.h"
#include "core/prospective/PolygonPeriods.h"
#include "core/prospective/PolygonSource.h"
#include "core/workspace/Workspace.h"

using namespace vastrel;

namespace {

struct WatchInput {
    ZSource Source;
    unsigned First, Last, ID;
    CusumTexts Texts;
    TextFile Saved, ZScores;
    std::string Shapefile;

    StartOption Start() const { return Saved.Bytes().empty() ? StartOption::Zero : StartOption::Previous; }
};

WatchInput TakeInput(InputParts parts) {
    const auto source = parts.TakeChoice(2) == 0 ? ZSource::Fields : ZSource::Text;
    const unsigned first = parts.TakeByte(), last = parts.TakeByte(), id = parts.TakeByte();
    const CusumTexts texts = TakeTexts(parts);
    const TextFile saved("saved.csm", std::string(parts.TakePart()));
    const TextFile zScores("z.txt", std::string(parts.TakePart()));
    return {source, first, last, id, texts, saved, zScores, WriteShapefile(parts)};
}

/// The z-scores of the run; false where the columns are refused.
bool ReadZScores(const WatchInput& input, Table<double>& z) {
    if (input.Source == ZSource::Text) {
        ReadTextZScores(input.ZScores);
        z = ws.TextZScore;
        return true;
    }
    if (!TakeStartField(ColumnOf(input.First), ColumnName(input.First)) ||
        !TakeEndField(ColumnOf(input.Last), ColumnName(input.Last)))
        return false;
    ReadFieldZScores(z);
    return true;
}

void Watch(const WatchInput& input) {
    OpenDataset(input.Shapefile);
    if (ws.NumRegion > MostWatched) return;
    TakeCusumNames({true, ColumnName(input.ID), true, ColumnName(input.ID + 1)});
    if (input.Start() == StartOption::Previous) ReadCusumFile(input.Saved);
    if (!TakeParameters(input.Texts)) return;
    ws.bCusumRun = true;
    Table<double> z;
    if (!ReadZScores(input, z) || ws.RunPeriodCount > MostWatched) return;
    RunPolygonCusum(z, input.Start(), RunLabels(input.Source));
    BeginPolygonChart(ShownPeriods::SavedAndNew);
    CheckingSurface surface(PolygonMapSurface());
    ShowResults(
        PolygonOutputs(), PolygonWatchRegions(),
        [&](std::ptrdiff_t t) {
            AddPolygonPeriod(ShownPeriods::New, t);
            PolygonPeriodRow(ShownPeriods::New, t);
            DrawCusumMap(surface, t);
        },
        PolygonLayer);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const WatchInput input = TakeInput({data, size});
    RunOnInput([&] { Watch(input); });
    return 0;
}
