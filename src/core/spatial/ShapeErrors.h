#pragma once

#include <cstdint>

namespace vastrel {

// The numbers of the errors that the shape classes raise: an offset on a common base. Error
// numbers have 32 bits with a sign: 0x80040203 is -2147220989.
constexpr long ShapeErrorBase = static_cast<std::int32_t>(0x80040000U);

constexpr long InvalidFileSpec = ShapeErrorBase + 0x203;
constexpr long RecordMismatch = ShapeErrorBase + 0x205;    // record number in the .shp is not the index
constexpr long OffsetBeyondFile = ShapeErrorBase + 0x206;  // index beyond the .shx
constexpr long InvalidFileCode = ShapeErrorBase + 0x207;   // main header does not start with 9994
constexpr long ShapefileNotFound = ShapeErrorBase + 0x20C; // .shp or .shx missing
constexpr long ShapeTypeMissing = ShapeErrorBase + 0x20D;  // a new pair needs a type
constexpr long ShapeTypeMismatch = ShapeErrorBase + 0x20E; // record type is not the file's
constexpr long WrongItemClass = ShapeErrorBase + 0x20F;    // a collection takes one class only
constexpr long WrongShapeForFile = ShapeErrorBase + 0x210; // a file takes the shapes of its type only
constexpr long InvalidShapeClass = ShapeErrorBase + 0x211; // no shape of a file at all
constexpr long DistanceToNullShape = ShapeErrorBase + 0x212;

constexpr long UnsupportedShapeType = 9999;

} // namespace vastrel
