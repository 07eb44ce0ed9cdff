#include "support/AttributeData.h"

#include "core/platform/NativePath.h"
#include "core/platform/Platform.h"
#include "core/spatial/AttributeRows.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

void OpenTable(const TemporaryFolder& folder, const std::vector<TableColumn>& columns,
               const std::vector<std::vector<std::string>>& rows, int regions) {
    ws = Workspace{};
    ws.AttributeRecordset = std::make_shared<Recordset>(folder.Write("data.dbf", TableBytes(columns, rows)));
    ws.NumRegion = regions;
}

std::string WriteDataset(const TemporaryFolder& folder, const std::string& name,
                         const std::vector<TableColumn>& columns,
                         const std::vector<std::vector<std::string>>& rows) {
    ShapefileBytes shapes(5);
    for (size_t i = 0; i < rows.size(); ++i)
        shapes.Add(PolygonContents({ClockwiseSquare(static_cast<double>(i), 0, 1)}));
    folder.Write(name.substr(0, name.find('.')) + ".dbf", TableBytes(columns, rows));
    return shapes.WritePair(folder, name);
}

std::string CurrentText(const std::string& column) {
    return AttributeTable().Fields(column).Value().Text();
}

bool OpenRealDataset(const TemporaryFolder& folder, const std::string& name) {
    ws = Workspace{};
    const std::string path = CopyOfRealShapefile(folder, name);
    if (path.empty() || !OpenShapeAttributes({path, FileName(path), false})) return false;
    ReadShapeHeader();
    LoadShapes();
    return true;
}

} // namespace vastrel
