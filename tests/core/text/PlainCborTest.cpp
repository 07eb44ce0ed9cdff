#include "core/text/PlainCbor.h"

#include <gtest/gtest.h>

#include <string>

using namespace vastrel;
using namespace std::string_literals;

namespace {

/// An array of one item, so deep.
std::string Nested(int depth) {
    return std::string(static_cast<size_t>(depth), '\x81') + "\x01";
}

} // namespace

TEST(PlainCbor, CountsEveryValueOfAnItem) {
    EXPECT_EQ(CountPlainCbor("\x01"s), 1u);
    EXPECT_EQ(CountPlainCbor("\x38\xff"s), 1u);                                 // -256
    EXPECT_EQ(CountPlainCbor("\xfb\x3f\xb9\x99\x99\x99\x99\x99\x9a"s), 1u);     // 0.1
    EXPECT_EQ(CountPlainCbor("\xfa\x3f\x80\0\0"s), 1u);                         // 1 in 32 bits
    EXPECT_EQ(CountPlainCbor("\xf4"s), 1u);                                     // false
    EXPECT_EQ(CountPlainCbor("\x63\x61\x62\x63"s), 1u);                         // "abc"
    EXPECT_EQ(CountPlainCbor("\x80"s), 1u);                                     // []
    EXPECT_EQ(CountPlainCbor("\xa2\x61\x61\x83\x01\x02\x03\x61\x62\xa0"s), 8u); // {"a": [1, 2, 3], "b": {}}
}

TEST(PlainCbor, TakesNothingButOneWholeItem) {
    EXPECT_EQ(CountPlainCbor(""), 0u);
    EXPECT_EQ(CountPlainCbor("\x01\x01"s), 0u);
    const std::string whole =
        "\xa2\x61\x61\x83\x01\xfb\x3f\xb9\x99\x99\x99\x99\x99\x9a\x19\x01\x02\x61\x62\xa0";
    ASSERT_EQ(CountPlainCbor(whole), 8u);
    for (size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(CountPlainCbor(whole.substr(0, size)), 0u) << size;
}

TEST(PlainCbor, LooksAtALengthBeforeItIsBelieved) {
    EXPECT_EQ(CountPlainCbor("\x7b\xff\xff\xff\xff\xff\xff\xff\xff"s), 0u); // a text of 2^64 - 1 bytes
    EXPECT_EQ(CountPlainCbor("\x9b\x7f\xff\xff\xff\xff\xff\xff\xff"s), 0u); // an array
    EXPECT_EQ(CountPlainCbor("\xbb\x80\0\0\0\0\0\0\0"s), 0u);               // a map, of 2^63 keys
    EXPECT_EQ(CountPlainCbor("\x82\x01"s), 0u);
}

TEST(PlainCbor, GoesEightDeepAndNoDeeper) {
    EXPECT_EQ(CountPlainCbor(Nested(8)), 9u);
    EXPECT_EQ(CountPlainCbor(Nested(9)), 0u);
    EXPECT_EQ(CountPlainCbor(Nested(1000000)), 0u);
}

TEST(PlainCbor, TakesMapsOfSixtyFourKeys) {
    std::string entries;
    for (int key = 0; key < 64; ++key)
        entries += "\x61"s + static_cast<char>('0' + key) + "\x01";
    EXPECT_EQ(CountPlainCbor("\xb8\x40" + entries), 129u);
    EXPECT_EQ(CountPlainCbor("\xb8\x41" + entries + "\x61\x7f\x01"), 0u);
}

TEST(PlainCbor, TakesNoOtherKind) {
    EXPECT_EQ(CountPlainCbor("\x41\x61"s), 0u);              // bytes
    EXPECT_EQ(CountPlainCbor("\xc1\x01"s), 0u);              // a tag
    EXPECT_EQ(CountPlainCbor("\xf8\xff"s), 0u);              // a simple value
    EXPECT_EQ(CountPlainCbor("\xf7"s), 0u);                  // undefined
    for (const char open : {'\x5f', '\x7f', '\x9f', '\xbf'}) // lengths that come at the end
        EXPECT_EQ(CountPlainCbor(open + "\xff"s), 0u);
    EXPECT_EQ(CountPlainCbor("\x1c"s), 0u); // reserved
    EXPECT_EQ(CountPlainCbor(std::string(1000000, '\x7f')), 0u);
}
