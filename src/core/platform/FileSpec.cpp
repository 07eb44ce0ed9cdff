#include "core/platform/FileSpec.h"

#include <algorithm>

namespace vastrel {

#ifdef _WIN32

std::string ToFileSpec(const std::string& nativePath) {
    return nativePath;
}
std::string FromFileSpec(const std::string& fileSpec) {
    return fileSpec;
}

#else

std::string ToFileSpec(const std::string& nativePath) {
    std::string spec = nativePath;
    std::replace(spec.begin(), spec.end(), '/', '\\');
    return "C:" + spec;
}

std::string FromFileSpec(const std::string& fileSpec) {
    std::string path = fileSpec.substr(std::min<size_t>(2, fileSpec.size()));
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

#endif

} // namespace vastrel
