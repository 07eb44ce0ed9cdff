#include "batch/Outputs.h"

#include "batch/Command.h"
#include "core/platform/RunTimeError.h"
#include "core/text/TextFile.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

namespace vastrel {

namespace {

namespace fs = std::filesystem;

/// A free name beside a path.
std::string NameBeside(const std::string& path) {
    std::error_code ignored;
    std::string name = path + ".part";
    for (int i = 1; fs::exists(fs::symlink_status(name, ignored)); ++i)
        name = path + ".part" + std::to_string(i);
    return name;
}

/// A file that is written beside its place; it goes away again unless it is moved there.
class StagedFile {
public:
    StagedFile(std::string path, std::string bytes) : path_(std::move(path)), bytes_(std::move(bytes)) {}
    ~StagedFile() {
        std::error_code ignored;
        if (!staged_.empty()) fs::remove(staged_, ignored);
    }
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    void Stage() {
        std::error_code ignored;
        if (fs::exists(path_, ignored)) {
            RequireWritable();
            // What is no ordinary file (a device, a pipe) has no place beside it.
            if (!fs::is_regular_file(path_)) return;
            path_ = fs::canonical(path_).string(); // a link stays, and what it points to is replaced
        }
        staged_ = NameBeside(path_);
        WriteFile(staged_, bytes_);
    }

    bool IsStaged() const { return !staged_.empty(); }
    void WriteInPlace() { WriteFile(path_, bytes_); }

    void MoveToPlace() {
        std::error_code failed;
        fs::rename(staged_, path_, failed);
        if (failed) RaiseCustomary(PathFileAccessError, "Outputs", path_ + " cannot be replaced.");
        staged_.clear();
    }

private:
    void RequireWritable() const {
        if (fs::is_directory(path_)) RaiseCustomary(PathFileAccessError, "Outputs", path_ + " is a folder.");
        if (fs::is_regular_file(path_) && !std::ofstream(path_, std::ios::app))
            RaiseCustomary(PermissionDenied, "Outputs", path_ + " may not be written.");
    }

    std::string path_, bytes_, staged_;
};

} // namespace

void Outputs::Add(const std::string& path, std::string bytes) {
    for (const auto& [earlier, ignored] : files_)
        if (path != "-" && path == earlier) throw WrongUse(path + " is named for two outputs.");
    files_.emplace_back(path, std::move(bytes));
}

void Outputs::AddFolder(const std::string& path) {
    folders_.push_back(path);
}

void Outputs::Write() const {
    for (const auto& folder : folders_) {
        std::error_code ignored;
        fs::create_directories(folder, ignored); // the files tell where it fails
    }
    std::vector<std::unique_ptr<StagedFile>> staged;
    for (const auto& [path, bytes] : files_)
        if (path != "-") staged.push_back(std::make_unique<StagedFile>(path, bytes));
    for (const auto& file : staged)
        file->Stage();
    for (const auto& file : staged)
        if (!file->IsStaged()) file->WriteInPlace();
    for (const auto& file : staged)
        if (file->IsStaged()) file->MoveToPlace();
    for (const auto& [path, bytes] : files_)
        if (path == "-") std::cout << bytes;
    if (!std::cout.flush())
        RaiseCustomary(DiskFull, "Outputs", "Standard output could not be written to its end.");
}

std::string AbsolutePath(const std::string& path) {
    return path.empty() ? path : fs::absolute(path).lexically_normal().string();
}

} // namespace vastrel
