#include "core/platform/NativePath.h"

#include <algorithm>

namespace vastrel {

namespace fs = std::filesystem;

fs::path NativePath(const std::string& path) {
    return {std::u8string(path.begin(), path.end())};
}

std::string PathText(const fs::path& path) {
    const auto text = path.u8string();
    return {text.begin(), text.end()};
}

std::string FileName(const std::string& path) {
    return PathText(NativePath(path).filename());
}

namespace {

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameName(const std::string& a, const std::string& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return Upper(left) == Upper(right); });
}

} // namespace

std::string FindFile(const std::string& path) {
    const fs::path native = NativePath(path);
    std::error_code ignored;
    if (fs::exists(native, ignored)) return path;
    const std::string name = FileName(path);
    const fs::path folder = native.has_parent_path() ? native.parent_path() : fs::path(".");
    std::string found;
    for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end;
         entry.increment(ignored)) {
        const std::string other = PathText(entry->path().filename());
        if (SameName(name, other) && (found.empty() || other < found)) found = other;
    }
    return found.empty() ? "" : PathText(native.parent_path() / NativePath(found));
}

} // namespace vastrel
