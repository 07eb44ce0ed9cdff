#include "core/layer/DbaseLayer.h"

#include "core/platform/RunTimeError.h"
#include "core/text/Numbers.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <shapefil.h>

namespace vastrel {

namespace {

constexpr size_t LongestText = 254;
constexpr int NumberWidth = 24; // "-1.2345678901234567e-308"
constexpr int NumberDecimals = 15;
constexpr int WholeWidth = 9;

/// A file that the library writes, in memory.
struct MemoryFile {
    std::string* Bytes = nullptr;
    size_t Place = 0;
};

/// The files of the table that is being written, by name.
thread_local std::map<std::string, std::string>* files = nullptr;

MemoryFile* FileOf(SAFile handle) {
    return reinterpret_cast<MemoryFile*>(handle);
}

SAFile Open(const char* name, const char* access) {
    std::string& bytes = (*files)[name];
    if (access[0] == 'w') bytes.clear();
    return reinterpret_cast<SAFile>(new MemoryFile{&bytes});
}

SAOffset Read(void* to, SAOffset size, SAOffset count, SAFile handle) {
    MemoryFile& file = *FileOf(handle);
    const size_t left = file.Bytes->size() - std::min(file.Place, file.Bytes->size());
    const SAOffset items = size == 0 ? 0 : std::min<SAOffset>(count, left / size);
    std::memcpy(to, file.Bytes->data() + (left == 0 ? 0 : file.Place), items * size);
    file.Place += items * size;
    return items;
}

SAOffset Write(void* from, SAOffset size, SAOffset count, SAFile handle) {
    MemoryFile& file = *FileOf(handle);
    const size_t end = file.Place + size * count;
    if (file.Bytes->size() < end) file.Bytes->resize(end);
    std::memcpy(file.Bytes->data() + file.Place, from, size * count);
    file.Place = end;
    return count;
}

SAOffset Seek(SAFile handle, SAOffset place, int whence) {
    MemoryFile& file = *FileOf(handle);
    const size_t from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.Place : file.Bytes->size();
    file.Place = from + place;
    return 0;
}

SAOffset Tell(SAFile handle) {
    return FileOf(handle)->Place;
}

int Flush(SAFile) {
    return 0;
}

int Close(SAFile handle) {
    const std::unique_ptr<MemoryFile> closed(FileOf(handle));
    return 0;
}

int Remove(const char* name) {
    return files->erase(name) > 0 ? 0 : -1;
}

SAHooks MemoryHooks() {
    SAHooks hooks;
    SASetupDefaultHooks(&hooks);
    hooks.FOpen = Open;
    hooks.FRead = Read;
    hooks.FWrite = Write;
    hooks.FSeek = Seek;
    hooks.FTell = Tell;
    hooks.FFlush = Flush;
    hooks.FClose = Close;
    hooks.Remove = Remove;
    hooks.Error = [](const char*) {};
    return hooks;
}

/// The text cut to the longest field, at the end of a character.
std::string Cut(std::string text) {
    if (text.size() <= LongestText) return text;
    size_t end = LongestText;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    text.resize(end);
    return text;
}

struct Field {
    char Letter;
    int Width;
    int Decimals;
};

struct FieldOf {
    std::ptrdiff_t RowCount;
    Field operator()(const ResultColumn::Texts& values) const {
        size_t width = 1;
        for (std::ptrdiff_t row = 1; row <= RowCount; ++row)
            width = std::max(width, values(row).size());
        return {'C', static_cast<int>(std::min(width, LongestText)), 0};
    }
    Field operator()(const ResultColumn::Numbers&) const { return {'F', NumberWidth, NumberDecimals}; }
    Field operator()(const ResultColumn::Wholes&) const { return {'N', WholeWidth, 0}; }
};

/// A value as it stands in its field: texts on the left, numbers on the right.
struct FieldText {
    std::ptrdiff_t Row;
    std::ptrdiff_t* CutTexts;
    std::string operator()(const ResultColumn::Texts& values) const {
        const std::string text = values(Row);
        if (text.size() > LongestText) ++*CutTexts;
        return Cut(text);
    }
    std::string operator()(const ResultColumn::Numbers& values) const {
        return Pad(ShortestText(values(Row)), NumberWidth);
    }
    std::string operator()(const ResultColumn::Wholes& values) const {
        return Pad(std::to_string(values(Row)), WholeWidth);
    }
};

/// Writes all rows through the library into the files of this thread; gives how many texts were cut.
std::ptrdiff_t WriteRows(const ResultTable& table, const char* name) {
    SAHooks hooks = MemoryHooks();
    DBFInfo* dbase = DBFCreateLL(name, "UTF-8", &hooks);
    for (const ResultColumn& column : table.Columns) {
        const Field field = std::visit(FieldOf{table.RowCount}, column.Values);
        DBFAddNativeFieldType(dbase, column.Name.c_str(), field.Letter, field.Width, field.Decimals);
    }
    std::ptrdiff_t cutTexts = 0;
    for (std::ptrdiff_t row = 1; row <= table.RowCount; ++row)
        for (size_t k = 0; k < table.Columns.size(); ++k) {
            std::string text = std::visit(FieldText{row, &cutTexts}, table.Columns[k].Values);
            DBFWriteAttributeDirectly(dbase, static_cast<int>(row - 1), static_cast<int>(k), text.data());
        }
    DBFClose(dbase);
    return cutTexts;
}

} // namespace

DbaseBytes DbaseTableBytes(const ResultTable& table) {
    if (std::ssize(table.Columns) > DbaseColumnLimit)
        RaiseCustomary(SubscriptOutOfRange, "DbaseTableBytes",
                       std::to_string(table.Columns.size()) + " columns do not fit in a dBASE table.");
    if (table.RowCount > std::numeric_limits<int>::max())
        RaiseCustomary(Overflow, "DbaseTableBytes", "More rows than a dBASE table counts.");
    std::map<std::string, std::string> written;
    files = &written;
    DbaseBytes bytes;
    bytes.CutTexts = WriteRows(table, "layer.dbf");
    files = nullptr;
    bytes.Table = std::move(written["layer.dbf"]);
    return bytes;
}

} // namespace vastrel
