#include "core/text/TextFile.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/text/TextEncoding.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace vastrel {

namespace {

constexpr size_t BufferSize = size_t{256} * 1024;

#ifdef _WIN32
constexpr std::string_view LineEnd = "\r\n";
#else
constexpr std::string_view LineEnd = "\n";
#endif

} // namespace

TextFile::TextFile(const std::string& path) : path_(path), buffer_(BufferSize) {
    std::error_code ignored;
    if (std::filesystem::is_directory(NativePath(path), ignored))
        RaiseCustomary(PathFileAccessError, "TextFile", path + " is a folder, not a file.");
    errno = 0;
    stream_.open(NativePath(path), std::ios::binary);
    if (stream_) return;
    if (errno == EACCES || errno == EPERM)
        RaiseCustomary(PermissionDenied, "TextFile", path + " may not be read.");
    RaiseCustomary(FileNotFound, "TextFile", path);
}

int TextFile::NextByte() {
    if (at_ == end_) {
        stream_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        at_ = 0;
        end_ = static_cast<size_t>(stream_.gcount());
        if (firstBytes_ && std::string_view(buffer_.data(), end_).substr(0, 3) == "\xEF\xBB\xBF") at_ = 3;
        firstBytes_ = false;
        if (at_ == end_) return -1;
    }
    return static_cast<unsigned char>(buffer_[at_++]);
}

bool TextFile::NextLine(std::string& line) {
    line.clear();
    int byte = NextByte();
    if (byte < 0) return false;
    ++lineNumber_;
    for (; byte >= 0 && byte != '\n' && byte != '\r'; byte = NextByte()) {
        if (line.size() == LongestLine)
            RaiseCustomary(OutOfStringSpace, "TextFile",
                           Place() + " is longer than the limit of " +
                               std::to_string(LongestLine / 1024 / 1024) + " MB.");
        line.push_back(static_cast<char>(byte));
    }
    if (byte == '\r') {
        const int next = NextByte();
        if (next >= 0 && next != '\n') --at_;
    }
    line = ToUtf8(line);
    return true;
}

std::string TextFile::FirstLine() {
    std::string line;
    if (!NextLine(line)) RaiseCustomary(InputPastEndOfFile, "TextFile", FileName(path_) + " is empty.");
    return line;
}

std::string TextFile::Place() const {
    return "line " + std::to_string(lineNumber_) + " of " + FileName(path_);
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

std::ptrdiff_t CountLines(const std::string& path) {
    TextFile file(path);
    std::ptrdiff_t count = 0;
    for (std::string line; file.NextLine(line);)
        ++count;
    return count;
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
    errno = 0;
    std::ofstream stream(NativePath(path), std::ios::binary | std::ios::trunc);
    if (!stream) {
        const bool refused = errno == EACCES || errno == EPERM || errno == EROFS;
        RaiseCustomary(refused ? PermissionDenied : PathFileAccessError, "WriteFile",
                       path + " cannot be created.");
    }
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) RaiseCustomary(DiskFull, "WriteFile", path + " could not be written to its end.");
}

} // namespace vastrel
