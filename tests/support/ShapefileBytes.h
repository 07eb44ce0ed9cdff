#pragma once

#include "support/TemporaryFolder.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vastrel {

// Shapefiles and tables put together byte by byte, sound or broken. Nothing here uses the program's own
// reading or writing.

std::string LittleInteger(std::int32_t value);
std::string BigInteger(std::int32_t value);
std::string LittleDouble(double value);

/// The bytes with those from a place on replaced.
std::string Replaced(std::string bytes, size_t place, const std::string& by);

struct Vertex {
    double X;
    double Y;
};
using Ring = std::vector<Vertex>;

/// A closed square with its lower left corner at (x, y).
Ring ClockwiseSquare(double x, double y, double side);
Ring CounterClockwiseSquare(double x, double y, double side);

// Record contents. Polygons and polylines as their parts, or with part indexes of their own.
std::string PartsContents(std::int32_t type, const std::vector<std::int32_t>& firsts, const Ring& points);
std::string PolygonContents(const std::vector<Ring>& parts, std::int32_t type = 5);
std::string PointContents(double x, double y);
std::string MultiPointContents(const Ring& points);

/// A pair of files of one type.
class ShapefileBytes {
public:
    explicit ShapefileBytes(std::int32_t type) : type_(type) {}

    /// The record number counts on where none is given.
    void Add(const std::string& contents, std::int32_t number = 0);

    std::string Shp() const { return Header(records_.size()) + records_; }
    std::string Shx() const { return Header(index_.size()) + index_; }
    /// Writes NAME.shp and NAME.shx and gives the path of the first.
    std::string WritePair(const TemporaryFolder& folder, const std::string& name) const;

private:
    std::string Header(size_t bodySize) const;

    std::int32_t type_;
    std::int32_t count_ = 0;
    std::string records_, index_;
};

struct TableColumn {
    std::string Name;
    char Letter;
    int Width;
    int Decimals = 0;
};

/// A dBASE table; the values are cut or filled with blanks to their widths. A row whose first value begins
/// with "\x01" is marked as deleted.
std::string TableBytes(const std::vector<TableColumn>& columns,
                       const std::vector<std::vector<std::string>>& rows, int languageByte = 0);

/// A table with more columns at its right, a row of values for each of its rows.
std::string WithColumns(const std::string& table, const std::vector<TableColumn>& columns,
                        const std::vector<std::vector<std::string>>& rows);

/// Copies a real dataset ("nc/nc") into a folder, writable, and gives the path of its .shp; empty where the
/// data are not there.
std::string CopyOfRealShapefile(const TemporaryFolder& folder, const std::string& name);

} // namespace vastrel
