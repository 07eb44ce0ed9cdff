#pragma once

#include <string>
#include <string_view>

namespace vastrel {

/// The character set of an attribute table.
///
/// The name in a .cpg file counts first ("UTF-8", "1252", "ISO-8859-2", "OEM 850", ..., and any other that
/// the machine's converter knows: "GBK", "Shift_JIS", "KOI8-R"), then the language byte of the table's
/// header. Where neither tells, or names a set that this machine does not know, text is UTF-8, and bytes that
/// are no UTF-8 are Windows-1252.
class CodePage {
public:
    /// `cpg` is the text of the .cpg file, empty where there is none.
    CodePage(std::string_view cpg, int languageByte);

    /// The set's name as the machine's converter knows it; empty for UTF-8 and where nothing is known.
    const std::string& Name() const { return name_; }

    std::string Decode(std::string_view bytes) const;

private:
    std::string name_;
};

} // namespace vastrel
