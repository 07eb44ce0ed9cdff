#include "support/ShapefileBytes.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace vastrel {

namespace fs = std::filesystem;

std::string LittleInteger(std::int32_t value) {
    std::string bytes(4, '\0');
    std::memcpy(bytes.data(), &value, 4);
    return bytes;
}

std::string BigInteger(std::int32_t value) {
    const std::string bytes = LittleInteger(value);
    return {bytes.rbegin(), bytes.rend()};
}

std::string LittleDouble(double value) {
    std::string bytes(8, '\0');
    std::memcpy(bytes.data(), &value, 8);
    return bytes;
}

std::string Replaced(std::string bytes, size_t place, const std::string& by) {
    return bytes.replace(place, by.size(), by);
}

Ring ClockwiseSquare(double x, double y, double side) {
    return {{x, y}, {x, y + side}, {x + side, y + side}, {x + side, y}, {x, y}};
}

Ring CounterClockwiseSquare(double x, double y, double side) {
    Ring ring = ClockwiseSquare(x, y, side);
    return {ring.rbegin(), ring.rend()};
}

namespace {

std::string Box(const Ring& points) {
    double box[4] = {0, 0, 0, 0}; // xmin ymin xmax ymax
    for (size_t k = 0; k < points.size(); ++k) {
        const auto [x, y] = points[k];
        box[0] = k == 0 ? x : std::min(box[0], x);
        box[1] = k == 0 ? y : std::min(box[1], y);
        box[2] = k == 0 ? x : std::max(box[2], x);
        box[3] = k == 0 ? y : std::max(box[3], y);
    }
    std::string bytes;
    for (const double edge : box)
        bytes += LittleDouble(edge);
    return bytes;
}

std::string Points(const Ring& points) {
    std::string bytes;
    for (const auto& [x, y] : points)
        bytes += LittleDouble(x) + LittleDouble(y);
    return bytes;
}

} // namespace

std::string PartsContents(std::int32_t type, const std::vector<std::int32_t>& firsts, const Ring& points) {
    std::string bytes = LittleInteger(type) + Box(points);
    bytes += LittleInteger(static_cast<std::int32_t>(firsts.size()));
    bytes += LittleInteger(static_cast<std::int32_t>(points.size()));
    for (const auto first : firsts)
        bytes += LittleInteger(first);
    return bytes + Points(points);
}

std::string PolygonContents(const std::vector<Ring>& parts, std::int32_t type) {
    std::vector<std::int32_t> firsts;
    Ring all;
    for (const auto& part : parts) {
        firsts.push_back(static_cast<std::int32_t>(all.size()));
        all.insert(all.end(), part.begin(), part.end());
    }
    return PartsContents(type, firsts, all);
}

std::string PointContents(double x, double y) {
    return LittleInteger(1) + LittleDouble(x) + LittleDouble(y);
}

std::string MultiPointContents(const Ring& points) {
    return LittleInteger(8) + Box(points) + LittleInteger(static_cast<std::int32_t>(points.size())) +
           Points(points);
}

void ShapefileBytes::Add(const std::string& contents, std::int32_t number) {
    ++count_;
    const auto words = static_cast<std::int32_t>(contents.size() / 2);
    index_ += BigInteger(static_cast<std::int32_t>((100 + records_.size()) / 2)) + BigInteger(words);
    records_ += BigInteger(number == 0 ? count_ : number) + BigInteger(words) + contents;
}

std::string ShapefileBytes::Header(size_t bodySize) const {
    std::string bytes = BigInteger(9994) + std::string(20, '\0');
    bytes += BigInteger(static_cast<std::int32_t>((100 + bodySize) / 2));
    bytes += LittleInteger(1000) + LittleInteger(type_);
    for (const double edge : {-10.0, -20.0, 30.0, 40.0})
        bytes += LittleDouble(edge);
    return bytes + std::string(32, '\0');
}

std::string ShapefileBytes::WritePair(const TemporaryFolder& folder, const std::string& name) const {
    folder.Write(name + ".shx", Shx());
    return folder.Write(name + ".shp", Shp());
}

std::string TableBytes(const std::vector<TableColumn>& columns,
                       const std::vector<std::vector<std::string>>& rows, int languageByte) {
    const auto sixteenBits = [](size_t value) {
        return std::string{static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
    };
    std::string descriptions, body;
    size_t rowLength = 1;
    for (const auto& column : columns) {
        std::string description(32, '\0');
        description.replace(0, std::min<size_t>(11, column.Name.size()), column.Name.substr(0, 11));
        description[11] = column.Letter;
        description[16] = static_cast<char>(column.Width);
        description[17] = static_cast<char>(column.Decimals);
        descriptions += description;
        rowLength += static_cast<size_t>(column.Width);
    }
    for (const auto& row : rows) {
        const bool deleted = !row.empty() && row[0].rfind("\x01", 0) == 0;
        body += deleted ? '*' : ' ';
        for (size_t k = 0; k < columns.size(); ++k) {
            std::string value = k == 0 && deleted ? row[k].substr(1) : row[k];
            value.resize(static_cast<size_t>(columns[k].Width), ' ');
            body += value;
        }
    }
    std::string header = "\x03\x7E\x0B\x14" + LittleInteger(static_cast<std::int32_t>(rows.size()));
    header += sixteenBits(32 + descriptions.size() + 1) + sixteenBits(rowLength);
    header.resize(32, '\0');
    header[29] = static_cast<char>(languageByte);
    return header + descriptions + "\x0D" + body + "\x1A";
}

std::string WithColumns(const std::string& table, const std::vector<TableColumn>& columns,
                        const std::vector<std::vector<std::string>>& rows) {
    const auto lengthAt = [](const std::string& bytes, size_t place) {
        return static_cast<size_t>(static_cast<unsigned char>(bytes[place])) +
               256 * static_cast<size_t>(static_cast<unsigned char>(bytes[place + 1]));
    };
    const auto descriptions = [&](const std::string& bytes) {
        return bytes.substr(32, lengthAt(bytes, 8) - 33);
    };
    const auto row = [&](const std::string& bytes, size_t i) { // behind its mark
        return bytes.substr(lengthAt(bytes, 8) + i * lengthAt(bytes, 10) + 1, lengthAt(bytes, 10) - 1);
    };
    const std::string added = TableBytes(columns, rows);
    const std::string all = descriptions(table) + descriptions(added);
    const size_t header = 32 + all.size() + 1, length = lengthAt(table, 10) + lengthAt(added, 10) - 1;
    std::string bytes = table.substr(0, 8);
    for (const size_t value : {header, length})
        bytes += {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
    bytes += table.substr(12, 20) + all + "\x0D";
    for (size_t i = 0; i < rows.size(); ++i)
        bytes += " " + row(table, i) + row(added, i);
    return bytes + "\x1A";
}

std::string CopyOfRealShapefile(const TemporaryFolder& folder, const std::string& name) {
    const std::string base = fs::path(name).filename().string();
    if (RealData(name + ".shp").empty()) return "";
    for (const std::string extension : {".shp", ".shx", ".dbf", ".cpg"}) {
        const std::string from = RealData(name + extension);
        if (!from.empty()) folder.Write(base + extension, ReadFile(from));
    }
    return folder / (base + ".shp");
}

} // namespace vastrel
