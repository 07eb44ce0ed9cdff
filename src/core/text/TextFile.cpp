#include "core/text/TextFile.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/text/OutputSet.h"
#include "core/text/TextEncoding.h"
#include "core/text/WholeFile.h"

#include <cerrno>
#include <fstream>
#include <utility>

namespace vastrel {

namespace {

#ifdef _WIN32
constexpr std::string_view LineEnd = "\r\n";
#else
constexpr std::string_view LineEnd = "\n";
#endif

} // namespace

TextFile::TextFile(const std::string& path) : TextFile(path, ReadWholeFile(path)) {}

TextFile::TextFile(std::string path, std::string bytes) : path_(std::move(path)), bytes_(std::move(bytes)) {}

std::string TextFile::FirstLine() const {
    std::string line;
    if (!LineReader(*this).NextLine(line))
        RaiseCustomary(InputPastEndOfFile, "TextFile", FileName(path_) + " is empty.");
    return line;
}

std::ptrdiff_t TextFile::CountLines() const {
    LineReader reader(*this);
    std::ptrdiff_t count = 0;
    for (std::string_view line; reader.NextBytes(line);)
        ++count;
    return count;
}

LineReader::LineReader(const TextFile& file) : file_(&file) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (file.Bytes().compare(0, mark.size(), mark) == 0) at_ = mark.size();
}

bool LineReader::NextBytes(std::string_view& line) {
    const std::string& bytes = file_->Bytes();
    if (at_ == bytes.size()) return false;
    ++lineNumber_;
    const size_t start = at_;
    while (at_ < bytes.size() && bytes[at_] != '\n' && bytes[at_] != '\r')
        ++at_;
    line = std::string_view(bytes).substr(start, at_ - start);
    if (line.size() > TextFile::LongestLine)
        RaiseCustomary(OutOfStringSpace, "LineReader",
                       Place() + " is longer than the limit of " +
                           std::to_string(TextFile::LongestLine / 1024 / 1024) + " MB.");
    if (at_ < bytes.size()) at_ += bytes.compare(at_, 2, "\r\n") == 0 ? 2 : 1;
    return true;
}

bool LineReader::NextLine(std::string& line) {
    std::string_view bytes;
    const bool found = NextBytes(bytes);
    line = ToUtf8(bytes);
    return found;
}

std::string LineReader::Place() const {
    return "line " + std::to_string(lineNumber_) + " of " + FileName(file_->Path());
}

std::vector<std::string> SplitAtCommas(std::string_view line, size_t most) {
    std::vector<std::string> fields;
    if (line.empty()) return fields;
    while (fields.size() < most) {
        const size_t comma = line.find(',');
        fields.emplace_back(line.substr(0, comma));
        if (comma == std::string_view::npos) break;
        line.remove_prefix(comma + 1);
    }
    return fields;
}

const std::string& FieldAt(const std::vector<std::string>& fields, size_t index, const std::string& place) {
    if (index >= fields.size())
        RaiseCustomary(SubscriptOutOfRange, "FieldAt",
                       place + " has " + std::to_string(fields.size()) + " fields, field " +
                           std::to_string(index + 1) + " is missing.");
    return fields[index];
}

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) {
        text += line;
        text += LineEnd;
    }
    return text;
}

void WriteTextFile(const std::string& path, const std::vector<std::string>& lines) {
    WriteFile(path, JoinLines(lines));
}

void WriteFile(const std::string& path, std::string_view bytes) {
    OutputSet file;
    file.Add(path, std::string(bytes));
    file.Commit();
}

} // namespace vastrel
