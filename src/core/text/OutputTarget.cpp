#include "core/text/OutputTarget.h"

#include "core/platform/RunTimeError.h"
#include "core/text/DiskFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace vastrel {

namespace {

namespace fs = std::filesystem;
using Kind = OutputTarget::Kind;

/// Whether a name of this folder is the number of one of the process's descriptors.
bool HoldsDescriptors(const std::string& folder) {
    std::error_code failed;
    const fs::path whole = fs::canonical(folder, failed);
    if (failed) return false;
    return whole == fs::canonical("/proc/self/fd", failed) ||
           whole == fs::canonical("/proc/thread-self/fd", failed);
}

/// The descriptor that a path names; -1 for none.
int DescriptorOf(const std::string& path) {
    const std::string name = NameOf(path);
    constexpr size_t mostDigits = 9;
    const bool number = !name.empty() && name.size() <= mostDigits &&
                        std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
    return number && HoldsDescriptors(FolderOf(path)) ? std::atoi(name.c_str()) : -1;
}

/// Follows the links at the end of a path up to a descriptor, to what is no link, or to what is not there.
/// False for links in a ring; errno tells.
bool FollowLinks(OutputTarget& target) {
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        target.Descriptor = DescriptorOf(target.Path);
        if (target.Descriptor >= 0) return true;
        std::error_code noLink;
        const fs::path next = fs::read_symlink(target.Path, noLink);
        if (noLink) return true;
        target.Path = next.is_absolute() ? next.string() : FolderOf(target.Path) + "/" + next.string();
    }
    errno = ELOOP;
    return false;
}

void RequireOpenForWriting(const OutputTarget& target) {
    const int flags = fcntl(target.Descriptor, F_GETFL);
    if (flags >= 0 && (flags & O_ACCMODE) == O_RDONLY) errno = EACCES;
    if (flags < 0 || (flags & O_ACCMODE) == O_RDONLY) RaiseFileError(target.Path, "cannot be written to");
}

} // namespace

OutputTarget FindTarget(const std::string& path) {
    OutputTarget target;
    target.Path = path;
    if (path == "-") return {Kind::Descriptor, "Standard output", STDOUT_FILENO, false, false};
    if (!FollowLinks(target)) RaiseFileError(path, "cannot be created");
    if (target.Descriptor >= 0) {
        target.Where = Kind::Descriptor;
        RequireOpenForWriting(target);
        return target;
    }
    struct stat is = {};
    if (stat(target.Path.c_str(), &is) != 0) {
        if (errno != ENOENT || path.empty() || path.back() == '/') RaiseFileError(path, "cannot be created");
        return target;
    }
    if (S_ISDIR(is.st_mode)) RaiseCustomary(PathFileAccessError, "WriteFile", path + " is a folder.");
    if (!S_ISREG(is.st_mode)) {
        target.Where = Kind::Device;
        if (faccessat(AT_FDCWD, target.Path.c_str(), W_OK, AT_EACCESS) != 0)
            RaiseFileError(path, "may not be written");
        return target;
    }
    if (!OpenFile(target.Path, O_WRONLY)) RaiseFileError(path, "may not be written");
    target.Exists = true;
    target.HasOtherNames = is.st_nlink > 1;
    return target;
}

bool IsDescriptor(const std::string& path) {
    OutputTarget target;
    target.Path = path;
    return path == "-" || (FollowLinks(target) && target.Descriptor >= 0);
}

// NOLINTNEXTLINE(misc-no-recursion): no deeper than the path
std::optional<std::string> FileIdentity(const std::string& path) {
    const auto numbers = [](const struct stat& is) {
        return std::to_string(is.st_dev) + ":" + std::to_string(is.st_ino);
    };
    struct stat is = {};
    if (path == "-") {
        if (fstat(STDOUT_FILENO, &is) == 0 && S_ISREG(is.st_mode)) return numbers(is);
        return {};
    }
    if (path.empty()) return {};
    if (stat(path.c_str(), &is) == 0) {
        const bool named = S_ISREG(is.st_mode) || S_ISDIR(is.st_mode) || S_ISFIFO(is.st_mode);
        return named ? std::optional(numbers(is)) : std::nullopt;
    }
    // A ".." behind a folder that is still to be made leads where it will.
    std::error_code failed;
    const std::string plain = fs::weakly_canonical(path, failed).string();
    if (!failed && !plain.empty() && plain != path) return FileIdentity(plain);
    OutputTarget target;
    target.Path = path;
    if (!FollowLinks(target)) return {};
    while (target.Path.size() > 1 && target.Path.back() == '/')
        target.Path.pop_back();
    if (target.Path == "." || target.Path == "/") return {};
    const std::string name = NameOf(target.Path);
    const auto folder = FileIdentity(FolderOf(target.Path));
    return folder ? std::optional(*folder + "/" + name) : std::nullopt;
}

} // namespace vastrel
