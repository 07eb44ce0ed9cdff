#include "core/spatial/CShapeFile.h"

#include "core/platform/FileSpec.h"
#include "core/platform/NativePath.h"
#include "core/spatial/ErrorSource.h"
#include "core/spatial/ShapeErrors.h"
#include "core/spatial/ShapeReader.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace vastrel {

namespace {

/// The pair's file of this name as it stands on the disk, whatever the case of its name; empty where
/// it is missing.
std::string ExistingFile(const CFileName& name) {
    return FindFile(FromFileSpec(name.GetFileSpec()));
}

void Delete(const std::string& path) {
    std::error_code reason;
    std::filesystem::remove(NativePath(path), reason);
    if (reason)
        RaiseCustomary(PermissionDenied, "", FileName(path) + " could not be deleted: " + reason.message());
}

void CheckHeader(const BinaryFile& file, const MainHeader& header, const char* kind) {
    if (header.FileCode != ShapefileCode)
        throw RunTimeError(InvalidFileCode, "",
                           "The " + std::string(kind) +
                               " file has an invalid shape code in the main header.");
    if (file.Size() < static_cast<std::int64_t>(MainHeaderSize))
        RaiseCustomary(InputPastEndOfFile, "", FileName(file.Path()) + " ends inside its main header.");
}

/// The records that an index of this length holds, rounded to the nearest.
std::int32_t RecordCount(const BinaryFile& file, std::int32_t lengthInWords) {
    const double count = std::nearbyint((lengthInWords - 50.0) / 4);
    if (count < 0)
        RaiseCustomary(SubscriptOutOfRange, "",
                       "The header of " + FileName(file.Path()) + " tells a length of " +
                           std::to_string(lengthInWords) + " words, less than the header's own.");
    return static_cast<std::int32_t>(count);
}

} // namespace

void CShapeFile::SetFileSpec(const CFileName& name, std::int32_t status,
                             std::optional<std::int32_t> shapeType) {
    WithSource("C_ShapeFile::SetFileSpec", [&] {
        fileName_ = CFileName();
        fileName_.SetFileSpec(name.GetFileSpec());
        try {
            OpenFiles(status);
            status == OpenExisting ? ReadPair() : StartPair(shapeType);
        } catch (...) {
            indexFile_.Close();
            mainFile_.Close();
            throw;
        }
    });
}

void CShapeFile::OpenFiles(std::int32_t status) {
    std::string paths[2];
    const char* extensions[] = {"shp", "shx"};
    for (int k = 0; k < 2; ++k) {
        fileName_.SetExtension(extensions[k]);
        paths[k] = ExistingFile(fileName_);
        if (status == OpenExisting && paths[k].empty())
            throw RunTimeError(ShapefileNotFound, "",
                               "The specified file " + fileName_.GetFileSpec() + " does not exist.");
        if (status == CREATEIT && !paths[k].empty()) {
            Delete(paths[k]);
            paths[k].clear();
        }
        if (paths[k].empty()) paths[k] = FromFileSpec(fileName_.GetFileSpec());
    }
    const auto access =
        status == OpenExisting ? BinaryFile::Access::ReadWrite : BinaryFile::Access::ReadWriteOrCreate;
    indexFile_.Open(paths[1], access);
    mainFile_.Open(paths[0], access);
}

void CShapeFile::ReadPair() {
    indexHeader_ = ReadMainHeader(indexFile_);
    CheckHeader(indexFile_, indexHeader_, "shx");
    mainHeader_ = ReadMainHeader(mainFile_);
    const double edges[] = {mainHeader_.XMin, mainHeader_.XMax, mainHeader_.YMax, mainHeader_.YMin};
    const bool isFinite =
        std::all_of(std::begin(edges), std::end(edges), [](double e) { return std::isfinite(e); });
    if (isFinite) extent_.TakeEdges(edges[0], edges[1], edges[2], edges[3]);
    CheckHeader(mainFile_, mainHeader_, "shp");
    if (!isFinite) RaiseNotFinite("The main header of " + FileName(mainFile_.Path()));
    count_ = RecordCount(indexFile_, indexHeader_.FileLength);
    shapeType_ = mainHeader_.ShapeType;
}

void CShapeFile::StartPair(std::optional<std::int32_t> shapeType) {
    if (!shapeType)
        throw RunTimeError(ShapeTypeMissing, "",
                           "The ShapeType argument is not optional when argument status is CREATEIT");
    shapeType_ = *shapeType;
    extent_.MakeEmpty();
    PutMainHeaders();
    count_ = 0;
}

std::shared_ptr<IShape> CShapeFile::Item(std::int32_t index) {
    return WithSource("CShapeFile::Item", [&] {
        return ShapeReader(mainFile_, indexFile_, shapeType_, indexHeader_.FileLength).Read(index);
    });
}

} // namespace vastrel
