#include "core/text/DiskFile.h"

#include "core/platform/RunTimeError.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace vastrel {

namespace {

std::string Words(int reason) {
    return " (" + std::generic_category().message(reason) + ").";
}

/// The longest name that a folder takes, in bytes.
size_t LongestName(const std::string& folder) {
    constexpr long customary = 255;
    const long most = pathconf(folder.c_str(), _PC_NAME_MAX);
    return static_cast<size_t>(most > 0 ? std::min(most, customary) : customary);
}

/// The text cut to so many bytes, with no character in two.
std::string Cut(const std::string& text, size_t most) {
    if (text.size() <= most) return text;
    constexpr unsigned kind = 0xC0;
    constexpr unsigned continuation = 0x80;
    while (most > 0 && (static_cast<unsigned char>(text[most]) & kind) == continuation)
        --most;
    return text.substr(0, most);
}

} // namespace

Descriptor::~Descriptor() {
    Close();
}

bool Descriptor::Close() {
    if (number_ < 0) return true;
    const int closed = number_;
    number_ = -1;
    return close(closed) == 0 || errno == EINTR;
}

Descriptor OpenFile(const std::string& path, int flags, unsigned mode) {
    int number = -1;
    do
        number = open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
    while (number < 0 && errno == EINTR);
    return Descriptor(number);
}

void WriteAll(int descriptor, std::string_view bytes, const std::string& path) {
    constexpr size_t most = size_t{1} << 30U; // of one call
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), std::min(bytes.size(), most));
        if (written >= 0) {
            bytes.remove_prefix(static_cast<size_t>(written));
        } else if (errno == EAGAIN) {
            pollfd ready = {descriptor, POLLOUT, 0};
            poll(&ready, 1, -1);
        } else if (errno != EINTR) {
            RaiseCustomary(DiskFull, "WriteAll", path + " could not be written to its end" + Words(errno));
        }
    }
}

void SyncFile(int descriptor, const std::string& path) {
    while (fsync(descriptor) != 0) {
        if (errno == EINVAL || errno == ENOTSUP || errno == EROFS) return; // a system that keeps no promise
        if (errno != EINTR)
            RaiseCustomary(DiskFull, "SyncFile", path + " could not be kept on the disk" + Words(errno));
    }
}

void SyncFolder(const std::string& folder) {
    const Descriptor opened = OpenFile(folder, O_RDONLY | O_DIRECTORY);
    if (opened) fsync(opened.Number());
}

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::unique_ptr<TemporaryName> MakeBeside(const std::string& path,
                                          const std::function<int(const char* name)>& make) {
    constexpr int mostNames = 10000;
    const std::string name = NameOf(path);
    const std::string before = path.substr(0, path.size() - name.size()) + ".";
    size_t longest = LongestName(FolderOf(path));
    for (int i = 1; i <= mostNames; ++i) {
        const std::string behind = i == 1 ? "~" : "~" + std::to_string(i);
        std::string hidden = before;
        hidden += Cut(name, longest - 1 - behind.size());
        hidden += behind;
        auto made = std::make_unique<TemporaryName>(std::move(hidden), TemporaryName::Kind::File);
        const SignalsWait wait;
        if (make(made->Path().c_str()) == 0) {
            made->MarkMade();
            return made;
        }
        if (errno != EEXIST) return nullptr;
    }
    return nullptr;
}

void RaiseFileError(const std::string& path, const std::string& trouble) {
    const int reason = errno;
    const bool refused = reason == EACCES || reason == EPERM || reason == EROFS;
    const bool full = reason == ENOSPC || reason == EDQUOT || reason == EFBIG;
    RaiseCustomary(refused ? PermissionDenied
                   : full  ? DiskFull
                           : PathFileAccessError,
                   "WriteFile", path + " " + trouble + Words(reason));
}

} // namespace vastrel
