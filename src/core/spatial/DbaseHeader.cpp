#include "core/spatial/DbaseHeader.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/ByteOrder.h"

namespace vastrel {

namespace {

constexpr int FixedPart = 32;
constexpr int ColumnPart = 32;
constexpr int WidthPlace = 16; // in the description of a column
constexpr char Terminator = 0x0D;

[[noreturn]] void Refuse(const BinaryFile& file, CustomaryError number, const std::string& what) {
    RaiseCustomary(number, "DbaseTable", "The attribute table " + file.Path() + " " + what);
}

std::string Restore() {
    return " Restore the file from its source.";
}

/// The columns of the header, and how many bytes of a row they take.
struct Columns {
    int Count = 0;
    int Width = 0;
    bool HasTerminator = false;
};

Columns ColumnsOf(const std::vector<char>& header) {
    Columns columns;
    const int length = static_cast<int>(header.size());
    for (int at = FixedPart; at < length; at += ColumnPart) {
        if (header[static_cast<size_t>(at)] == Terminator) {
            columns.HasTerminator = true;
            break;
        }
        if (at + ColumnPart > length) break;
        ++columns.Count;
        columns.Width += static_cast<unsigned char>(header[static_cast<size_t>(at) + WidthPlace]);
    }
    return columns;
}

} // namespace

DbaseHeader CheckedDbaseHeader(BinaryFile& file) {
    char fixed[FixedPart];
    if (file.ReadUpTo(0, fixed, sizeof fixed) < sizeof fixed)
        Refuse(file, InputPastEndOfFile, "is cut off inside its header." + Restore());
    DbaseHeader header;
    const auto rowCount = NumberAt<std::uint32_t>(fixed + 4);
    header.RowCount = rowCount;
    header.HeaderLength = NumberAt<std::uint16_t>(fixed + 8);
    header.RowLength = NumberAt<std::uint16_t>(fixed + 10);
    header.LanguageByte = static_cast<unsigned char>(fixed[29]);

    std::vector<char> bytes(static_cast<size_t>(header.HeaderLength));
    if (header.HeaderLength <= FixedPart)
        Refuse(file, TypeMismatch, "has a header without columns; it is no dBASE table." + Restore());
    if (file.ReadUpTo(0, bytes.data(), bytes.size()) < bytes.size())
        Refuse(file, InputPastEndOfFile, "is cut off inside its header." + Restore());

    const Columns columns = ColumnsOf(bytes);
    const int needed = columns.Width + 1;
    const bool fits = columns.HasTerminator ? needed <= header.RowLength : needed == header.RowLength;
    if (columns.Count == 0 || !fits)
        Refuse(file, TypeMismatch,
               "contradicts itself: its columns take " + std::to_string(needed) + " bytes, its rows " +
                   std::to_string(header.RowLength) + "." + Restore());
    const std::int64_t there = (file.Size() - header.HeaderLength) / header.RowLength;
    if (there < header.RowCount)
        Refuse(file, InputPastEndOfFile,
               "is cut off: its header tells " + std::to_string(header.RowCount) + " rows, and there are " +
                   std::to_string(there) + "." + Restore());
    return header;
}

} // namespace vastrel
