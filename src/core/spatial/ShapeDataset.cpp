#include "core/spatial/ShapeDataset.h"

#include "core/numeric/Memory.h"
#include "core/platform/FileSpec.h"
#include "core/platform/NativePath.h"
#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/CShapeFile.h"
#include "core/spatial/Recordset.h"
#include "core/spatial/ShapeErrors.h"
#include "core/spatial/ShapefileFormat.h"
#include "core/workspace/Workspace.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace vastrel {

namespace {

std::string BeforeFirstPoint(const std::string& text) {
    return text.substr(0, text.find('.'));
}

std::string WithoutAll(std::string text, const std::string& piece) {
    for (size_t at = 0; (at = text.find(piece, at)) != std::string::npos;)
        text.erase(at, piece.size());
    return text;
}

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

/// An error of the opening of a shapefile ends the process.
template <typename Step>
void RunEndingStep(Step step) {
    try {
        step();
    } catch (RunTimeError& error) {
        error.SetEndsProcess();
        throw;
    }
}

void OpenTable() {
    if (IsBlank(ws.DbfFilePath)) return;
    ws.DbfDirectory = WithoutAll(ws.DbfFilePath, ws.DbfTableName);
    ws.DbConnection = BuildDbaseConnection(ws.DbfDirectory);
    // A path with a "." in a folder's name ends there: its directory is then no folder, and the table is not
    // found. Meant so.
    const auto table = NativePath(ws.DbfDirectory) / NativePath(ws.DbfTableName);
    ws.AttributeRecordset = std::make_shared<Recordset>(PathText(table));
    ws.AttributeRowCount = ws.AttributeRecordset->RecordCount();
}

void TakePoints(CShapeFile& file) {
    ws.ShpPoints.Clear();
    for (std::int32_t i = 1; i <= ws.NumRegion; ++i)
        ws.ShpPoints.Add(std::static_pointer_cast<CPoint>(file.Item(i)));
}

std::int64_t SizeInFile(const CMultiPoint& shape) {
    return PointSize * shape.Count();
}

/// Of a polyline and of a polygon.
template <typename Shape>
std::int64_t SizeInFile(const Shape& shape) {
    std::int64_t size = 0;
    for (const CPart& part : shape)
        size += PartIndexSize + PointSize * part.Count();
    return size;
}

std::int64_t PartCount(const CMultiPoint&) {
    return 0;
}

template <typename Shape>
std::int64_t PartCount(const Shape& shape) {
    return shape.Count();
}

/// Reads all records as shapes of a class. Records that stand inside one another hold more than the file has
/// room for: they are refused, so that time and memory stay in proportion to the file.
template <typename Shape>
void ReadAll(CShapeFile& file, const std::function<void(std::shared_ptr<Shape>)>& take) {
    std::int64_t room = file.MainFileSize();
    std::int64_t parts = 0; // since memory was asked for
    for (std::int32_t i = 1; i <= ws.NumRegion; ++i) {
        auto shape = std::static_pointer_cast<Shape>(file.Item(i));
        room -= SizeInFile(*shape);
        if (room < 0)
            RaiseCustomary(InputPastEndOfFile, "LoadShapes",
                           "record " + std::to_string(i) + " of " + ws.DatasetFileName->GetBaseName() +
                               ".shp stands inside another: the file is too short for both.");
        parts += PartCount(*shape);
        if (parts > ManyParts) {
            RequireMemory(static_cast<double>(parts) * sizeof(CPart), "LoadShapes"); // as many may follow
            parts = 0;
        }
        take(std::move(shape));
    }
}

void TakePolygons(CShapeFile& file) {
    ws.ShpPolygons.Clear();
    ReadAll<CPolygon>(file, [](auto polygon) { ws.ShpPolygons.Add(std::move(polygon)); });
}

void Load() {
    CShapeFile file;
    if (!ws.DatasetFileName) ws.DatasetFileName = std::make_shared<CFileName>();
    file.SetFileSpec(*ws.DatasetFileName, CShapeFile::OpenExisting, 0);
    ws.NumRegion = file.Count();
    switch (file.FileType()) {
    case PointType:
        TakePoints(file);
        break;
    case PolygonType:
        TakePolygons(file);
        break;
    case PolyLineType:
        ReadAll<CPolyLine>(file, [](const auto&) {});
        break;
    case MultiPointType:
        ReadAll<CMultiPoint>(file, [](const auto&) {});
        break;
    default:
        throw RunTimeError(UnsupportedShapeType, "button click", "Unsupported shape type");
    }
    ws.DatasetFileName.reset();
}

} // namespace

bool IsBaseNameTooLong() {
    constexpr std::ptrdiff_t longest = 8;
    const auto& name = ws.ShapeBaseName;
    // Counted in characters, not bytes.
    return std::count_if(name.begin(), name.end(),
                         [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }) > longest;
}

bool OpenShapeAttributes() {
    FileQuestion question;
    question.Filter = ShapefileFilter;
    return OpenShapeAttributes(platform().ChooseFile(question));
}

bool OpenShapeAttributes(const FileChoice& choice) {
    ws.ShapeFileTitle = choice.Title;
    ws.ShapeFilePath = choice.Path;
    if (ws.ShapeFilePath.empty()) {
        Warn(NoShapefileChosen);
        return false;
    }
    RunEndingStep([] {
        if (!ws.DatasetFileName) ws.DatasetFileName = std::make_shared<CFileName>();
        ws.DatasetFileName->SetFileSpec(ToFileSpec(ws.ShapeFilePath));
    });
    ws.DbfFilePath = BeforeFirstPoint(ws.ShapeFilePath) + ".dbf";
    ws.DbfTableName = BeforeFirstPoint(ws.ShapeFileTitle);
    ws.ShapeBaseName = ws.DbfTableName;
    if (IsBaseNameTooLong()) {
        Warn(BaseNameTooLong);
        return false;
    }
    ws.DbfTableName += ".dbf";
    try {
        OpenTable();
    } catch (const RunTimeError& error) {
        Tell(error.Description());
    }
    return true;
}

std::string BuildDbaseConnection(const std::string& folder) {
    return "Driver={Microsoft dBASE Driver (*.dbf)};DriverID=277;Dbq=" + folder;
}

void ReadShapeHeader() {
    BinaryFile file;
    file.Open(ws.ShapeFilePath, BinaryFile::Access::Read);
    char last = 0;
    const std::string place = "the main header of " + FileName(ws.ShapeFilePath);
    file.Read(static_cast<std::int64_t>(MainHeaderSize) - 1, &last, 1, place);
    const MainHeader header = ReadMainHeader(file);
    ws.ShpFileType = static_cast<std::int16_t>(header.ShapeType); // its lower half, which is all that is read
    ws.ExtentXMin = FiniteCoordinate(header.XMin, place);
    ws.ExtentYMin = FiniteCoordinate(header.YMin, place);
    ws.ExtentXMax = FiniteCoordinate(header.XMax, place);
    ws.ExtentYMax = FiniteCoordinate(header.YMax, place);
    ws.ExtentWidth = FiniteCoordinate(std::fabs(ws.ExtentXMax - ws.ExtentXMin), place);
    ws.ExtentHeight = FiniteCoordinate(std::fabs(ws.ExtentYMax - ws.ExtentYMin), place);
    ws.ExtentArea = FiniteCoordinate(ws.ExtentHeight * ws.ExtentWidth, place);
}

void LoadShapes() {
    RunEndingStep(Load);
}

} // namespace vastrel
