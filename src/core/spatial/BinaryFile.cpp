#include "core/spatial/BinaryFile.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace vastrel {

namespace {

constexpr size_t WindowSize = size_t{64} * 1024;

} // namespace

void BinaryFile::Open(const std::string& path, Access access) {
    Close();
    const auto native = NativePath(path);
    std::error_code ignored;
    if (std::filesystem::is_directory(native, ignored))
        RaiseCustomary(PathFileAccessError, "BinaryFile", path + " is a folder, not a file.");
    if (std::filesystem::exists(native, ignored) && !std::filesystem::is_regular_file(native, ignored))
        RaiseCustomary(PathFileAccessError, "BinaryFile",
                       path + " is a pipe or a device, and a shapefile is read to and fro. "
                              "Copy it to an ordinary file first.");
    if (access == Access::ReadWriteOrCreate && !std::filesystem::exists(native, ignored))
        std::ofstream(native, std::ios::binary).flush();
    const auto mode = access == Access::Read ? std::ios::in : std::ios::in | std::ios::out;
    errno = 0;
    stream_.open(native, mode | std::ios::binary);
    if (!stream_) {
        const int reason = errno;
        stream_.clear();
        if (reason == EACCES || reason == EPERM || reason == EROFS)
            RaiseCustomary(PermissionDenied, "BinaryFile",
                           access == Access::Read
                               ? path + " may not be read."
                               : path + " is write-protected, and it is opened for reading and writing. "
                                        "Allow writing, or work on a copy.");
        RaiseCustomary(FileNotFound, "BinaryFile", path);
    }
    path_ = path;
    stream_.seekg(0, std::ios::end);
    size_ = std::max<std::int64_t>(0, stream_.tellg());
    window_.resize(WindowSize);
}

void BinaryFile::Close() {
    if (stream_.is_open()) stream_.close();
    stream_.clear();
    size_ = 0;
    windowSize_ = 0;
}

void BinaryFile::LoadWindow(std::int64_t position) {
    stream_.clear();
    stream_.seekg(position);
    stream_.read(window_.data(), static_cast<std::streamsize>(window_.size()));
    windowStart_ = position;
    windowSize_ = static_cast<size_t>(stream_.gcount());
}

size_t BinaryFile::ReadUpTo(std::int64_t position, char* bytes, size_t count) {
    size_t done = 0;
    while (done < count && position >= 0) {
        const std::int64_t at = position + static_cast<std::int64_t>(done);
        const auto inWindow = [&] {
            return at >= windowStart_ && at < windowStart_ + static_cast<std::int64_t>(windowSize_);
        };
        if (!inWindow()) LoadWindow(at);
        if (!inWindow()) break;
        const auto offset = static_cast<size_t>(at - windowStart_);
        const size_t piece = std::min(count - done, windowSize_ - offset);
        std::memcpy(bytes + done, window_.data() + offset, piece);
        done += piece;
    }
    return done;
}

void BinaryFile::Read(std::int64_t position, char* bytes, size_t count, const std::string& what) {
    if (position >= 0 && position <= size_ && static_cast<std::int64_t>(count) <= size_ - position &&
        ReadUpTo(position, bytes, count) == count)
        return;
    RaiseCustomary(InputPastEndOfFile, "BinaryFile", FileName(path_) + " ends before " + what + " does.");
}

void BinaryFile::Write(std::int64_t position, std::string_view bytes) {
    stream_.clear();
    stream_.seekp(position);
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream_.flush();
    if (!stream_) RaiseCustomary(DiskFull, "BinaryFile", path_ + " could not be written to its end.");
    size_ = std::max(size_, position + static_cast<std::int64_t>(bytes.size()));
    windowSize_ = 0;
}

} // namespace vastrel
