#pragma once

#include "core/text/OutputTarget.h"
#include "core/text/SaveSignals.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace vastrel {

/// New bytes for a regular file: first they stand whole on the disk beside it, then they take its place.
///
/// They are moved there; permissions, extended attributes and owner are those of the old file. They are
/// written into the old file in place instead where it has other names (hard links), where its owner cannot
/// be kept, where the folder may not be written (then nothing stands beside), and where the system does not
/// let it be replaced. Until the object is gone the old file can be put back.
class StagedFile {
public:
    /// The bytes must outlive the object.
    StagedFile(OutputTarget target, std::string_view bytes) : target_(std::move(target)), bytes_(bytes) {}

    /// Brings the bytes on the disk beside the file, under a name that is none of those taken by the files of
    /// the same set (FileIdentity). Run-time error 75, 70 or 61 where that cannot be.
    void Stage(const std::set<std::string>& taken);

    /// Puts them in place. The same errors; then, and where another file of a set fails, PutBack is to
    /// follow. With `last` nothing follows, and the old file is not kept. Inside of a SignalsWait.
    void Place(bool last);

    /// Puts the old file back as far as it is not there, or takes the new one away where there was none.
    void PutBack() noexcept;

    /// Whether they are going to be written into the old file, as Stage found.
    bool IsInPlace() const { return inPlace_; }

    const std::string& Path() const { return target_.Path; }

private:
    enum class Placed { No, InPlace, Moved };

    bool KeepRights(int staged) const;
    void PlaceInOldFile();
    bool KeepOldFile();
    void ReturnKeptFile() noexcept;

    OutputTarget target_;
    std::string_view bytes_;
    std::unique_ptr<TemporaryName> staged_; // the new bytes
    std::unique_ptr<TemporaryName> kept_;   // the old file, until all is done
    std::optional<std::string> oldBytes_;   // of a file written in place, where it may be read
    bool inPlace_ = false;
    Placed placed_ = Placed::No;
};

} // namespace vastrel
