#include "ShapefileInput.h"

#include "InputFolder.h"
#include "core/platform/Platform.h"
#include "core/spatial/AttributeRows.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"

#include <algorithm>

namespace vastrel {

std::string WriteShapefile(InputParts parts) {
    const std::string_view shp = parts.TakePart(), shx = parts.TakePart();
    WriteInput("input.shx", shx);
    WriteInput("input.dbf", parts.Rest());
    return WriteInput("input.shp", shp);
}

void OpenDataset(const std::string& path) {
    OpenShapeAttributes({path, "input.shp", false});
    ws.MapZoom = 1;
    ws.bShapefileData = true;
    ReadShapeHeader();
    LoadShapes();
    ComputeShapeAreas();
    ComputeCentroids();
}

void OpenTable(std::string_view dbf, int regions) {
    WriteInput("input.dbf", dbf);
    OpenShapeAttributes({InputFolder() + "/input.shp", "input.shp", false});
    ws.bShapefileData = true;
    ws.NumRegion = regions;
    ws.TotalShapeArea = regions;
    ws.RegionCentroid.ReDim(regions);
    for (int i = 1; i <= regions; ++i)
        ws.RegionCentroid(i) = {"", i + 0.5, 0.5};
}

int ColumnOf(unsigned choice) {
    const int count = AttributeTable().FieldCount();
    return count == 0 ? 0 : static_cast<int>(choice) % count;
}

std::string ColumnName(unsigned choice) {
    return AttributeTable().Fields(ColumnOf(choice)).Name();
}

} // namespace vastrel
