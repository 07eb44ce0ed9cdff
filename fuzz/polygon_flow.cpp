// The retrospective test on polygons, from the files up to lists, report, map and layer. An input is a byte
// for the format and four for the columns, what is chosen, and the three files as in the target shapefile.
#include "CheckingSurface.h"
#include "FuzzTarget.h"
#include "RetroFlow.h"
#include "ShapefileInput.h"
#include "core/binding/ColumnBinding.h"
#include "core/display/PolygonLegend.h"
#include "core/display/PolygonPainter.h"

using namespace vastrel;

namespace {

bool BindColumns(CountFormat format, unsigned base, unsigned count, unsigned id, unsigned secondID) {
    TakePrimaryIDs(ColumnName(id));
    ws.bUseSecondaryID = secondID % 2 == 1;
    if (ws.bUseSecondaryID) TakeSecondaryIDs(ColumnName(secondID));
    const std::string first = ColumnName(base), second = ColumnName(count);
    return BindCounts(format, {first, second, second, first, ColumnName(id), ColumnName(secondID)});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const auto format = parts.TakeChoice(2) == 0 ? CountFormat::PopCase : CountFormat::ObsExp;
    const unsigned base = parts.TakeByte(), count = parts.TakeByte(), id = parts.TakeByte(),
                   secondID = parts.TakeByte();
    const RetroChoice choice(parts);
    const std::string path = WriteShapefile(parts);
    CheckingSurface surface(PolygonMapSurface());
    for (const auto run : {RunOneBandwidth, RunRange})
        RunOnInput([&] {
            OpenDataset(path);
            if (ws.NumRegion > MostRegions || !BindColumns(format, base, count, id, secondID)) return;
            run(choice, PolygonRules(), [&](const Array1<double>& values) {
                DrawStatisticMap(surface, values);
                PrintPolygonLegend(surface, choice.Variable);
            });
        });
    return 0;
}
