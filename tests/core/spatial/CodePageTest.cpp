#include "core/spatial/CodePage.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

// The same word in several character sets, after the published tables.
const std::string Koeln = "K\xC3\xB6ln"; // UTF-8
const std::string Koeln1252 = "K\xF6ln"; // Windows-1252, ISO-8859-1
const std::string Koeln850 = "K\x94ln";  // DOS 437 and 850
const std::string Lodz = "\xC5\x81\xC3\xB3"
                         "d\xC5\xBA"; // UTF-8
const std::string Lodz1250 = "\xA3\xF3"
                             "d\x9F"; // Windows-1250
const std::string Lodz852 = "\x9D\xA2"
                            "d\xAB";             // DOS 852
const std::string Kiev1251 = "\xCA\xE8\xE5\xE2"; // Windows-1251
const std::string Kiev = "\xD0\x9A\xD0\xB8\xD0\xB5\xD0\xB2";

} // namespace

TEST(CodePage, TakesTheNameOfTheCpgFileFirst) {
    EXPECT_EQ(CodePage("UTF-8", 0x57).Decode(Koeln), Koeln);
    EXPECT_EQ(CodePage("utf8\r\n", 0).Decode(Koeln), Koeln);
    EXPECT_EQ(CodePage("65001", 0x03).Decode(Koeln), Koeln);
    EXPECT_EQ(CodePage("1250", 0x03).Decode(Lodz1250), Lodz);
    EXPECT_EQ(CodePage("ANSI 1251", 0).Decode(Kiev1251), Kiev);
    EXPECT_EQ(CodePage("OEM 852", 0).Decode(Lodz852), Lodz);
    EXPECT_EQ(CodePage("ISO-8859-1", 0x01).Decode(Koeln1252), Koeln);
    EXPECT_EQ(CodePage("ISO 88591", 0x01).Decode(Koeln1252), Koeln);
    EXPECT_EQ(CodePage("LDID/2", 0).Decode(Koeln850), Koeln);
}

TEST(CodePage, TakesTheLanguageByteThen) {
    EXPECT_EQ(CodePage("", 0x57).Decode(Koeln1252), Koeln);
    EXPECT_EQ(CodePage("", 0x03).Decode(Koeln), "K\xC3\x83\xC2\xB6ln"); // told to be Windows-1252, so it is
    EXPECT_EQ(CodePage("", 0x02).Decode(Koeln850), Koeln);
    EXPECT_EQ(CodePage("", 0x01).Decode(Koeln850), Koeln);
    EXPECT_EQ(CodePage("", 0xC8).Decode(Lodz1250), Lodz);
    EXPECT_EQ(CodePage("no such set", 0xC9).Decode(Kiev1251), Kiev);
}

TEST(CodePage, GuessesWhereNothingIsTold) {
    const CodePage unknown("", 0);
    EXPECT_EQ(unknown.Name(), "");
    EXPECT_EQ(unknown.Decode(Koeln), Koeln);
    EXPECT_EQ(unknown.Decode(Koeln1252), Koeln);
    EXPECT_EQ(CodePage("klingon", 0xFF).Decode(Koeln1252), Koeln);
    EXPECT_EQ(CodePage("CP999999", 0).Decode(Koeln1252), Koeln);
}

TEST(CodePage, KeepsBytesThatAreNoUtf8) {
    EXPECT_EQ(CodePage("UTF-8", 0).Decode(Koeln1252), Koeln);
}

TEST(CodePage, MarksBytesThatStandForNothing) {
    // 0x81 is no character of Windows-1250.
    EXPECT_EQ(CodePage("1250", 0).Decode("a\x81z\xF3"), "a?z\xC3\xB3");
}

// U+05E9 U+05DC U+05D5 U+05DD and U+05D0 (Hebrew); U+0110 a u, and a with an acute (Vietnamese).
TEST(CodePage, KeepsALastLetterThatAMarkCouldFollow) {
    const CodePage hebrew("", 0x7D), vietnamese("1258", 0);
    EXPECT_EQ(hebrew.Decode("\xF9\xEC\xE5\xED"), "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D");
    EXPECT_EQ(hebrew.Decode("\xE0"), "\xD7\x90");
    EXPECT_EQ(vietnamese.Decode("\xD0u"), "\xC4\x90u");
    EXPECT_EQ(vietnamese.Decode("\xD0"
                                "a\xEC"),
              "\xC4\x90\xC3\xA1");
    // 0x8A is no character of the set; the letter before it comes first.
    EXPECT_EQ(vietnamese.Decode("\xD0"
                                "a\x8Au"),
              "\xC4\x90"
              "a?u");
    EXPECT_EQ(CodePage("TCVN", 0).Decode("\xA7"
                                         "a"),
              "\xC4\x90"
              "a");
}

// The same characters in the sets' own tables: U+4E2D U+6587 (Chinese), U+65E5 U+672C (Japan), U+D55C
// (Korean).
TEST(CodePage, HandsAnyOtherNameToTheConverterAsItStands) {
    const std::string chinese = "\xE4\xB8\xAD\xE6\x96\x87", japan = "\xE6\x97\xA5\xE6\x9C\xAC";
    EXPECT_EQ(CodePage("GBK", 0x57).Decode("\xD6\xD0\xCE\xC4"), chinese);
    EXPECT_EQ(CodePage(" GB18030 \r\n", 0).Decode("\xD6\xD0\xCE\xC4"), chinese);
    EXPECT_EQ(CodePage("Big5", 0).Decode("\xA4\xA4\xA4\xE5"), chinese);
    EXPECT_EQ(CodePage("Shift_JIS", 0x03).Decode("\x93\xFA\x96\x7B"), japan);
    EXPECT_EQ(CodePage("EUC-KR", 0).Decode("\xC7\xD1"), "\xED\x95\x9C");
    EXPECT_EQ(CodePage("KOI8-R", 0).Decode("\xEB\xC9\xC5\xD7"), "\xD0\x9A\xD0\xB8\xD0\xB5\xD0\xB2");
    EXPECT_EQ(CodePage("macintosh", 0x57).Decode("K\x9Aln"), Koeln);
}

// Bytes that are UTF-8 by an older definition stand beyond its last character: the converter lets them pass.
TEST(CodePage, GivesNothingButUtf8) {
    const std::string beyond = "\xF4\x9E\x9F\xA0", as1252 = "\xC3\xB4\xC5\xBE\xC5\xB8\xC2\xA0";
    EXPECT_EQ(CodePage("ISO-10646/UTF8/", 0).Decode(beyond), as1252);
    EXPECT_EQ(CodePage(std::string("UTF-8\0x", 7), 0).Decode(beyond), as1252);
    EXPECT_EQ(CodePage("ISO-10646/UTF8/", 0).Decode(Koeln), Koeln);
}
