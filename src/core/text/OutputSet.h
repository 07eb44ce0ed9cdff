#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vastrel {

/// Files that are written together or not at all.
///
///     OutputSet files;
///     files.Add("layer.shp", shapeBytes);
///     files.Add("layer.dbf", tableBytes);
///     files.Commit();
///
/// First all bytes are brought on the disk beside their files (".name~"); then what goes to standard output
/// and to devices is written, in the order in which it was added; then the files take their places. A failure
/// on the way leaves every file, and every folder, as it was. What has gone to standard output or to a device
/// cannot be taken back; it is written only when nothing but the last step is left to fail.
///
/// A link stays a link, a file keeps its owner and permissions, a hard link keeps its other names: see
/// StagedFile. A name such as /dev/stdout or /dev/fd/3, a device or a pipe is written to, never replaced.
class OutputSet {
public:
    /// A file to create or replace; "-" is standard output.
    void Add(std::string path, std::string bytes) { files_.emplace_back(std::move(path), std::move(bytes)); }

    /// A folder that is made first, with those above it, where it is missing.
    void AddFolder(std::string path) { folders_.push_back(std::move(path)); }

    /// Writes all. Run-time error 75 or 70 for what cannot be created, 61 for what cannot be written to its
    /// end. A signal that ends the process leaves nothing half done, and no file of ours beside.
    void Commit() const;

private:
    std::vector<std::string> folders_;
    std::vector<std::pair<std::string, std::string>> files_;
};

/// Writes to standard output at once; run-time error 61 where it cannot be written to its end.
void WriteStandardOutput(std::string_view bytes);

} // namespace vastrel
