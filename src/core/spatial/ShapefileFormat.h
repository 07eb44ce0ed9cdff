#pragma once

#include "core/spatial/BinaryFile.h"

#include <cstdint>
#include <string>

namespace vastrel {

// The layout of a shapefile pair.
//
// Both files start with the same main header of 100 bytes. The .shx then holds one index record of 8 bytes a
// shape: where the shape's record starts in the .shp, and its length. A record of the .shp is a header of 8
// bytes, record number and length, and the contents. Lengths and places are in words of two bytes. The
// integers marked "swapped" stand with their high byte first, all else with the low byte first.

constexpr std::int32_t ShapefileCode = 9994;
constexpr std::int32_t ShapefileVersion = 1000;
constexpr size_t MainHeaderSize = 100;
constexpr size_t RecordHeaderSize = 8;
constexpr std::int64_t PointSize = 16;     // x and y
constexpr std::int64_t PartIndexSize = 4;  // the first point of a part
constexpr std::int64_t ManyParts = 100000; // before so many are read, memory is asked for

// Places inside the contents of a record: type, box, and the numbers of parts and points.
constexpr std::int64_t TypeSize = 4;
constexpr std::int64_t BoxSize = 32;
constexpr std::int64_t PartCountPlace = TypeSize + BoxSize;
constexpr std::int64_t PointCountPlace = PartCountPlace + 4;
constexpr std::int64_t PartsPlace = PointCountPlace + 4;
constexpr std::int64_t MultiPointCountPlace = TypeSize + BoxSize; // without parts
constexpr std::int64_t MultiPointsPlace = MultiPointCountPlace + 4;

/// Type codes of files and records.
enum ShapeType : std::int32_t {
    NullType = 0,
    PointType = 1,
    PolyLineType = 3,
    PolygonType = 5,
    MultiPointType = 8
};

struct MainHeader {
    std::int32_t FileCode = 0;   // swapped
    std::int32_t Unused[5] = {}; // swapped
    std::int32_t FileLength = 0; // swapped; in words
    std::int32_t Version = 0;    // never checked
    std::int32_t ShapeType = 0;
    double XMin = 0, YMin = 0, XMax = 0, YMax = 0;
    double RangesZM[4] = {}; // never used
};

/// An index record: Number is the record's place in the .shp, in words. A record header: Number is the record
/// number, from 1.
struct RecordHeader {
    std::int32_t Number = 0;        // swapped
    std::int32_t ContentLength = 0; // swapped; in words
};

/// The main header of a file. What a short file lacks is 0, so that a file of less than four bytes has no
/// valid code.
MainHeader ReadMainHeader(BinaryFile& file);
std::string Bytes(const MainHeader& header);

/// Run-time error 62 where the file ends before.
RecordHeader ReadRecordHeader(BinaryFile& file, std::int64_t position, const std::string& what);
std::string Bytes(const RecordHeader& header);

/// Refuses a coordinate that is not finite: run-time error 6 whose description names the place.
[[noreturn]] void RaiseNotFinite(const std::string& place);
double FiniteCoordinate(double value, const std::string& place);

} // namespace vastrel
