#include "core/text/OutputSet.h"

#include "core/text/DiskFile.h"
#include "core/text/StagedFile.h"

#include <algorithm>
#include <fcntl.h>
#include <memory>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace vastrel {

namespace {

constexpr unsigned NewFolderMode = 0777; // less what the user's mask takes

/// The folders that a set makes, with those above them; they go away again unless they are kept.
class MadeFolders {
public:
    MadeFolders() = default;
    ~MadeFolders() {
        while (!made_.empty())
            made_.pop_back(); // the innermost first
    }
    MadeFolders(const MadeFolders&) = delete;
    MadeFolders& operator=(const MadeFolders&) = delete;

    /// Where one cannot be made, the files in it tell.
    // NOLINTNEXTLINE(misc-no-recursion): no deeper than the path
    void Make(std::string path) {
        while (path.size() > 1 && path.back() == '/')
            path.pop_back();
        struct stat is = {};
        if (path.empty() || stat(path.c_str(), &is) == 0) return;
        Make(FolderOf(path));
        auto folder = std::make_unique<TemporaryName>(path, TemporaryName::Kind::Folder);
        made_.reserve(made_.size() + 1);
        const SignalsWait wait;
        if (mkdir(path.c_str(), NewFolderMode) != 0) return;
        folder->MarkMade();
        made_.push_back(std::move(folder));
    }

    void Keep() {
        for (const auto& folder : made_) {
            folder->Forget();
            SyncFolder(FolderOf(folder->Path()));
        }
    }

private:
    std::vector<std::unique_ptr<TemporaryName>> made_;
};

/// What goes to a descriptor or a device.
struct Stream {
    OutputTarget Target;
    std::string_view Bytes;

    void Write() const {
        if (Target.Where == OutputTarget::Kind::Descriptor) {
            WriteAll(Target.Descriptor, Bytes, Target.Path);
            return;
        }
        Descriptor device = OpenFile(Target.Path, O_WRONLY);
        if (!device) RaiseFileError(Target.Path, "cannot be written to");
        WriteAll(device.Number(), Bytes, Target.Path);
        if (!device.Close()) RaiseFileError(Target.Path, "could not be written to its end");
    }
};

using StagedFiles = std::vector<std::unique_ptr<StagedFile>>;

std::set<std::string> FoldersOf(const StagedFiles& files) {
    std::set<std::string> folders;
    for (const auto& file : files)
        folders.insert(FolderOf(file->Path()));
    return folders;
}

std::set<std::string> IdentitiesOf(const StagedFiles& files) {
    std::set<std::string> identities;
    for (const auto& file : files)
        if (const auto identity = FileIdentity(file->Path())) identities.insert(*identity);
    return identities;
}

/// Those that are written in place come first: a lack of room shows before anything is moved.
void PlaceAll(StagedFiles& files) {
    std::stable_partition(files.begin(), files.end(), [](const auto& file) { return file->IsInPlace(); });
    const auto folders = FoldersOf(files);
    const SignalsWait wait;
    size_t next = 0;
    try {
        for (; next < files.size(); ++next)
            files[next]->Place(next + 1 == files.size());
    } catch (...) {
        for (size_t i = std::min(next + 1, files.size()); i-- > 0;)
            files[i]->PutBack();
        throw;
    }
    files.clear(); // what was kept beside goes away
    for (const auto& folder : folders)
        SyncFolder(folder);
}

} // namespace

void OutputSet::Commit() const {
    const SaveSignals signals;
    MadeFolders folders;
    for (const auto& folder : folders_)
        folders.Make(folder);
    std::vector<Stream> streams;
    StagedFiles files;
    for (const auto& [path, bytes] : files_) {
        OutputTarget target = FindTarget(path);
        if (target.Where == OutputTarget::Kind::File)
            files.push_back(std::make_unique<StagedFile>(std::move(target), bytes));
        else
            streams.push_back({std::move(target), bytes});
    }
    const auto taken = IdentitiesOf(files);
    for (const auto& file : files)
        file->Stage(taken);
    for (const auto& folder : FoldersOf(files))
        SyncFolder(folder);
    for (const auto& stream : streams)
        stream.Write();
    PlaceAll(files);
    folders.Keep();
}

void WriteStandardOutput(std::string_view bytes) {
    OutputSet output;
    output.Add("-", std::string(bytes));
    output.Commit();
}

} // namespace vastrel
