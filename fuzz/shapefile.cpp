// The three files of a dataset. An input starts with the lengths of its .shp and its .shx, two bytes each,
// low byte first, each before its file; the rest is the .dbf.
#include "FuzzTarget.h"
#include "ShapefileInput.h"
#include "core/platform/Platform.h"
#include "core/spatial/CentroidFile.h"
#include "core/spatial/InfoList.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string path = WriteShapefile({data, size});
    RunOnInput([&] {
        OpenShapeAttributes({path, "input.shp", false});
        if (!ws.AttributeRecordset) return;
        InfoListRows(0);
        ws.AttributeRecordset->MoveFirst();
        ws.AttributeRecordset->GetString();
    });
    RunOnInput([&] {
        OpenDataset(path);
        CentroidFileText();
    });
    return 0;
}
