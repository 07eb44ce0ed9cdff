#include "core/text/RowLayout.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

RowValues Values() {
    RowValues values;
    values.ID1 = "R1";
    values.ID2 = "a long second id";
    values.Local = -1.2345;
    values.M = 2.675;
    values.MCritical = 3;
    return values;
}

} // namespace

TEST(RowLayout, PadsNumbersTextsAndLiterals) {
    const std::vector<RowField> fields{
        {&RowValues::ID1, 6}, {&RowValues::Local, 10, "###0.000"}, {"U(i) ", 7}};
    EXPECT_EQ(RowText(fields, Values()), "    R1    -1.235  U(i) ");
}

TEST(RowLayout, PutsNoSeparatorsBetweenColumns) {
    const std::vector<RowField> fields{
        {&RowValues::M, 5, "0.00"}, {"("}, {&RowValues::MCritical, 3, "0.0"}, {")"}};
    EXPECT_EQ(RowText(fields, Values()), " 2.68(3.0)");
}

TEST(RowLayout, NeverCutsAText) {
    const std::vector<RowField> fields{{&RowValues::ID2, 5}, {&RowValues::ID1, 3}};
    EXPECT_EQ(RowText(fields, Values()), "a long second id R1");
}

TEST(RowLayout, CountsCharactersNotBytes) {
    RowValues values;
    values.ID1 = "\xC3\xA9\xC3\xA8"; // two characters of two bytes
    EXPECT_EQ(RowText({{&RowValues::ID1, 4}}, values), "  \xC3\xA9\xC3\xA8");
}

TEST(RowLayout, KeepsTheSignOfANumberThatPrintsAsZero) {
    RowValues values;
    values.Local = -0.0004;
    EXPECT_EQ(RowText({{&RowValues::Local, 9, "0.000"}}, values), "   -0.000");
    values.Local = -0.0;
    EXPECT_EQ(RowText({{&RowValues::Local, 9, "0.000"}}, values), "    0.000");
}

TEST(RowLayout, HasItsHeadingApart) {
    const RowLayout layout{{{"ID", 4}, {"M  ", 6}}, {{&RowValues::ID1, 9}}};
    EXPECT_EQ(HeadingText(layout), "  ID   M  ");
}

TEST(RowLayout, DrawsLinesOfMinusSigns) {
    EXPECT_EQ(Dashes(5), "-----");
    EXPECT_EQ(Dashes(82).size(), 82u);
}
