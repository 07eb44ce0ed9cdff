#include "core/text/StagedFile.h"

#include "core/platform/RunTimeError.h"
#include "core/text/DiskFile.h"

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace vastrel {

namespace {

constexpr unsigned NewFileMode = 0666; // less what the user's mask takes
constexpr unsigned OwnMode = 0600;
constexpr unsigned AllRights = 07777;

/// Copies access lists and labels. False where an access list cannot be kept.
bool CopyAttributes(const std::string& from, int to) {
    const ssize_t size = listxattr(from.c_str(), nullptr, 0);
    if (size <= 0) return true;
    std::vector<char> names(static_cast<size_t>(size) + 1);
    const ssize_t listed = listxattr(from.c_str(), names.data(), static_cast<size_t>(size));
    bool kept = true;
    for (ssize_t at = 0; at < listed;) {
        const std::string name = names.data() + at;
        at += static_cast<ssize_t>(name.size()) + 1;
        const ssize_t length = getxattr(from.c_str(), name.c_str(), nullptr, 0);
        std::vector<char> value(static_cast<size_t>(length > 0 ? length : 0));
        const bool copied = length >= 0 &&
                            getxattr(from.c_str(), name.c_str(), value.data(), value.size()) == length &&
                            fsetxattr(to, name.c_str(), value.data(), value.size(), 0) == 0;
        if (!copied && name.rfind("system.posix_acl", 0) == 0) kept = false;
    }
    return kept;
}

/// The bytes of an open file; none where it may not be read.
std::optional<std::string> BytesOf(int file) {
    struct stat is = {};
    if (fstat(file, &is) != 0) return {};
    std::string bytes(static_cast<size_t>(is.st_size), '\0');
    for (size_t at = 0; at < bytes.size();) {
        const ssize_t got = pread(file, bytes.data() + at, bytes.size() - at, static_cast<off_t>(at));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return {};
        at += static_cast<size_t>(got);
    }
    return bytes;
}

/// An existing file, for reading too where it may be read.
Descriptor OpenForRewriting(const std::string& path) {
    Descriptor file = OpenFile(path, O_RDWR);
    return file ? std::move(file) : OpenFile(path, O_WRONLY);
}

bool SameFile(const std::string& one, const std::string& other) {
    struct stat a = {};
    struct stat b = {};
    return stat(one.c_str(), &a) == 0 && stat(other.c_str(), &b) == 0 && a.st_dev == b.st_dev &&
           a.st_ino == b.st_ino;
}

/// Makes the file at least so long, so that no room is missing halfway.
void Reserve(int file, size_t size, const std::string& path) {
    struct stat is = {};
    if (fstat(file, &is) != 0 || static_cast<off_t>(size) <= is.st_size) return;
    errno = posix_fallocate(file, is.st_size, static_cast<off_t>(size) - is.st_size);
    if (errno == ENOSPC || errno == EDQUOT || errno == EFBIG || errno == EIO)
        RaiseFileError(path, "could not be written to its end");
}

void Rewrite(int file, std::string_view bytes, const std::string& path) {
    if (lseek(file, 0, SEEK_SET) != 0) RaiseFileError(path, "could not be written");
    WriteAll(file, bytes, path);
    if (ftruncate(file, static_cast<off_t>(bytes.size())) != 0) RaiseFileError(path, "could not be written");
    SyncFile(file, path);
}

} // namespace

void StagedFile::Stage(const std::set<std::string>& taken) {
    std::optional<Descriptor> file;
    staged_ = MakeBeside(target_.Path, [&](const char* name) {
        if (const auto identity = FileIdentity(name); identity && taken.contains(*identity)) {
            errno = EEXIST;
            return -1;
        }
        file.emplace(
            OpenFile(name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, target_.Exists ? OwnMode : NewFileMode));
        return *file ? 0 : -1;
    });
    if (staged_ == nullptr) {
        inPlace_ = target_.Exists && (errno == EACCES || errno == EPERM || errno == EROFS);
        if (!inPlace_) RaiseFileError(target_.Path, "cannot be created");
        return;
    }
    WriteAll(file->Number(), bytes_, target_.Path);
    inPlace_ = target_.HasOtherNames || (target_.Exists && !KeepRights(file->Number()));
    SyncFile(file->Number(), target_.Path);
    if (!file->Close()) RaiseFileError(target_.Path, "could not be written to its end");
}

/// Gives the staged file the owner, the permissions and the attributes of the old one; false where it cannot.
bool StagedFile::KeepRights(int staged) const {
    struct stat old = {};
    struct stat is = {};
    if (stat(target_.Path.c_str(), &old) != 0 || fstat(staged, &is) != 0) return false;
    const bool sameOwner = old.st_uid == is.st_uid && old.st_gid == is.st_gid;
    if (!sameOwner && fchown(staged, old.st_uid, old.st_gid) != 0) return false;
    return CopyAttributes(target_.Path, staged) && fchmod(staged, old.st_mode & AllRights) == 0;
}

void StagedFile::Place(bool last) {
    if (inPlace_) {
        PlaceInOldFile();
        return;
    }
    if (target_.Exists && !last && !KeepOldFile()) RaiseFileError(target_.Path, "cannot be replaced");
    if (rename(staged_->Path().c_str(), target_.Path.c_str()) == 0) {
        staged_->Forget();
        placed_ = Placed::Moved;
        return;
    }
    const int reason = errno;
    ReturnKeptFile();
    errno = reason;
    const bool notReplaced = reason == EBUSY || reason == EXDEV || reason == EPERM || reason == EACCES;
    if (!target_.Exists || !notReplaced) RaiseFileError(target_.Path, "cannot be replaced");
    PlaceInOldFile();
}

/// A second name for the old file; where the disk knows no second names, it is moved away.
bool StagedFile::KeepOldFile() {
    const char* path = target_.Path.c_str();
    kept_ = MakeBeside(target_.Path, [&](const char* name) { return link(path, name); });
    if (kept_ != nullptr) return true;
    kept_ = MakeBeside(target_.Path, [&](const char* name) {
        return OpenFile(name, O_WRONLY | O_CREAT | O_EXCL, OwnMode) ? 0 : -1;
    });
    if (kept_ == nullptr || rename(path, kept_->Path().c_str()) == 0) return kept_ != nullptr;
    const int reason = errno;
    kept_.reset();
    errno = reason;
    return false;
}

void StagedFile::ReturnKeptFile() noexcept {
    if (kept_ == nullptr) return;
    // Two names of one file stay two; the second then goes away. An old file that finds no way back stays
    // under its hidden name.
    const bool two = placed_ == Placed::No && SameFile(kept_->Path(), target_.Path);
    if (!two) {
        rename(kept_->Path().c_str(), target_.Path.c_str());
        kept_->Forget();
    }
    kept_.reset();
}

void StagedFile::PlaceInOldFile() {
    Descriptor file = OpenForRewriting(target_.Path);
    if (!file) RaiseFileError(target_.Path, "cannot be replaced");
    oldBytes_ = BytesOf(file.Number());
    placed_ = Placed::InPlace;
    Reserve(file.Number(), bytes_.size(), target_.Path);
    Rewrite(file.Number(), bytes_, target_.Path);
}

void StagedFile::PutBack() noexcept {
    try {
        if (placed_ == Placed::InPlace && oldBytes_)
            Rewrite(OpenForRewriting(target_.Path).Number(), *oldBytes_, target_.Path);
    } catch (...) { // the failure that led here is the one that is told
    }
    if (placed_ == Placed::Moved && !target_.Exists) unlink(target_.Path.c_str());
    ReturnKeptFile();
    placed_ = Placed::No;
}

} // namespace vastrel
