#include "core/spatial/Recordset.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/BinaryFile.h"
#include "core/text/LetterCase.h"

namespace vastrel {

namespace {

constexpr size_t LongestCodePageName = 64;

/// The text of the .cpg file beside a table; empty where there is none.
std::string CodePageText(const std::string& tablePath) {
    auto path = NativePath(tablePath);
    path.replace_extension(".cpg");
    const std::string found = FindFile(PathText(path));
    if (found.empty()) return "";
    try {
        BinaryFile file;
        file.Open(found, BinaryFile::Access::Read);
        std::string text(LongestCodePageName, '\0');
        text.resize(file.ReadUpTo(0, text.data(), text.size()));
        return text;
    } catch (const RunTimeError&) {
        return ""; // a .cpg that cannot be read tells nothing, and the table is still good
    }
}

std::string WithoutTrailingBlanks(std::string text) {
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

} // namespace

Field::Field(Recordset& owner, DbaseColumn column)
    : owner_(&owner), column_(std::move(column)),
      type_(TypeOfColumn(column_.Letter, column_.Width, column_.Decimals)) {}

FieldValue Field::Value() const {
    return owner_->ValueOf(owner_->row_, *this);
}

Recordset::Recordset(const std::string& path)
    : table_(path), codePage_(CodePageText(table_.Path()), table_.LanguageByte()) {
    for (DbaseColumn column : table_.Columns()) {
        column.Name = codePage_.Decode(WithoutTrailingBlanks(column.Name));
        fields_.emplace_back(*this, column);
    }
}

void Recordset::MoveNext() {
    if (EndOfFile()) RaiseCustomary(NoCurrentRecord, "Recordset");
    ++row_;
}

FieldValue Recordset::ValueAt(int row, int field) {
    return ValueOf(row, Fields(field));
}

FieldValue Recordset::ValueOf(int row, const Field& field) {
    if (row < 0 || row >= RecordCount())
        RaiseCustomary(NoCurrentRecord, "Recordset",
                       FileName(table_.Path()) + " has " + std::to_string(RecordCount()) + " rows.");
    try {
        return ValueOfBytes(table_.Bytes(row, field.column_), field.type_, codePage_);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Number(), "Recordset",
                           error.Description() + "\nRow " + std::to_string(row + 1) + ", column " +
                               field.Name() + " of " + FileName(table_.Path()) + ".");
    }
}

const Field& Recordset::Fields(int number) const {
    if (number < 0 || number >= FieldCount())
        RaiseCustomary(ItemNotFound, "Recordset", "Column number " + std::to_string(number) + ".");
    return fields_[static_cast<size_t>(number)];
}

const Field& Recordset::Fields(const std::string& name) const {
    for (const Field& field : fields_)
        if (field.Name() == name) return field;
    for (const Field& field : fields_)
        if (EqualWithoutCase(field.Name(), name)) return field;
    RaiseCustomary(ItemNotFound, "Recordset", FileName(table_.Path()) + " has no column \"" + name + "\".");
}

std::string Recordset::GetString() {
    std::string text;
    for (bool first = true; !EndOfFile(); MoveNext(), first = false) {
        if (!first) text += '\r';
        for (int k = 0; k < FieldCount(); ++k) {
            if (k > 0) text += '\t';
            const FieldValue value = Fields(k).Value();
            if (!value.IsNull()) text += value.Text();
        }
    }
    return text;
}

} // namespace vastrel
