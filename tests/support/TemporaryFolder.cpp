#include "support/TemporaryFolder.h"

#include "support/ProjectFolder.h"
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace vastrel {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() : before_(fs::current_path().string()) {
    std::string pattern = (fs::temp_directory_path() / "vastrel-XXXXXX").string();
    const char* made = mkdtemp(pattern.data());
    if (made == nullptr)
        ADD_FAILURE() << "No temporary folder.";
    else
        path_ = made;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::current_path(before_, ignored);
    if (path_.empty()) return;
    fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::Write(const std::string& name, const std::string& bytes) const {
    const std::string path = *this / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

std::string ReadFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.good()) << path;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string RealData(const std::string& name) {
    const fs::path path = fs::path(ProjectFolder()) / ".." / "shared" / "data" / name;
    return fs::exists(path) ? path.lexically_normal().string() : "";
}

} // namespace vastrel
