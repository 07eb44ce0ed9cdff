// The character set of a table. An input is a language byte, the text of a .cpg file up to a line feed, and
// the text to decode.
#include "FuzzTarget.h"

#include "core/spatial/CodePage.h"
#include "core/text/TextEncoding.h"
#include "core/text/TextFile.h"

#include <cstdlib>

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const std::string_view text = AsText(data + 1, size - 1);
    const size_t end = text.find('\n');
    const std::string_view cpg = text.substr(0, end);
    const std::string_view bytes = end == std::string_view::npos ? "" : text.substr(end + 1);
    RunReader([&] {
        const std::string decoded = CodePage(cpg, data[0]).Decode(bytes);
        if (ToUtf8(decoded) != decoded) std::abort(); // what was decoded is UTF-8
    });
    return 0;
}
