#include "core/text/TextFile.h"

#include "core/text/TextEncoding.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(TextEncoding, KeepsUtf8AsItStands) {
    for (const char* text : {"", "plain", "Zürich", "東京", "\U0001F30D", "\x01\x7F", "\u0800", "\uD7FF",
                             "\uE000", "\uFFFF", "\U00010000", "\U0010FFFF"})
        EXPECT_EQ(ToUtf8(text), text);
    EXPECT_EQ(ToUtf8(std::string_view("a\0b", 3)), std::string("a\0b", 3));
}

TEST(TextEncoding, TakesOtherBytesAsWindows1252) {
    EXPECT_EQ(ToUtf8("Z\xFCrich"), "Zürich");
    EXPECT_EQ(ToUtf8("\x80"), "€");
    EXPECT_EQ(ToUtf8("\x93quoted\x94"), "“quoted”");
    EXPECT_EQ(ToUtf8("\xFF"), "ÿ");
}

TEST(TextEncoding, TakesByteByByteWhatIsBrokenUtf8) {
    EXPECT_EQ(ToUtf8("\xC3"), "Ã");                     // cut short at the end
    EXPECT_EQ(ToUtf8("\xE2\x82"), "â‚");                // cut short after two of three
    EXPECT_EQ(ToUtf8("\xC3q"), "Ãq");                   // no second byte
    EXPECT_EQ(ToUtf8("\xC0\xAF"), "À¯");                // an overlong "/"
    EXPECT_EQ(ToUtf8("\xE0\x9F\xBF"), "àŸ¿");           // overlong, three bytes
    EXPECT_EQ(ToUtf8("\xF0\x8F\xBF\xBF"), "ð\u008F¿¿"); // overlong, four bytes
    EXPECT_EQ(ToUtf8("\xED\xA0\x80"), "í\u00A0€");      // a surrogate
    EXPECT_EQ(ToUtf8("\xF4\x90\x80\x80"), "ô\u0090€€"); // above U+10FFFF
    EXPECT_EQ(ToUtf8("\xFC\xC3\xBC"), "üü");            // both forms in one text
    EXPECT_EQ(ToUtf8("\xBCx\xC3\xBC"), "¼xü");          // a second byte alone
}

TEST(TextEncoding, KnowsAllOfWindows1252) {
    std::string bytes;
    for (int code = 0x80; code < 0xA0; ++code)
        bytes += static_cast<char>(code);
    // The table of the code page, with control characters in its five empty places.
    EXPECT_EQ(Windows1252ToUtf8(bytes), "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F"
                                        "\u0090‘’“”•–—˜™š›œ\u009DžŸ");
    for (int code = 0xA0; code <= 0xFF; ++code) {
        const std::string expected = {static_cast<char>(0xC0 + code / 64),
                                      static_cast<char>(0x80 + code % 64)};
        EXPECT_EQ(Windows1252ToUtf8(std::string(1, static_cast<char>(code))), expected) << code;
    }
    EXPECT_EQ(Windows1252ToUtf8("plain"), "plain");
    EXPECT_EQ(Windows1252ToUtf8("\xC3\xBC"), "Ã¼"); // no UTF-8 is looked for here
}
