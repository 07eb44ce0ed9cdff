// The export of z-values from columns of counts. An input is six bytes, four columns, the option and a number
// of Regions, the text of the bandwidth up to a line feed, and the .dbf.
#include "FuzzTarget.h"
#include "ShapefileInput.h"
#include "core/export/ExportColumns.h"
#include "core/export/ExportDataset.h"

#include <array>

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    std::array<unsigned, 4> columns{};
    for (unsigned& column : columns)
        column = parts.TakeByte();
    const auto option = static_cast<ExportOption>(parts.TakeChoice(4));
    const int regions = static_cast<int>(parts.TakeChoice(5));
    const std::string sigma(parts.TakeLine());
    RunOnInput([&] {
        OpenTable(parts.Rest(), regions);
        constexpr std::array lists{ExportList::ObsFrom, ExportList::ObsTo, ExportList::ExpFrom,
                                   ExportList::ExpTo};
        for (size_t k = 0; k < lists.size(); ++k)
            if (!TakeExportColumn(lists.at(k), ColumnOf(columns.at(k)))) return;
        if (!TakeExportSigma(sigma)) return;
        ComputeExport(option);
        ExportLines();
    });
    return 0;
}
