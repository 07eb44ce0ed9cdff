#include "core/spatial/ShapefileFiles.h"

#include "core/platform/NativePath.h"

namespace vastrel {

namespace {

std::string FoundBeside(const std::string& path, const char* extension) {
    return FindFile(PathText(NativePath(path).replace_extension(extension)));
}

} // namespace

std::vector<std::string> FilesOfShapefile(const std::string& path) {
    const std::string table = FindFile(path.substr(0, path.find('.')) + ".dbf");
    std::vector<std::string> files;
    for (const auto& file : {FindFile(path), FoundBeside(path, ".shx"), table,
                             table.empty() ? std::string() : FoundBeside(table, ".cpg")})
        if (!file.empty()) files.push_back(file);
    return files;
}

} // namespace vastrel
