#include "core/prospective/PolygonSource.h"

#include "core/platform/Platform.h"
#include "core/prospective/CusumTables.h"
#include "core/prospective/PolygonCusum.h"
#include "core/spatial/AttributeRows.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

/// What stands in the way of a value as a z-score; null where nothing does.
const char* Fault(const FieldValue& value) {
    // A null is no number, so that the first message is what comes for it too; the order is meant.
    if (value.IsNull() || !IsNumeric(value.Text())) return "Data should be numerical values!";
    return nullptr;
}

bool HoldsZScores(const std::string& column) {
    Recordset& table = AttributeTable();
    const char* fault = nullptr;
    for (table.MoveFirst(); !table.EndOfFile() && fault == nullptr; table.MoveNext())
        fault = Fault(table.Fields(column).Value());
    table.MoveFirst();
    if (fault != nullptr) Warn(fault);
    return fault == nullptr;
}

std::string TextOf(const std::string& column) {
    return column.empty() ? "" : AttributeTable().Fields(column).Value().Text();
}

} // namespace

bool TakeStartField(std::ptrdiff_t number, const std::string& name) {
    ws.StartFieldIndex = static_cast<double>(number);
    return HoldsZScores(name);
}

bool TakeEndField(std::ptrdiff_t number, const std::string& name) {
    ws.EndFieldIndex = static_cast<double>(number);
    if (ws.StartFieldIndex > ws.EndFieldIndex) {
        Warn("Start and end priods were not set improperly!");
        return false;
    }
    return HoldsZScores(name);
}

std::ptrdiff_t SourcePeriodCount(ZSource source) {
    const double fields = ws.EndFieldIndex - ws.StartFieldIndex + 1;
    return static_cast<std::ptrdiff_t>(source == ZSource::Fields ? fields : ws.TextPeriodCount);
}

void ReadFieldZScores(Table<double>& z) {
    const std::ptrdiff_t periods = SourcePeriodCount(ZSource::Fields);
    if (periods < 0)
        RaiseCustomary(SubscriptOutOfRange, "ReadFieldZScores", "The last column stands before the first.");
    ReDimWithinMemory(z, ws.NumRegion, periods, "ReadFieldZScores");
    PolygonOutputs().ReDim(ws.NumRegion, periods);
    ws.RunPeriodCount = static_cast<double>(periods);
    for (std::ptrdiff_t t = 1; t <= periods; ++t) {
        const auto field = static_cast<int>(t + static_cast<std::ptrdiff_t>(ws.StartFieldIndex) - 1);
        WalkRows([&](std::ptrdiff_t i) { z(i, t) = AttributeTable().Fields(field).Value().Number(); });
    }
}

Array1<std::string> RecordLabels() {
    Array1<std::string> labels(AttributeTable().RecordCount());
    WalkRows([&](std::ptrdiff_t i) {
        labels(i) = ws.CusumPrimaryField.empty()
                        ? ""
                        : CusumLabel(ws.CusumPrimaryField, TextOf(ws.CusumPrimaryField),
                                     ws.CusumSecondaryField, TextOf(ws.CusumSecondaryField));
    });
    return labels;
}

Array1<std::string> RunLabels(ZSource source) {
    if (source == ZSource::Text) return ws.CusumRegionIDs;
    const int records = AttributeTable().RecordCount();
    if (records != ws.NumRegion)
        RaiseCustomary(records < ws.NumRegion ? NoCurrentRecord : SubscriptOutOfRange, "RunLabels",
                       RowsForRegions());
    return RecordLabels();
}

} // namespace vastrel
