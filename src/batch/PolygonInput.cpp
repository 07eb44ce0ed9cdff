#include "batch/PolygonInput.h"

#include "batch/Command.h"
#include "platform/NativePath.h"
#include "platform/Platform.h"
#include "spatial/BinaryFile.h"
#include "spatial/ShapeDataset.h"
#include "workspace/Workspace.h"

namespace vastrel {

bool OpenPolygonInput(const std::string& path) {
    const std::string whole = AbsolutePath(path);
    BinaryFile().Open(whole, BinaryFile::Access::Read); // a file dialog offers what exists
    if (!OpenShapeAttributes({whole, FileName(whole), false})) return false;
    ws.MapZoom = 1;
    ws.bShapefileData = true;
    ws.bTextfileData = false;
    ReadShapeHeader();
    LoadShapes();
    ws.ShapeFileTitleSaved = ws.ShapeFileTitle;
    return true;
}

} // namespace vastrel
