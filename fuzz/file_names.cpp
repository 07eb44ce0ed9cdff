// Names of files: drive-letter specifications and their pieces, outputs and where they go, layers, the files
// of a shapefile. An input is a name, and another one behind a line feed. Nothing is written.
#include "FuzzTarget.h"
#include "InputFolder.h"
#include "InputParts.h"
#include "core/layer/Layer.h"
#include "core/layer/SaveLayer.h"
#include "core/platform/FileSpec.h"
#include "core/platform/NativePath.h"
#include "core/platform/Platform.h"
#include "core/spatial/CFileName.h"
#include "core/spatial/ShapeDataset.h"
#include "core/spatial/ShapefileFiles.h"
#include "core/text/OutputTarget.h"

#include <cstdlib>

using namespace vastrel;

namespace {

void TakePieces(const std::string& spec, const std::string& piece) {
    CFileName name;
    name.SetFileSpec(spec);
    if (!name.GetBaseName().empty()) {
        const std::string before = name.GetFileSpec();
        name.SetBaseName(name.GetBaseName());
        if (name.GetFileSpec() != before) std::abort(); // a piece put back changes nothing
    }
    name.SetBaseName(piece);
    name.SetExtension(piece);
}

void FindFiles(const std::string& path) {
    FindFile(path);
    FilesOfShapefile(path);
    FilesOfInput(path);
    if (IsLayerPath(path)) PathsOfLayer(path);
    IsDescriptor(path);
    FileIdentity(path);
    FindTarget(path);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const std::string name(parts.TakeLine()), other(parts.Rest());
    RunOnInput([&] { TakePieces(name, other); });
    RunOnInput([&] { TakePieces(ToFileSpec("/" + name), other); });
    RunOnInput([&] { FindFiles(InputFolder() + "/" + name); });
    RunOnInput([&] {
        OpenShapeAttributes({InputFolder() + "/" + name, FileName(name), false});
        ReadShapeHeader();
        LoadShapes();
    });
    return 0;
}
