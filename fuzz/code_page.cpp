// The character set of a table. An input is a language byte, the text of a .cpg file up to a line feed, and
// the text to decode.
#include "FuzzTarget.h"
#include "InputParts.h"
#include "core/spatial/CodePage.h"
#include "core/text/TextEncoding.h"

#include <cstdlib>

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const auto language = static_cast<int>(parts.TakeByte());
    const std::string_view cpg = parts.TakeLine();
    RunOnInput([&] {
        const std::string decoded = CodePage(cpg, language).Decode(parts.Rest());
        if (ToUtf8(decoded) != decoded) std::abort(); // what was decoded is UTF-8
    });
    return 0;
}
