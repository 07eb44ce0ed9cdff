#pragma once

#include <string>

namespace vastrel {

/// A drive-letter file specification ("C:\data\a.b.shp") and its pieces: base name "a.b", extension "shp".
/// All failures are offset 0x203, "The FileSpec is invalid", and leave the text as it was.
class CFileName {
public:
    /// Accepts a letter, ":", and then a path with at least one "\" and one "." in which neither two "\" nor
    /// two "." stand together and none of ? " * | / > < : occurs. Shares and paths without a drive are
    /// refused.
    void SetFileSpec(const std::string& spec);
    const std::string& GetFileSpec() const { return spec_; }

    /// The text between the last "\" and the last "."; empty for an empty text.
    std::string GetBaseName() const;
    /// Replaces it. Refuses an empty name and the characters above, "\" included.
    void SetBaseName(const std::string& name);

    /// The text behind the last ".".
    std::string GetExtension() const;
    /// Replaces it; refuses what SetBaseName refuses.
    void SetExtension(const std::string& extension);

private:
    std::string spec_;
};

} // namespace vastrel
