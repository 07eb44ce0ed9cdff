#include "support/SystemFaults.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vastrel {

namespace {

SystemFaults faults;
bool meeting = false;
int calls = 0;
std::string noted;

void SignalFromOutside() {
    const pid_t child = static_cast<pid_t>(syscall(SYS_fork));
    if (child == 0) {
        kill(getppid(), faults.Signal);
        _exit(0);
    }
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

/// Counts a call; true where it is to fail.
bool Fails(bool takesAway = false) {
    if (!meeting || ++calls != faults.AtCall) return false;
    if (faults.Signal != 0) SignalFromOutside();
    if (faults.Error == 0 || takesAway) return false;
    errno = faults.Error;
    return true;
}

void Note(char call) {
    if (meeting) noted += call;
}

int Result(long result) {
    return static_cast<int>(result);
}

/// How many of these bytes there is room for.
off_t Room(int file, off_t at, off_t count) {
    struct stat is = {};
    if (!meeting || faults.Room < 0 || fstat(file, &is) != 0 || !S_ISREG(is.st_mode)) return count;
    const off_t taken = std::min(count, std::max<off_t>(is.st_size - at, 0) + faults.Room);
    faults.Room -= std::max<off_t>(at + taken - is.st_size, 0);
    return taken;
}

} // namespace

void Meet(const SystemFaults& chosen) {
    faults = chosen;
    meeting = true;
    calls = 0;
    noted.clear();
}

std::string MetCalls() {
    meeting = false;
    return noted;
}

bool CallCame() {
    return faults.AtCall > 0 && calls >= faults.AtCall;
}

} // namespace vastrel

// The system's functions as the linked code finds them. The rest of the test program passes through.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's own names are reserved
extern "C" {

using vastrel::Fails;

int open(const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(more, unsigned) : 0;
    va_end(more);
    if ((flags & O_ACCMODE) != O_RDONLY && Fails()) return -1;
    return vastrel::Result(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t write(int file, const void* bytes, size_t count) {
    if (Fails()) return -1;
    vastrel::Note('w');
    const off_t at = std::max<off_t>(lseek(file, 0, SEEK_CUR), 0);
    const off_t taken = vastrel::Room(file, at, static_cast<off_t>(count));
    if (taken == 0 && count > 0) {
        errno = ENOSPC;
        return -1;
    }
    return syscall(SYS_write, file, bytes, static_cast<size_t>(taken));
}

int posix_fallocate(int file, off_t offset, off_t length) {
    if (Fails()) return errno;
    if (vastrel::Room(file, offset, length) < length) return ENOSPC;
    return syscall(SYS_fallocate, file, 0, offset, length) == 0 ? 0 : errno;
}

int fsync(int file) {
    if (Fails()) return -1;
    struct stat is = {};
    fstat(file, &is);
    vastrel::Note(S_ISDIR(is.st_mode) ? 'S' : 's');
    return vastrel::meeting ? 0 : vastrel::Result(syscall(SYS_fsync, file)); // tests need not wait for a disk
}
int close(int file) {
    const bool fails = Fails();
    const int error = errno;
    const long closed = syscall(SYS_close, file);
    if (fails) errno = error;
    return fails ? -1 : vastrel::Result(closed);
}
int ftruncate(int file, off_t length) noexcept {
    return Fails() ? -1 : vastrel::Result(syscall(SYS_ftruncate, file, length));
}
int fchmod(int file, mode_t mode) noexcept {
    return Fails() ? -1 : vastrel::Result(syscall(SYS_fchmod, file, mode));
}
int fchown(int file, uid_t owner, gid_t group) noexcept {
    return Fails() ? -1 : vastrel::Result(syscall(SYS_fchown, file, owner, group));
}
int link(const char* from, const char* to) noexcept {
    if (Fails()) return -1;
    if (vastrel::meeting && !vastrel::faults.Links) errno = EPERM;
    const bool refused = vastrel::meeting && !vastrel::faults.Links;
    return refused ? -1 : vastrel::Result(syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int rename(const char* from, const char* to) noexcept {
    if (Fails()) return -1;
    vastrel::Note('r');
    return vastrel::Result(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int mkdir(const char* path, mode_t mode) noexcept {
    return Fails() ? -1 : vastrel::Result(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}
int unlink(const char* path) noexcept {
    Fails(true);
    return vastrel::Result(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}
int rmdir(const char* path) noexcept {
    Fails(true);
    return vastrel::Result(syscall(SYS_unlinkat, AT_FDCWD, path, AT_REMOVEDIR));
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
