// The z-scores in the columns of a table, with the labels of the records. An input is four bytes, the first
// and the last column, that of the id and a number of Regions, and the .dbf.
#include "FuzzTarget.h"
#include "ShapefileInput.h"
#include "core/binding/CusumNames.h"
#include "core/prospective/PolygonCusum.h"
#include "core/prospective/PolygonSource.h"
#include "core/workspace/Workspace.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const unsigned first = parts.TakeByte(), last = parts.TakeByte(), id = parts.TakeByte();
    const int regions = static_cast<int>(parts.TakeChoice(5));
    RunOnInput([&] {
        OpenTable(parts.Rest(), regions);
        TakeCusumNames({true, ColumnName(id), true, ColumnName(id + 1)});
        TakeStartField(ColumnOf(first), ColumnName(first));
        TakeEndField(ColumnOf(last), ColumnName(last)); // a range that is turned round is read all the same
        Table<double> z;
        ReadFieldZScores(z);
        ws.CurrentSigma = 1;
        RunPolygonCusum(z, StartOption::Zero, RunLabels(ZSource::Fields));
        RecordLabels();
    });
    return 0;
}
