#include "core/text/TextFile.h"

#include "core/text/TextEncoding.h"

#include <array>

namespace vastrel {

namespace {

/// Windows-1252 from 0x80 to 0x9F; the five unused places keep their C1 control characters.
constexpr std::array<unsigned, 32> Windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendWindows1252(std::string& text, unsigned char byte) {
    const unsigned code = byte >= 0x80 && byte < 0xA0 ? Windows1252[byte - 0x80] : byte;
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | (code >> 6));
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (code >> 12));
        text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    }
}

/// The length of the well-formed UTF-8 character at the head of the bytes, 0 where there is none. Overlong
/// forms, surrogates and codes above U+10FFFF are not well-formed.
size_t CharacterLength(std::string_view bytes) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    const size_t length = lead >= 0xC2 && lead < 0xE0   ? 2
                          : lead >= 0xE0 && lead < 0xF0 ? 3
                          : lead >= 0xF0 && lead < 0xF5 ? 4
                                                        : 0;
    if (length == 0 || bytes.size() < length) return 0;
    for (size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    const unsigned second = byte(1);
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second >= 0xA0)) return 0;
    if ((lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second >= 0x90)) return 0;
    return length;
}

} // namespace

std::string ToUtf8(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        size_t sound = 0; // whole characters at the head
        while (sound < bytes.size()) {
            const size_t length = CharacterLength(bytes.substr(sound));
            if (length == 0) break;
            sound += length;
        }
        text += bytes.substr(0, sound);
        bytes.remove_prefix(sound);
        if (bytes.empty()) break;
        AppendWindows1252(text, static_cast<unsigned char>(bytes.front()));
        bytes.remove_prefix(1);
    }
    return text;
}

std::string Windows1252ToUtf8(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes)
        AppendWindows1252(text, static_cast<unsigned char>(byte));
    return text;
}

} // namespace vastrel
