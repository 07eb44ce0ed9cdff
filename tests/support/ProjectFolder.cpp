#include "support/ProjectFolder.h"

namespace vastrel {

std::string ProjectFolder() {
    return PROJECT_FOLDER;
}

std::string InProject(const std::string& path) {
    return ProjectFolder() + "/" + path;
}

} // namespace vastrel
