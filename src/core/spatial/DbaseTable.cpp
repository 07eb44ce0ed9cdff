#include "core/spatial/DbaseTable.h"

#include "core/numeric/Memory.h"
#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/DbaseHeader.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <shapefil.h>
#include <string_view>
#include <type_traits>

namespace vastrel {

/// The rows as they were when the table was opened: what becomes of the file later is not seen.
struct DbaseTable::Handle {
    size_t RowLength = 0;
    std::vector<char> Rows; // one behind the other
};

namespace {

std::string FileOfTable(const std::string& path) {
    std::string found = FindFile(path);
    if (found.empty())
        RaiseCustomary(FileNotFound, "DbaseTable",
                       "The attribute table " + path +
                           " was not found. Its name is the path of the shapefile up to the first \".\", "
                           "plus \".dbf\". Put the table there, or move the files to a folder without a "
                           "\".\" in its path.");
    return found;
}

/// The rows, one behind the other. Their size has been held against that of the file.
std::vector<char> ReadRows(BinaryFile& file, const DbaseHeader& header) {
    const auto size = static_cast<size_t>(header.RowCount) * static_cast<size_t>(header.RowLength);
    RequireMemory(static_cast<double>(size), "DbaseTable");
    std::vector<char> rows(size);
    file.Read(header.HeaderLength, rows.data(), size, "the last row");
    return rows;
}

/// What the library says goes into our own errors, not to a stream.
void Silent(const char*) {}

/// The file that the library is to open. It asks for the name with ".dbf" or ".DBF" behind, and for a .cpg
/// file, which is none of its business here; whatever the case of the name, it gets this file.
thread_local const char* fileToOpen = nullptr;
SAFile (*openByLibrary)(const char*, const char*) = nullptr;

SAFile OpenThatFile(const char* name, const char* access) {
    const std::string_view asked = name;
    const std::string_view extension = asked.substr(asked.size() - std::min<size_t>(4, asked.size()));
    return extension == ".dbf" || extension == ".DBF" ? openByLibrary(fileToOpen, access) : nullptr;
}

struct CloseTable {
    void operator()(DBFHandle table) const { DBFClose(table); }
};
using OpenedTable = std::unique_ptr<std::remove_pointer_t<DBFHandle>, CloseTable>;

OpenedTable OpenTable(const std::string& path) {
    SAHooks hooks;
    SASetupDefaultHooks(&hooks);
    hooks.Error = Silent;
    openByLibrary = hooks.FOpen;
    hooks.FOpen = OpenThatFile;
    fileToOpen = path.c_str();
    OpenedTable table(DBFOpenLL(path.c_str(), "rb", &hooks));
    fileToOpen = nullptr;
    if (!table)
        RaiseCustomary(TypeMismatch, "DbaseTable",
                       "The attribute table " + path + " cannot be read as a dBASE table.");
    return table;
}

} // namespace

DbaseTable::DbaseTable(const std::string& path) : path_(FileOfTable(path)) {
    BinaryFile file;
    file.Open(path_, BinaryFile::Access::Read);
    const DbaseHeader header = CheckedDbaseHeader(file);
    if (header.RowCount > std::numeric_limits<int>::max())
        RaiseCustomary(Overflow, "DbaseTable", path_ + " has more rows than can be counted.");
    rowCount_ = static_cast<int>(header.RowCount);
    languageByte_ = header.LanguageByte;
    const auto table = OpenTable(path_);
    size_t place = 1;
    for (int k = 0; k < DBFGetFieldCount(table.get()); ++k) {
        char name[XBASE_FLDNAME_LEN_READ + 1] = {};
        DbaseColumn column;
        DBFGetFieldInfo(table.get(), k, name, &column.Width, &column.Decimals);
        column.Name = name;
        column.Letter = DBFGetNativeFieldType(table.get(), k);
        column.Place = place;
        place += static_cast<size_t>(column.Width);
        columns_.push_back(column);
    }
    const auto rowLength = static_cast<size_t>(header.RowLength);
    if (place > rowLength)
        RaiseCustomary(TypeMismatch, "DbaseTable", path_ + " has columns beyond the end of its rows.");
    handle_ = std::make_unique<Handle>(Handle{rowLength, ReadRows(file, header)});
}

DbaseTable::~DbaseTable() = default;

std::string_view DbaseTable::Bytes(int row, const DbaseColumn& column) {
    const char* bytes = handle_->Rows.data() + static_cast<size_t>(row) * handle_->RowLength;
    return {bytes + column.Place, static_cast<size_t>(column.Width)};
}

} // namespace vastrel
