#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel {

/// A text file, read once and whole; see ReadWholeFile. Counts and readings come from the same bytes,
/// whatever happens to the file in between.
///
/// A line ends with CR LF, LF or a lone CR. A line end at the end of the file starts no further line; a last
/// line without one counts. A byte order mark at the head is passed over. Text is UTF-8; a byte that is part
/// of no UTF-8 character is taken as Windows-1252.
class TextFile {
public:
    /// The longest line that is read, in bytes: more is run-time error 14 with file and line.
    static constexpr size_t LongestLine = size_t{16} * 1024 * 1024;

    /// Reads a file; errors as for ReadWholeFile.
    explicit TextFile(const std::string& path);

    /// A file that stands in memory already; the path is what its places are named by.
    TextFile(std::string path, std::string bytes);

    const std::string& Path() const { return path_; }
    /// The bytes as they are read, the byte order mark included.
    const std::string& Bytes() const { return bytes_; }

    /// Run-time error 62 for a file without a line.
    std::string FirstLine() const;

    /// Run-time error 14 for a line that is too long.
    std::ptrdiff_t CountLines() const;

private:
    std::string path_, bytes_;
};

/// Reads the lines of a text file, which has to outlive it.
class LineReader {
public:
    explicit LineReader(const TextFile& file);
    explicit LineReader(TextFile&&) = delete;

    /// The next line without its end; false at the end of the file.
    bool NextLine(std::string& line);

    /// "line 12 of points.txt", for the line read last.
    std::string Place() const;

private:
    friend class TextFile;
    bool NextBytes(std::string_view& line);

    const TextFile* file_;
    size_t at_ = 0;
    std::int64_t lineNumber_ = 0;
};

/// The fields of a line between commas. An empty line has no field at all; a comma at the end of a line adds
/// an empty one. No more than `most` fields are taken, so that a line of nothing but commas stays small.
std::vector<std::string> SplitAtCommas(std::string_view line, size_t most = static_cast<size_t>(-1));

/// Field `index` (from 0) of a line; run-time error 9 naming the place where the line has fewer fields.
const std::string& FieldAt(const std::vector<std::string>& fields, size_t index, const std::string& place);

/// Creates or replaces a text file; every line gets the platform's line end. Run-time error 75 or 70 where
/// the file cannot be created, 61 where it cannot be written to its end; an old file stands whole then.
void WriteTextFile(const std::string& path, const std::vector<std::string>& lines);

/// The lines as one text with the platform's line ends.
std::string JoinLines(const std::vector<std::string>& lines);

/// Creates or replaces a file with these bytes; errors as for WriteTextFile.
void WriteFile(const std::string& path, std::string_view bytes);

} // namespace vastrel
