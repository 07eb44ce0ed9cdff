#include "core/spatial/FieldValue.h"

#include "core/platform/RunTimeError.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

FieldValue ValueOf(std::string_view bytes, FieldType type) {
    return ValueOfBytes(bytes, type, CodePage("", 0));
}

} // namespace

TEST(TypeOfColumn, TellsIntegersFromDoubles) {
    EXPECT_EQ(TypeOfColumn('N', 9, 0), FieldType::Integer);
    EXPECT_EQ(TypeOfColumn('N', 10, 0), FieldType::Double);
    EXPECT_EQ(TypeOfColumn('N', 5, 1), FieldType::Double);
    EXPECT_EQ(TypeOfColumn('F', 5, 0), FieldType::Double);
    EXPECT_EQ(TypeOfColumn('C', 80, 0), FieldType::Text);
    EXPECT_EQ(TypeOfColumn('D', 8, 0), FieldType::Date);
    EXPECT_EQ(TypeOfColumn('L', 1, 0), FieldType::Logical);
    for (const char letter : {'M', 'G', 'B', '@', '\0'})
        EXPECT_EQ(TypeOfColumn(letter, 10, 0), FieldType::Memo);
    EXPECT_EQ(static_cast<int>(FieldType::Integer), 3);
    EXPECT_EQ(static_cast<int>(FieldType::Double), 5);
}

TEST(FieldValue, ReadsNumbers) {
    EXPECT_EQ(ValueOf("   12", FieldType::Integer).Number(), 12);
    EXPECT_EQ(ValueOf("   12", FieldType::Integer).Text(), "12");
    EXPECT_EQ(ValueOf("12.50   ", FieldType::Double).Text(), "12.5");
    EXPECT_EQ(ValueOf(" 1.55714792480e+03", FieldType::Double).Number(), 1557.14792480);
    EXPECT_EQ(ValueOf("-3", FieldType::Double).Number(), -3);
    EXPECT_EQ(ValueOf(std::string("7\0\0\0", 4), FieldType::Integer).Number(), 7);
}

TEST(FieldValue, ReadsNullsOfNumbers) {
    for (const char* bytes : {"", "     ", "*****", "  **", "abc", "1,5", "nan", "inf", "0x1F", "1 2"})
        EXPECT_TRUE(ValueOf(bytes, FieldType::Double).IsNull()) << bytes;
}

TEST(FieldValue, StopsAtANumberTooLarge) {
    EXPECT_EQ(ErrorNumberOf([] { ValueOf("1e999", FieldType::Double); }), Overflow);
}

TEST(FieldValue, CutsTrailingBlanksOfTexts) {
    EXPECT_EQ(ValueOf("  Ashe   ", FieldType::Text).Text(), "  Ashe");
    EXPECT_EQ(ValueOf("     ", FieldType::Text).Text(), "");
    EXPECT_FALSE(ValueOf("     ", FieldType::Text).IsNull());
    EXPECT_EQ(ValueOf("K\xF6ln  ", FieldType::Text).Text(), "K\xC3\xB6ln");
    EXPECT_EQ(ValueOf("00123", FieldType::Text).Text(), "00123");
}

TEST(FieldValue, ReadsDatesAndLogicals) {
    EXPECT_EQ(ValueOf("20261120", FieldType::Date).Text(), "2026-11-20");
    for (const char* bytes : {"        ", "00000000", "2026112", "20261301", "20261100", "2026-1-1"})
        EXPECT_TRUE(ValueOf(bytes, FieldType::Date).IsNull()) << bytes;
    for (const char* bytes : {"T", "t", "Y", "y"})
        EXPECT_EQ(ValueOf(bytes, FieldType::Logical).Text(), "True") << bytes;
    for (const char* bytes : {"F", "f", "N", "n"})
        EXPECT_EQ(ValueOf(bytes, FieldType::Logical).Text(), "False") << bytes;
    for (const char* bytes : {"?", " ", "x", ""})
        EXPECT_TRUE(ValueOf(bytes, FieldType::Logical).IsNull()) << bytes;
    EXPECT_EQ(ValueOf("T", FieldType::Logical).Number(), -1);
}

TEST(FieldValue, ReadsMemosAsNull) {
    EXPECT_TRUE(ValueOf("0000000012", FieldType::Memo).IsNull());
}

TEST(FieldValue, StopsWhereANullIsUsed) {
    EXPECT_EQ(ErrorNumberOf([] { FieldValue().Number(); }), InvalidUseOfNull);
    EXPECT_EQ(ErrorNumberOf([] { FieldValue().Text(); }), InvalidUseOfNull);
    EXPECT_EQ(ErrorNumberOf([] { FieldValue(std::string("Ashe")).Number(); }), TypeMismatch);
    EXPECT_EQ(FieldValue(std::string("12.5")).Number(), 12.5);
}
