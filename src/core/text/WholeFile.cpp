#include "core/text/WholeFile.h"

#include "core/platform/AvailableMemory.h"
#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

namespace vastrel {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t MostWithoutSize = std::uint64_t{4} * 1024 * 1024 * 1024;
constexpr size_t ChunkSize = size_t{256} * 1024;

void RequireNoFolder(const std::string& path) {
    std::error_code ignored;
    if (fs::is_directory(NativePath(path), ignored))
        RaiseCustomary(PathFileAccessError, "ReadWholeFile", path + " is a folder, not a file.");
}

std::ifstream Opened(const std::string& path) {
    errno = 0;
    std::ifstream stream(NativePath(path), std::ios::binary);
    if (stream) return stream;
    if (errno == EACCES || errno == EPERM)
        RaiseCustomary(PermissionDenied, "ReadWholeFile", path + " may not be read.");
    RaiseCustomary(FileNotFound, "ReadWholeFile", path);
}

void RequireWithin(std::uint64_t limit, std::uint64_t size, const std::string& path) {
    if (size <= limit) return;
    RaiseCustomary(OutOfMemory, "ReadWholeFile",
                   FileName(path) + " holds more than the " + std::to_string(limit / 1024 / 1024) +
                       " MB that may be read here.");
}

bool IsOrdinary(const std::string& path) {
    std::error_code ignored;
    return fs::is_regular_file(NativePath(path), ignored);
}

/// How many bytes an ordinary file tells to have; 0 for all others.
std::uint64_t ToldSize(const std::string& path) {
    std::error_code unknown;
    const auto size = IsOrdinary(path) ? fs::file_size(NativePath(path), unknown) : 0;
    return unknown ? 0 : size;
}

std::string Rest(std::istream& stream, std::uint64_t told, const std::string& name, std::uint64_t limit) {
    std::string bytes;
    bytes.reserve(told);
    for (std::vector<char> chunk(ChunkSize); stream;) {
        stream.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        bytes.append(chunk.data(), static_cast<size_t>(stream.gcount()));
        RequireWithin(limit, bytes.size(), name);
    }
    if (stream.bad())
        RaiseCustomary(PathFileAccessError, "ReadWholeFile", name + " could not be read to its end.");
    return bytes;
}

} // namespace

std::string ReadWholeFile(const std::string& path, std::uint64_t limit) {
    RequireNoFolder(path);
    std::ifstream stream = Opened(path);
    const std::uint64_t told = ToldSize(path);
    RequireWithin(limit, told, path);
    return Rest(stream, told, path, limit);
}

std::string ReadWholeFile(const std::string& path) {
    return ReadWholeFile(path, IsOrdinary(path) ? AvailableMemory() / 2 : LargestPipe());
}

std::string ReadToEnd(std::istream& stream, const std::string& name, std::uint64_t limit) {
    return Rest(stream, 0, name, limit);
}

std::uint64_t LargestPipe() {
    return std::min(AvailableMemory() / 2, MostWithoutSize);
}

} // namespace vastrel
