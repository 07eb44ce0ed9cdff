#include "core/spatial/InfoList.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/Recordset.h"
#include "core/text/Numbers.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

std::vector<std::string> InfoListRows(long region) {
    if (!ws.AttributeRecordset) RaiseCustomary(ObjectNotSet, "FillInfoList");
    Recordset& table = *ws.AttributeRecordset;
    std::vector<std::string> rows;
    table.MoveFirst();
    if (region >= table.RecordCount()) return rows;
    for (long k = 0; k < region; ++k)
        table.MoveNext();
    for (int k = 0; k < table.FieldCount(); ++k) {
        const FieldValue value = table.Fields(k).Value();
        rows.push_back(Pad(table.Fields(k).Name(), 15) + " >" + Pad(value.IsNull() ? "" : value.Text(), 16));
    }
    return rows;
}

} // namespace vastrel
