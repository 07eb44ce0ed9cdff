#include "core/spatial/ShapeReader.h"

#include "core/numeric/Memory.h"
#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/ByteOrder.h"
#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/ErrorSource.h"
#include "core/spatial/ShapeErrors.h"
#include "core/spatial/ShapefileFormat.h"

#include <algorithm>

namespace vastrel {

namespace {

CPoint PointAt(const char* bytes, const std::string& place) {
    return {FiniteCoordinate(NumberAt<double>(bytes), place),
            FiniteCoordinate(NumberAt<double>(bytes + 8), place)};
}

template <typename Shape>
void TakeBox(Shape& shape, const char* bytes, const std::string& place) {
    const auto edge = [&](std::ptrdiff_t k) {
        return FiniteCoordinate(NumberAt<double>(bytes + 8 * k), place);
    };
    shape.TakeBox(edge(0), edge(1), edge(2), edge(3));
}

/// The first points of the parts and, behind the last, the number of points. They must rise from 0.
void CheckParts(const std::vector<std::int32_t>& firsts, const std::string& place) {
    bool rising = firsts.size() < 2 || firsts.front() == 0;
    for (size_t j = 1; j < firsts.size(); ++j)
        rising = rising && firsts[j - 1] <= firsts[j];
    if (!rising)
        RaiseCustomary(SubscriptOutOfRange, "CheckParts", place + " has part indexes that do not rise.");
}

/// Where an index record stands in the .shx.
std::int64_t IndexPlace(std::int32_t index) {
    return static_cast<std::int64_t>(MainHeaderSize) +
           static_cast<std::int64_t>(RecordHeaderSize) * (std::int64_t{index} - 1);
}

std::string IndexRecord(std::int32_t index) {
    return "index record " + std::to_string(index);
}

/// A part takes far more memory than its index does in the file: many of them are asked for beforehand.
void RequireMemoryForParts(std::int32_t count) {
    if (count > ManyParts) RequireMemory(static_cast<double>(count) * sizeof(CPart), "ShapeReader");
}

void CheckCount(std::int32_t count, const std::string& place) {
    if (count < 0) RaiseCustomary(SubscriptOutOfRange, "CheckCount", place + " has a negative count.");
}

} // namespace

std::string ShapeReader::Record(std::int32_t index) const {
    return "record " + std::to_string(index) + " of " + FileName(mainFile_.Path());
}

std::optional<RecordHeader> ShapeReader::FindOffset(std::int32_t index) {
    const std::int64_t place = IndexPlace(index);
    if (place + 1 > 2 * std::int64_t{indexLength_} - 7) return std::nullopt;
    return WithSource("C_ShapeFile::FindOffset",
                      [&] { return ReadRecordHeader(indexFile_, place, IndexRecord(index)); });
}

RecordHeader ShapeReader::GetRecordHeader(std::int64_t position, const std::string& what) {
    return WithSource("C_ShapeFile::GetRecordHeader",
                      [&] { return ReadRecordHeader(mainFile_, position, what); });
}

/// Where the contents of a record start, behind all checks that the types have in common.
std::optional<std::int64_t> ShapeReader::ContentsOf(std::int32_t index, const Sources& sources) {
    place_ = Record(index);
    const auto offset = FindOffset(index);
    if (!offset && sources.Beyond == nullptr) return std::nullopt;
    if (!offset)
        throw RunTimeError(OffsetBeyondFile, sources.Beyond,
                           "The offset read from index file is larger then the mainfile size\n" +
                               FileName(indexFile_.Path()) + " tells no place for " + place_ + ".");
    const std::int64_t start = 2 * std::int64_t{offset->Number};
    const std::int32_t number = GetRecordHeader(start, place_).Number;
    if (number != index)
        throw RunTimeError(RecordMismatch, sources.Mismatch,
                           "Index Record does not match main file Record\n" + place_ + " has the number " +
                               std::to_string(number) + ".");
    const std::int64_t contents = start + static_cast<std::int64_t>(RecordHeaderSize);
    char type[TypeSize];
    mainFile_.Read(contents, type, sizeof type, place_);
    const auto shapeType = NumberAt<std::int32_t>(type);
    if (shapeType != shapeType_ || shapeType == NullType)
        throw RunTimeError(ShapeTypeMismatch, sources.Type,
                           "A shape type does not match main header type.\n" + place_ +
                               (shapeType == NullType
                                    ? " is a null shape."
                                    : " has the type " + std::to_string(shapeType) + ", and the file " +
                                          std::to_string(shapeType_) + "."));
    return contents;
}

/// The points at a position of the .shp, behind `before` bytes of the same contents. The size of the file is
/// looked at before memory is taken.
const char* ShapeReader::ReadPoints(std::int64_t position, std::int64_t before, std::int64_t count) {
    const std::int64_t size = before + PointSize * count;
    if (size > mainFile_.Size() - position)
        RaiseCustomary(InputPastEndOfFile, "ShapeReader",
                       FileName(mainFile_.Path()) + " ends before " + place_ + " does.");
    bytes_.resize(static_cast<size_t>(size));
    mainFile_.Read(position, bytes_.data(), bytes_.size(), place_);
    return bytes_.data() + before;
}

template <typename Shape>
std::shared_ptr<IShape> ShapeReader::ReadParts(std::int32_t index, const Sources& sources) {
    const std::int64_t contents = *ContentsOf(index, sources);
    char head[PartsPlace];
    mainFile_.Read(contents, head, sizeof head, place_);
    const auto partCount = NumberAt<std::int32_t>(head + PartCountPlace);
    const auto pointCount = NumberAt<std::int32_t>(head + PointCountPlace);
    CheckCount(partCount, place_);
    CheckCount(pointCount, place_);

    const std::int64_t partsSize = PartIndexSize * partCount;
    const char* point = ReadPoints(contents + PartsPlace, partsSize, pointCount);
    std::vector<std::int32_t> firsts(static_cast<size_t>(partCount) + 1, pointCount);
    std::copy_n(bytes_.data(), partsSize, reinterpret_cast<char*>(firsts.data()));
    CheckParts(firsts, place_);
    RequireMemoryForParts(partCount);

    auto shape = std::make_shared<Shape>();
    TakeBox(*shape, head + TypeSize, place_);
    shape->Reserve(static_cast<size_t>(partCount));
    for (size_t j = 0; j + 1 < firsts.size(); ++j) {
        CPart part;
        part.Reserve(static_cast<size_t>(firsts[j + 1] - firsts[j]));
        for (auto k = firsts[j]; k < firsts[j + 1]; ++k, point += PointSize)
            part.Add(PointAt(point, place_));
        shape->Add(std::move(part));
    }
    return shape;
}

std::shared_ptr<IShape> ShapeReader::ReadPolyLine(std::int32_t index) {
    // The source of the last one is meant so.
    return ReadParts<CPolyLine>(
        index, {"CShapeFile::ReadPolyLine", "CShapeFile::ReadPolyLine", "CShapeFile::ReadPolygon"});
}

std::shared_ptr<IShape> ShapeReader::ReadPolygon(std::int32_t index) {
    return ReadParts<CPolygon>(
        index, {"CShapeFile::ReadPolygon", "CShapeFile::ReadPolygon", "CShapeFile::ReadPolygon"});
}

std::shared_ptr<IShape> ShapeReader::ReadPoint(std::int32_t index) {
    const auto contents = ContentsOf(index, {nullptr, "CShapeFile::ReadPoint", "CShapeFile::ReadPoint"});
    if (!contents) return nullptr;
    return std::make_shared<CPoint>(PointAt(ReadPoints(*contents, TypeSize, 1), place_));
}

std::shared_ptr<IShape> ShapeReader::ReadMultiPoint(std::int32_t index) {
    const std::int64_t contents = *ContentsOf(
        0, {"C_ShapeFile::ReadMultiPoint", "CShape_IO::ReadMultiPoint", "C_ShapeFile::ReadPolys"});
    // The place of index 0 is always there. That of the index itself has to be too, or a count without bound
    // would read the same record again and again.
    if (IndexPlace(index) >= indexFile_.Size())
        RaiseCustomary(InputPastEndOfFile, "ShapeReader",
                       FileName(indexFile_.Path()) + " ends before " + IndexRecord(index) + " does.");
    char head[MultiPointsPlace];
    mainFile_.Read(contents, head, sizeof head, place_);
    const auto pointCount = NumberAt<std::int32_t>(head + MultiPointCountPlace);
    CheckCount(pointCount, place_);
    const char* point = ReadPoints(contents + MultiPointsPlace, 0, pointCount);
    auto shape = std::make_shared<CMultiPoint>();
    TakeBox(*shape, head + TypeSize, place_);
    for (std::int32_t k = 0; k < pointCount; ++k, point += PointSize)
        shape->Add(PointAt(point, place_));
    return shape;
}

std::shared_ptr<IShape> ShapeReader::Read(std::int32_t index) {
    switch (shapeType_) {
    case PointType:
        return ReadPoint(index);
    case PolyLineType:
        return ReadPolyLine(index);
    case PolygonType:
        return ReadPolygon(index);
    case MultiPointType:
        return ReadMultiPoint(index);
    default:
        return nullptr;
    }
}

} // namespace vastrel
