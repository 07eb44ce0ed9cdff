// The columns of counts and ids of a polygon dataset. An input is three bytes, two columns and a number of
// Regions, and the .dbf.
#include "FuzzTarget.h"
#include "ShapefileInput.h"
#include "core/binding/ColumnBinding.h"
#include "core/binding/CusumNames.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const unsigned base = parts.TakeByte(), count = parts.TakeByte();
    const int regions = static_cast<int>(parts.TakeChoice(5));
    for (const auto format : {CountFormat::PopCase, CountFormat::ObsExp})
        RunOnInput([&] {
            OpenTable(parts.Rest(), regions);
            const std::string first = ColumnName(base), second = ColumnName(count);
            BindCounts(format, {first, second, second, first, first, second});
        });
    RunOnInput([&] {
        OpenTable(parts.Rest(), regions);
        TakePrimaryIDs(ColumnName(base));
        TakeSecondaryIDs(ColumnName(count));
        TakeCusumNames({true, ColumnName(base), true, ColumnName(count)});
    });
    return 0;
}
