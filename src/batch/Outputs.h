#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vastrel {

/// The files that a command writes, collected until all results are there. "-" is standard output.
class Outputs {
public:
    void Add(const std::string& path, std::string bytes);

    /// A folder that is made before the files are written, where it is missing.
    void AddFolder(const std::string& path);

    /// Writes all of them. A file that cannot be written is a run-time error, and then no file is created or
    /// changed: each is written beside its place first and moved there at the end.
    void Write() const;

private:
    std::vector<std::string> folders_;
    std::vector<std::pair<std::string, std::string>> files_;
};

} // namespace vastrel
