#pragma once

#include <optional>
#include <string>

namespace vastrel {

/// Where an output goes. Links are followed, so that they stay and what they point to is written; one that
/// points to nothing makes its target.
struct OutputTarget {
    enum class Kind {
        Descriptor, // one of the process's own: "-", /dev/stdout, /dev/fd/3, /proc/self/fd/3
        Device,     // any other place that is no regular file: it is written to, never replaced
        File,       // a regular file, or none yet
    };

    Kind Where = Kind::File;
    std::string Path;    // with the links followed
    int Descriptor = -1; // of Kind::Descriptor
    bool Exists = false; // of Kind::File
    bool HasOtherNames = false;
};

/// The target of a path; "-" is standard output. Run-time error 75 for a folder, a folder that is missing, a
/// name that is too long or links in a ring, 70 where writing is not permitted.
OutputTarget FindTarget(const std::string& path);

/// Whether a path leads to one of the process's own descriptors; "-" does.
bool IsDescriptor(const std::string& path);

/// What a path names, whatever its spelling and whichever link or hard link leads there. A file that is not
/// there yet is known by its folder and name. None for places that are no files, such as a terminal or the
/// null device, and for "" and "-" where standard output is no file.
std::optional<std::string> FileIdentity(const std::string& path);

} // namespace vastrel
