#include "batch/Outputs.h"

#include "batch/Command.h"

#include <filesystem>

namespace vastrel {

namespace fs = std::filesystem;

void Outputs::Add(const std::string& path, std::string bytes) {
    if (path.empty()) return;
    if (path != "-" && !names_.insert(path).second) throw WrongUse(path + " is named for two outputs.");
    files_.Add(path, std::move(bytes));
}

std::string AbsolutePath(const std::string& path) {
    return path.empty() ? path : fs::absolute(path).lexically_normal().string();
}

} // namespace vastrel
