#include "core/spatial/Projection.h"

#include "core/platform/NativePath.h"
#include "core/platform/RunTimeError.h"
#include "core/spatial/BinaryFile.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace vastrel {

namespace {

/// More than any projection takes: a larger file is none.
constexpr std::int64_t LargestFile = 1 << 20;

/// The first word of the text, in upper case: what kind of system it describes.
std::string Keyword(const std::string& projection) {
    std::string word;
    const size_t start = projection.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    for (size_t k = start; k < projection.size() &&
                           (std::isalpha(static_cast<unsigned char>(projection[k])) || projection[k] == '_');
         ++k)
        word += static_cast<char>(std::toupper(static_cast<unsigned char>(projection[k])));
    return word;
}

} // namespace

std::string ProjectionOf(const std::string& shapefilePath) {
    const std::string path = FindFile(PathText(NativePath(shapefilePath).replace_extension(".prj")));
    if (path.empty()) return "";
    BinaryFile file;
    file.Open(path, BinaryFile::Access::Read);
    if (file.Size() > LargestFile)
        RaiseCustomary(OutOfStringSpace, "ProjectionOf", path + " is too large for a projection.");
    std::string bytes(static_cast<size_t>(file.Size()), '\0');
    file.Read(0, bytes.data(), bytes.size(), path);
    return bytes;
}

bool IsGeographic(const std::string& projection) {
    constexpr std::array<const char*, 5> geographic = {"GEOGCS", "GEOGCRS", "GEOGRAPHICCRS", "GEODCRS",
                                                       "GEODETICCRS"};
    const std::string keyword = Keyword(projection);
    return std::any_of(geographic.begin(), geographic.end(),
                       [&](const char* kind) { return keyword == kind; });
}

} // namespace vastrel
