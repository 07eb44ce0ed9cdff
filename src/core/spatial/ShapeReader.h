#pragma once

#include "core/spatial/IShape.h"
#include "core/spatial/ShapefileFormat.h"

#include <memory>
#include <optional>

namespace vastrel {

/// Reads the records of an open shapefile pair. Index counts from 1.
///
/// The errors of the format are offsets 0x205, 0x206 and 0x20E with the sources of the operations. Beyond
/// them a record that is not sound is a run-time error that names file and record: 62 where a file ends
/// before a record does, 9 for negative counts and for part indexes that do not rise from 0 to the number of
/// points, 6 for a coordinate that is not finite. Counts are held against the size of the file before memory
/// is taken.
class ShapeReader {
public:
    ShapeReader(BinaryFile& mainFile, BinaryFile& indexFile, std::int32_t shapeType, std::int32_t indexLength)
        : mainFile_(mainFile), indexFile_(indexFile), shapeType_(shapeType), indexLength_(indexLength) {}

    /// By the type of the file; nothing for a type that has no class.
    std::shared_ptr<IShape> Read(std::int32_t index);

    /// Nothing for an index beyond the .shx.
    std::shared_ptr<IShape> ReadPoint(std::int32_t index);
    std::shared_ptr<IShape> ReadPolyLine(std::int32_t index);
    std::shared_ptr<IShape> ReadPolygon(std::int32_t index);
    /// Looks up index 0, which lies inside the main header of the .shx, and compares the record number with
    /// 0; meant so. An ordinary file of multipoints fails with offset 0x205. Run-time error 62 for an index
    /// that the .shx does not hold.
    std::shared_ptr<IShape> ReadMultiPoint(std::int32_t index);

    /// The index record; nothing where its place is not inside the index as its header tells it.
    std::optional<RecordHeader> FindOffset(std::int32_t index);

    /// The record header at a position of the .shp, counted from 0; `what` names the record.
    RecordHeader GetRecordHeader(std::int64_t position, const std::string& what);

private:
    struct Sources {
        const char* Beyond;   // 0x206; none: the result is empty
        const char* Mismatch; // 0x205
        const char* Type;     // 0x20E
    };
    std::optional<std::int64_t> ContentsOf(std::int32_t index, const Sources& sources);
    template <typename Shape>
    std::shared_ptr<IShape> ReadParts(std::int32_t index, const Sources& sources);
    const char* ReadPoints(std::int64_t position, std::int64_t before, std::int64_t count);
    std::string Record(std::int32_t index) const;

    BinaryFile& mainFile_;
    BinaryFile& indexFile_;
    std::int32_t shapeType_;
    std::int32_t indexLength_; // in words
    std::vector<char> bytes_;
    std::string place_; // of the record at hand
};

} // namespace vastrel
