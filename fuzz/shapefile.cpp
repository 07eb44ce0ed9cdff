// The three files of a dataset. An input starts with the lengths of its .shp and its .shx, two bytes each,
// low byte first; the rest is the .dbf.
#include "FuzzTarget.h"

#include "core/platform/Platform.h"
#include "core/spatial/CentroidFile.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/InfoList.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"

#include <algorithm>

using namespace vastrel;

namespace {

std::string_view Take(std::string_view& rest, size_t count) {
    const std::string_view taken = rest.substr(0, count);
    rest.remove_prefix(taken.size());
    return taken;
}

size_t TakeLength(std::string_view& rest) {
    const std::string_view bytes = Take(rest, 2);
    size_t length = 0;
    for (size_t k = 0; k < bytes.size(); ++k)
        length += static_cast<size_t>(static_cast<unsigned char>(bytes[k])) << (8 * k);
    return length;
}

void OpenDataset(const std::string& path) {
    OpenShapeAttributes({path, "input.shp", false});
    if (ws.AttributeRecordset) {
        InfoListRows(0);
        ws.AttributeRecordset->MoveFirst();
        ws.AttributeRecordset->GetString();
    }
}

void LoadDataset() {
    ReadShapeHeader();
    LoadShapes();
    ComputeShapeAreas();
    ComputeCentroids();
    CentroidFileText();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    std::string_view rest = AsText(data, size);
    const size_t mainLength = TakeLength(rest), indexLength = TakeLength(rest);
    const std::string path = WriteInput("input.shp", Take(rest, mainLength));
    WriteInput("input.shx", Take(rest, indexLength));
    WriteInput("input.dbf", rest);
    RunReader([&] { OpenDataset(path); });
    RunReader([&] {
        OpenShapeAttributes({path, "input.shp", false});
        LoadDataset();
    });
    return 0;
}
