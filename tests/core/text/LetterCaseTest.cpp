#include "core/text/LetterCase.h"

#include <gtest/gtest.h>

using namespace vastrel;

TEST(EqualWithoutCase, TakesTheLettersOfEveryScript) {
    EXPECT_TRUE(EqualWithoutCase("Pop_1990", "POP_1990"));
    EXPECT_TRUE(EqualWithoutCase("\xC3\xA4\xC3\xB6", "\xC3\x84\xC3\x96")); // a and o with two dots
    EXPECT_TRUE(EqualWithoutCase("\xD0\xB8\xD0\xBC\xD1\x8F", "\xD0\x98\xD0\x9C\xD0\xAF")); // Cyrillic
    EXPECT_FALSE(EqualWithoutCase("\xC3\xA4", "a"));
    EXPECT_FALSE(EqualWithoutCase("\xC3\x9F", "SS")); // a sharp s
    EXPECT_FALSE(EqualWithoutCase("POP", "POP1"));
    EXPECT_FALSE(EqualWithoutCase("", "A"));
    EXPECT_TRUE(EqualWithoutCase("", ""));
}

TEST(EqualWithoutCase, TakesAnyBytes) {
    using namespace std::string_view_literals;
    EXPECT_TRUE(EqualWithoutCase("\xE4x", "\xC3\x84X")); // a byte alone is the Latin letter
    EXPECT_TRUE(EqualWithoutCase("a\0b"sv, "A\0B"sv));
    EXPECT_FALSE(EqualWithoutCase("a\0b"sv, "A\0C"sv));
    EXPECT_FALSE(EqualWithoutCase("a\xC3", "A"));
}
