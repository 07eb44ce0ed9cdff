#include "batch/Outputs.h"

#include "batch/Command.h"
#include "platform/RunTimeError.h"
#include "platform/TextFile.h"

#include <filesystem>
#include <iostream>

namespace vastrel {

namespace {

namespace fs = std::filesystem;

/// A file that is written beside its place; it goes away again unless it is moved there.
class StagedFile {
public:
    StagedFile(std::string path, const std::string& bytes) : path_(std::move(path)) {
        std::error_code ignored;
        // What is no ordinary file (a device, a pipe) has no place beside it.
        const bool special = fs::exists(path_, ignored) && !fs::is_regular_file(path_, ignored);
        if (special && fs::is_directory(path_, ignored))
            RaiseCustomary(PathFileAccessError, "Outputs", path_ + " is a folder.");
        if (special) {
            bytes_ = bytes;
            return;
        }
        staged_ = path_ + ".part";
        WriteFile(staged_, bytes);
    }
    ~StagedFile() {
        std::error_code ignored;
        if (!staged_.empty()) fs::remove(staged_, ignored);
    }
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    void MoveToPlace() {
        if (staged_.empty()) return WriteFile(path_, bytes_);
        std::error_code failed;
        fs::rename(staged_, path_, failed);
        if (failed) RaiseCustomary(PathFileAccessError, "Outputs", path_ + " cannot be replaced.");
        staged_.clear();
    }

private:
    std::string path_, staged_, bytes_;
};

} // namespace

void Outputs::Add(const std::string& path, std::string bytes) {
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
        file->MoveToPlace();
    for (const auto& [path, bytes] : files_)
        if (path == "-") std::cout << bytes;
    std::cout.flush();
}

std::string AbsolutePath(const std::string& path) {
    return path.empty() ? path : fs::absolute(path).lexically_normal().string();
}

} // namespace vastrel
