#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel {

/// A text file read line by line.
///
/// A line ends with CR LF, LF or a lone CR. A line end at the end of the file starts no further line; a last
/// line without one counts. A byte order mark at the head is passed over. Text is UTF-8; a byte that is part
/// of no UTF-8 character is taken as Windows-1252.
class TextFile {
public:
    /// The longest line that is read, in bytes: more is run-time error 14 with file and line, so that
    /// memory stays bounded whatever the file holds.
    static constexpr size_t LongestLine = size_t{16} * 1024 * 1024;

    /// Opens a file for reading. Run-time error 53 where there is none, 75 for a directory, 70 where
    /// reading is not permitted.
    explicit TextFile(const std::string& path);

    /// The next line without its end; false at the end of the file.
    bool NextLine(std::string& line);

    /// The next line; run-time error 62 at the end of the file.
    std::string FirstLine();

    /// "line 12 of points.txt", for the line read last.
    std::string Place() const;

private:
    int NextByte();

    std::string path_;
    std::ifstream stream_;
    std::vector<char> buffer_;
    size_t at_ = 0;
    size_t end_ = 0;
    bool firstBytes_ = true;
    std::int64_t lineNumber_ = 0;
};

/// The fields of a line between commas. An empty line has no field at all; a comma at the end of a line adds
/// an empty one. No more than `most` fields are taken, so that a line of nothing but commas stays small.
std::vector<std::string> SplitAtCommas(std::string_view line, size_t most = static_cast<size_t>(-1));

/// The number of lines of a file; errors as for TextFile.
std::ptrdiff_t CountLines(const std::string& path);

/// Field `index` (from 0) of a line; run-time error 9 naming the place where the line has fewer fields.
const std::string& FieldAt(const std::vector<std::string>& fields, size_t index, const std::string& place);

/// Creates or replaces a text file; every line gets the platform's line end. Run-time error 75 or 70 where
/// the file cannot be created, 61 where it cannot be written to its end.
void WriteTextFile(const std::string& path, const std::vector<std::string>& lines);

/// The lines as one text with the platform's line ends.
std::string JoinLines(const std::vector<std::string>& lines);

/// Creates or replaces a file with these bytes; errors as for WriteTextFile.
void WriteFile(const std::string& path, std::string_view bytes);

} // namespace vastrel
