#include "core/text/RowLayout.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

struct Values {
    std::string ID = "R1", Name = "a long second id";
    double Local = -1.2345, M = 2.675, Limit = 3;
};

using Fields = std::vector<RowField<Values>>;

} // namespace

TEST(RowLayout, PadsNumbersTextsAndLiterals) {
    const Fields fields{{&Values::ID, 6}, {&Values::Local, 10, "###0.000"}, {"U(i) ", 7}};
    EXPECT_EQ(RowText(fields, Values{}), "    R1    -1.235  U(i) ");
}

TEST(RowLayout, PutsNoSeparatorsBetweenColumns) {
    const Fields fields{{&Values::M, 5, "0.00"}, {"("}, {&Values::Limit, 3, "0.0"}, {")"}};
    EXPECT_EQ(RowText(fields, Values{}), " 2.68(3.0)");
}

TEST(RowLayout, NeverCutsAText) {
    const Fields fields{{&Values::Name, 5}, {&Values::ID, 3}};
    EXPECT_EQ(RowText(fields, Values{}), "a long second id R1");
}

TEST(RowLayout, CountsCharactersNotBytes) {
    Values values;
    values.ID = "\xC3\xA9\xC3\xA8"; // two characters of two bytes
    EXPECT_EQ(RowText(Fields{{&Values::ID, 4}}, values), "  \xC3\xA9\xC3\xA8");
}

TEST(RowLayout, KeepsTheSignOfANumberThatPrintsAsZero) {
    Values values;
    values.Local = -0.0004;
    EXPECT_EQ(RowText(Fields{{&Values::Local, 9, "0.000"}}, values), "   -0.000");
    values.Local = -0.0;
    EXPECT_EQ(RowText(Fields{{&Values::Local, 9, "0.000"}}, values), "    0.000");
}

TEST(RowLayout, HasItsHeadingApart) {
    const RowLayout<Values> layout{{{"ID", 4}, {"M  ", 6}}, {{&Values::ID, 9}}};
    EXPECT_EQ(HeadingText(layout), "  ID   M  ");
}

TEST(RowLayout, DrawsLinesOfMinusSigns) {
    EXPECT_EQ(Dashes(5), "-----");
    EXPECT_EQ(Dashes(82).size(), 82u);
}
