#pragma once

#include <string>

namespace vastrel {

/// The folder of the project, without a slash at its end.
std::string ProjectFolder();

/// The path of a file that comes with the project, as in InProject("samples/watch_z.txt").
std::string InProject(const std::string& path);

} // namespace vastrel
