#include "core/spatial/AttributeRows.h"

namespace vastrel {

Recordset& AttributeTable() {
    if (!ws.AttributeRecordset)
        RaiseCustomary(ObjectNotSet, "AttributeRecordset", "No attribute table is open.");
    return *ws.AttributeRecordset;
}

std::vector<std::string> FieldNames() {
    const Recordset& table = AttributeTable();
    std::vector<std::string> names;
    names.reserve(static_cast<size_t>(table.FieldCount()));
    for (int k = 0; k < table.FieldCount(); ++k)
        names.push_back(table.Fields(k).Name());
    return names;
}

std::vector<std::string> NumericFieldNames() {
    const Recordset& table = AttributeTable();
    std::vector<std::string> names;
    for (int k = 0; k < table.FieldCount(); ++k)
        if (IsNumberType(table.Fields(k).Type())) names.push_back(table.Fields(k).Name());
    return names;
}

std::string RowsForRegions() {
    return ws.DbfTableName + " has " + std::to_string(AttributeTable().RecordCount()) + " rows for " +
           std::to_string(ws.NumRegion) + " Regions.";
}

void RaiseSurplusRows() {
    RaiseCustomary(SubscriptOutOfRange, "AttributeRecordset", RowsForRegions());
}

void ReadTexts(const std::string& column, Array1<std::string>& values) {
    values.ReDim(ws.NumRegion);
    WalkRows([&](std::ptrdiff_t i) { values(i) = AttributeTable().Fields(column).Value().Text(); });
}

} // namespace vastrel
