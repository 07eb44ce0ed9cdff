#pragma once

#include <string>
#include <vector>

namespace vastrel {

/// A folder of a test's own, gone with it. Its path holds no dot.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    /// Writes a file and gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const;

private:
    std::string path_;
    std::string before_; // the process's folder when the test began
};

/// The bytes of a file; a test failure where it cannot be read.
std::string ReadFile(const std::string& path);

/// The path of a real dataset beside the project, or an empty text where it is not there.
std::string RealData(const std::string& name);

} // namespace vastrel
