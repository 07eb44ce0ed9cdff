#include "core/export/ExportColumns.h"

#include "core/platform/Platform.h"
#include "core/spatial/AttributeRows.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

namespace {

const char* ValueFault(const FieldValue& value) {
    if (!value.IsNumeric()) return NotNumericalData;
    if (value.Number() < 0) return InvalidData;
    // A null is not numeric, so this one is never told.
    return value.IsNull() ? NullData : nullptr;
}

bool Refuse(const char* message) {
    Warn(message);
    return false;
}

bool CheckValues(int column) {
    Recordset& table = AttributeTable();
    const Field& field = table.Fields(column);
    for (table.MoveFirst(); !table.EndOfFile(); table.MoveNext())
        if (const char* fault = ValueFault(field.Value())) return Refuse(fault);
    table.MoveFirst();
    return true;
}

double& IndexOf(ExportList list) {
    switch (list) {
    case ExportList::ObsFrom:
        return ws.ObsFromIndex;
    case ExportList::ObsTo:
        return ws.ObsToIndex;
    case ExportList::ExpFrom:
        return ws.ExpFromIndex;
    case ExportList::ExpTo:
        break;
    }
    return ws.ExpToIndex;
}

/// The range that a choice ends, if it ends one.
bool CheckRange(ExportList list) {
    // The words say the reverse of what they mean; they are meant so.
    constexpr const char* wrongOrder = "Start and end priods were not set improperly!";
    if (list == ExportList::ObsTo && ws.ObsFromIndex > ws.ObsToIndex) return Refuse(wrongOrder);
    if (list != ExportList::ExpTo) return true;
    if (ws.ExpFromIndex > ws.ExpToIndex) return Refuse(wrongOrder);
    if (ws.ObsToIndex - ws.ObsFromIndex != ws.ExpToIndex - ws.ExpFromIndex)
        return Refuse("Periods for Obs and Exp are not identical. ");
    return true;
}

} // namespace

bool TakeExportColumn(ExportList list, int column) {
    IndexOf(list) = column;
    return CheckValues(column) && CheckRange(list);
}

bool TakeExportSigma(const std::string& text) {
    if (!IsNumeric(text)) return Refuse("Bandwidth should be numeric.");
    ws.ExportSigma = ToNumber(text);
    return true;
}

} // namespace vastrel
