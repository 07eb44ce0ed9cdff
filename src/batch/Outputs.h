#pragma once

#include "core/text/OutputSet.h"

#include <set>
#include <string>

namespace vastrel {

/// The files that a command writes, collected until all results are there. "-" is standard output.
class Outputs {
public:
    /// Without a name nothing is written. WrongUse for a name that another output has.
    void Add(const std::string& path, std::string bytes);

    /// A folder that is made before the files are written, where it is missing.
    void AddFolder(const std::string& path) { files_.AddFolder(path); }

    /// Writes all of them, or none; errors as for OutputSet.
    void Write() const { files_.Commit(); }

private:
    OutputSet files_;
    std::set<std::string> names_;
};

} // namespace vastrel
