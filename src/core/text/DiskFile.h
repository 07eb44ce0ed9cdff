#pragma once

#include "core/text/SaveSignals.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vastrel {

/// A file descriptor that is closed with this object; -1 for none.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.number_) { other.number_ = -1; }
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor();

    int Number() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }

    /// Closes it now; false where the system could not keep what was written.
    bool Close();

private:
    int number_;
};

/// Opens a file; on failure there is no descriptor, and errno tells why.
Descriptor OpenFile(const std::string& path, int flags, unsigned mode = 0);

/// Writes all bytes, waiting where the other end is not ready. Run-time error 61, naming the path, where it
/// cannot.
void WriteAll(int descriptor, std::string_view bytes, const std::string& path);

/// Brings what was written on the disk; run-time error 61 where it cannot be kept.
void SyncFile(int descriptor, const std::string& path);

/// Brings the names of a folder on the disk, as far as the system lets it.
void SyncFolder(const std::string& folder);

/// The folder in which a path stands; "." for a bare name.
std::string FolderOf(const std::string& path);

/// What stands behind the last "/" of a path: all of a bare name, nothing of a path that ends there.
std::string NameOf(const std::string& path);

/// Makes something under a free hidden name beside a path: ".name~", or ".name~2" and so on where that is
/// taken, cut to what the folder takes. `make` gets the name and gives 0, or -1 with the reason in errno.
/// Null where it fails; errno tells why.
std::unique_ptr<TemporaryName> MakeBeside(const std::string& path,
                                          const std::function<int(const char* name)>& make);

/// Raises what the reason in errno means for a file that was to be written: run-time error 70 where it may
/// not, 61 where there is no room, 75 otherwise. `trouble` is "cannot be created", say.
[[noreturn]] void RaiseFileError(const std::string& path, const std::string& trouble);

} // namespace vastrel
