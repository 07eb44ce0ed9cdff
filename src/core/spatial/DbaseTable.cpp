#include "core/spatial/DbaseTable.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/DbaseHeader.h"

#include <algorithm>
#include <limits>
#include <shapefil.h>
#include <string_view>

namespace vastrel {

struct DbaseTable::Handle {
    explicit Handle(DBFHandle table) : Table(table) {}
    ~Handle() {
        if (Table != nullptr) DBFClose(Table);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    DBFHandle Table;
};

namespace {

std::string FileOfTable(const std::string& path) {
    const std::string found = FindFile(path);
    if (found.empty())
        RaiseCustomary(FileNotFound, "DbaseTable",
                       "The attribute table " + path +
                           " was not found. Its name is the path of the shapefile up to the first \".\", "
                           "plus \".dbf\". Put the table there, or move the files to a folder without a "
                           "\".\" in its path.");
    return found;
}

DbaseHeader CheckedHeader(const std::string& path) {
    BinaryFile file;
    file.Open(path, BinaryFile::Access::Read);
    const DbaseHeader header = CheckedDbaseHeader(file);
    if (header.RowCount > std::numeric_limits<int>::max())
        RaiseCustomary(Overflow, "DbaseTable", path + " has more rows than can be counted.");
    return header;
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

DBFHandle OpenTable(const std::string& path) {
    SAHooks hooks;
    SASetupDefaultHooks(&hooks);
    hooks.Error = Silent;
    openByLibrary = hooks.FOpen;
    hooks.FOpen = OpenThatFile;
    fileToOpen = path.c_str();
    const DBFHandle table = DBFOpenLL(path.c_str(), "rb", &hooks);
    fileToOpen = nullptr;
    if (table == nullptr)
        RaiseCustomary(TypeMismatch, "DbaseTable",
                       "The attribute table " + path + " cannot be read as a dBASE table.");
    return table;
}

} // namespace

DbaseTable::DbaseTable(const std::string& path) : path_(FileOfTable(path)) {
    const DbaseHeader header = CheckedHeader(path_);
    rowCount_ = static_cast<int>(header.RowCount);
    languageByte_ = header.LanguageByte;
    handle_ = std::make_unique<Handle>(OpenTable(path_));
    size_t place = 1;
    for (int k = 0; k < DBFGetFieldCount(handle_->Table); ++k) {
        char name[XBASE_FLDNAME_LEN_READ + 1] = {};
        DbaseColumn column;
        DBFGetFieldInfo(handle_->Table, k, name, &column.Width, &column.Decimals);
        column.Name = name;
        column.Letter = DBFGetNativeFieldType(handle_->Table, k);
        column.Place = place;
        place += static_cast<size_t>(column.Width);
        columns_.push_back(column);
    }
    if (place > static_cast<size_t>(header.RowLength))
        RaiseCustomary(TypeMismatch, "DbaseTable", path_ + " has columns beyond the end of its rows.");
}

DbaseTable::~DbaseTable() = default;

std::string_view DbaseTable::Bytes(int row, const DbaseColumn& column) {
    const char* bytes = DBFReadTuple(handle_->Table, row);
    if (bytes == nullptr)
        RaiseCustomary(InputPastEndOfFile, "DbaseTable",
                       "Row " + std::to_string(row + 1) + " of " + path_ + " could not be read.");
    return {bytes + column.Place, static_cast<size_t>(column.Width)};
}

} // namespace vastrel
