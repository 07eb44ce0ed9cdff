#include "InputFolder.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace vastrel {

namespace {

namespace fs = std::filesystem;

class Folder {
public:
    Folder() {
        const fs::path memory = "/dev/shm";
        path_ = ((fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "vastrel-fuzz-XXXXXX")
                    .string();
        if (mkdtemp(path_.data()) == nullptr) std::abort();
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

} // namespace

const std::string& InputFolder() {
    static const Folder folder;
    return folder.Path();
}

std::string WriteInput(const std::string& name, std::string_view bytes) {
    std::string path = InputFolder() + "/" + name;
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0 || write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        std::abort();
    close(file);
    return path;
}

void DropInput(const std::string& name) {
    unlink((InputFolder() + "/" + name).c_str());
}

} // namespace vastrel
