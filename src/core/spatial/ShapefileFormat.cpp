#include "core/spatial/ShapefileFormat.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/ByteOrder.h"

#include <cmath>

namespace vastrel {

MainHeader ReadMainHeader(BinaryFile& file) {
    char bytes[MainHeaderSize] = {};
    file.ReadUpTo(0, bytes, sizeof bytes);
    MainHeader header;
    header.FileCode = SwappedAt(bytes);
    for (std::ptrdiff_t i = 0; i < 5; ++i)
        header.Unused[i] = SwappedAt(bytes + 4 + 4 * i);
    header.FileLength = SwappedAt(bytes + 24);
    header.Version = NumberAt<std::int32_t>(bytes + 28);
    header.ShapeType = NumberAt<std::int32_t>(bytes + 32);
    header.XMin = NumberAt<double>(bytes + 36);
    header.YMin = NumberAt<double>(bytes + 44);
    header.XMax = NumberAt<double>(bytes + 52);
    header.YMax = NumberAt<double>(bytes + 60);
    for (std::ptrdiff_t i = 0; i < 4; ++i)
        header.RangesZM[i] = NumberAt<double>(bytes + 68 + 8 * i);
    return header;
}

std::string Bytes(const MainHeader& header) {
    std::string bytes;
    AppendSwapped(bytes, header.FileCode);
    for (const auto unused : header.Unused)
        AppendSwapped(bytes, unused);
    AppendSwapped(bytes, header.FileLength);
    AppendInteger(bytes, header.Version);
    AppendInteger(bytes, header.ShapeType);
    for (const double edge : {header.XMin, header.YMin, header.XMax, header.YMax})
        AppendDouble(bytes, edge);
    for (const double range : header.RangesZM)
        AppendDouble(bytes, range);
    return bytes;
}

RecordHeader ReadRecordHeader(BinaryFile& file, std::int64_t position, const std::string& what) {
    char bytes[RecordHeaderSize];
    file.Read(position, bytes, sizeof bytes, what);
    return {SwappedAt(bytes), SwappedAt(bytes + 4)};
}

std::string Bytes(const RecordHeader& header) {
    std::string bytes;
    AppendSwapped(bytes, header.Number);
    AppendSwapped(bytes, header.ContentLength);
    return bytes;
}

void RaiseNotFinite(const std::string& place) {
    RaiseCustomary(Overflow, "FiniteCoordinate", place + " holds a coordinate that is not finite.");
}

double FiniteCoordinate(double value, const std::string& place) {
    if (!std::isfinite(value)) RaiseNotFinite(place);
    return value;
}

} // namespace vastrel
