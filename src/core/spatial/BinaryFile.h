#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel {

/// A file of bytes with its positions, counted from 0. Reading goes through one window of the file, so that
/// many small reads in order cost no more than a few large ones.
class BinaryFile {
public:
    enum class Access {
        Read,
        ReadWrite,         // the file must exist
        ReadWriteOrCreate, // an existing file keeps its bytes
    };

    BinaryFile() = default;

    /// Run-time error 53 where there is no file, 75 for a directory, a pipe or a device, 70 where the
    /// access is not permitted.
    void Open(const std::string& path, Access access);
    void Close();

    const std::string& Path() const { return path_; }
    std::int64_t Size() const { return size_; }

    /// Fills `bytes` from a position on; run-time error 62 where the file ends before, naming `what`.
    void Read(std::int64_t position, char* bytes, size_t count, const std::string& what);

    /// The same as far as the file goes; gives how many bytes were read.
    size_t ReadUpTo(std::int64_t position, char* bytes, size_t count);

    /// Run-time error 61 where the bytes cannot be written.
    void Write(std::int64_t position, std::string_view bytes);
    void Append(std::string_view bytes) { Write(size_, bytes); }

private:
    void LoadWindow(std::int64_t position);

    std::string path_;
    std::fstream stream_;
    std::int64_t size_ = 0;
    std::vector<char> window_;
    std::int64_t windowStart_ = 0;
    size_t windowSize_ = 0;
};

} // namespace vastrel
