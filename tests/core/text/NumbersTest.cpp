#include "core/text/Numbers.h"

#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale>
#include <random>

using namespace vastrel;

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();
constexpr double Largest = std::numeric_limits<double>::max();

/// While it lives, numbers of the whole program would be written with a comma and with dots between the
/// thousands, if anything asked the locale.
class CommaLocale {
public:
    CommaLocale() : before_(std::locale::global(std::locale(std::locale(), new Commas))) {}
    ~CommaLocale() { std::locale::global(before_); }

private:
    struct Commas : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale before_;
};

} // namespace

// ---- Num

TEST(Num, RoundsTheDecimalTextWithTiesAwayFromZero) {
    EXPECT_EQ(Num(2.675, "0.00"), "2.68"); // the double lies below 2.675
    EXPECT_EQ(Num(1.005, "0.00"), "1.01"); // and this one below 1.005
    EXPECT_EQ(Num(0.125, "0.00"), "0.13");
    EXPECT_EQ(Num(0.375, "0.00"), "0.38");
    EXPECT_EQ(Num(-0.125, "0.00"), "-0.13");
    EXPECT_EQ(Num(0.5, "0"), "1");
    EXPECT_EQ(Num(2.5, "0"), "3");
    EXPECT_EQ(Num(-2.5, "0"), "-3");
    EXPECT_EQ(Num(0.4999, "0"), "0");
    EXPECT_EQ(Num(0.00005, "0.0000"), "0.0001");
    EXPECT_EQ(Num(0.000049999, "0.0000"), "0.0000");
    EXPECT_EQ(Num(3.15649999999999986, "0.0000"), "3.1565"); // M* for 100 Regions
}

TEST(Num, RoundsFifteenDigitsFirst) {
    // Sixteen nines behind the point are 1 in 15 digits; 0.49999999999999994 is 0.5.
    EXPECT_EQ(Num(0.49999999999999994, "0"), "1");
    EXPECT_EQ(Num(0.12499999999999999, "0.00"), "0.13");
    EXPECT_EQ(Num(0.124999999999999, "0.00"), "0.12"); // fifteen digits that stay
    EXPECT_EQ(Num(123456789.123456789, "0.000000000"), "123456789.123457000");
    EXPECT_EQ(Num(1234567890123456789.0, "0"), "1234567890123460000");
}

TEST(Num, CarriesThroughNines) {
    EXPECT_EQ(Num(9.9995, "0.000"), "10.000");
    EXPECT_EQ(Num(0.9995, "0.000"), "1.000");
    EXPECT_EQ(Num(-999.99951, "###0.000"), "-1000.000");
    EXPECT_EQ(Num(99.5, "0"), "100");
    EXPECT_EQ(Num(0.09996, "0.000"), "0.100");
}

TEST(Num, KeepsTheSignOfANegativeValueAlone) {
    EXPECT_EQ(Num(-0.0004, "0.000"), "-0.000");
    EXPECT_EQ(Num(-Smallest, "0.0000"), "-0.0000");
    EXPECT_EQ(Num(-0.0, "0.000"), "0.000");
    EXPECT_EQ(Num(0.0, "0.000"), "0.000");
    EXPECT_EQ(Num(Smallest, "0.0000"), "0.0000");
    EXPECT_EQ(Num(-0.2, "0"), "-0");
}

TEST(Num, PutsThePatternsBlanksBeforeTheSign) {
    EXPECT_EQ(Num(-1.25, " 0.0000"), " -1.2500");
    EXPECT_EQ(Num(1.25, "  0.0000"), "  1.2500");
    EXPECT_EQ(Num(0, "  0.0000"), "  0.0000");
    EXPECT_EQ(Num(-12345.5, " 0.0000"), " -12345.5000");
}

TEST(Num, GivesTheSameDigitsWithPlacesThatNeedNotBeFilled) {
    EXPECT_EQ(Num(0.25, "###0.000"), "0.250");
    EXPECT_EQ(Num(12345.678, "###0.00"), "12345.68");
    EXPECT_EQ(Num(-7, "###0.000000"), "-7.000000");
    EXPECT_EQ(Num(7, "0"), "7");
}

TEST(Num, WritesTheEndsOfTheRangeOfADouble) {
    EXPECT_EQ(Num(1e20, "0.000"), "100000000000000000000.000");
    // 1.79769313486232 in 15 digits, and 308 - 14 zeros
    EXPECT_EQ(Num(Largest, "0"), "179769313486232" + std::string(294, '0'));
    EXPECT_EQ(Num(-Largest, "0.0"), "-179769313486232" + std::string(294, '0') + ".0");
    EXPECT_EQ(Num(1e-5, "0.0000000"), "0.0000100");
    EXPECT_EQ(Num(1.5e-300, "0.000"), "0.000");
}

TEST(Num, RefusesWhatIsNotFinite) {
    EXPECT_EQ(ErrorNumberOf([] { Num(Infinity, "0.0"); }), Overflow);
    EXPECT_EQ(ErrorNumberOf([] { Num(-Infinity, "0.0"); }), Overflow);
    EXPECT_EQ(ErrorNumberOf([] { Num(NotANumber, "0.0"); }), Overflow);
}

// ---- Pad

TEST(Pad, AlignsToTheRightAndNeverCuts) {
    EXPECT_EQ(Pad("1.50", 8), "    1.50");
    EXPECT_EQ(Pad("abc", 3), "abc");
    EXPECT_EQ(Pad("abcdef", 3), "abcdef");
    EXPECT_EQ(Pad("", 3), "   ");
    EXPECT_EQ(Pad("a ", 4), "  a ");
    EXPECT_EQ(Pad("a", 0), "a");
    EXPECT_EQ(Pad("a", -2), "a");
}

TEST(Pad, CountsCharactersAndNotBytes) {
    EXPECT_EQ(Pad("Zürich", 8), "  Zürich");
    EXPECT_EQ(Pad("東京", 4), "  東京");
    EXPECT_EQ(Pad("\U0001F30D", 2), " \U0001F30D");
}

// ---- GeneralText

TEST(GeneralText, HasUpToFifteenDigits) {
    EXPECT_EQ(GeneralText(0.1 + 0.2), "0.3");
    EXPECT_EQ(GeneralText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(GeneralText(-2.0 / 3), "-0.666666666666667");
    EXPECT_EQ(GeneralText(12), "12");
    EXPECT_EQ(GeneralText(100), "100");
    EXPECT_EQ(GeneralText(435.5), "435.5");
    EXPECT_EQ(GeneralText(0), "0");
    EXPECT_EQ(GeneralText(-0.0), "0");
}

TEST(GeneralText, IsPlainFromOneTenThousandthToBelowTenToTheFifteenth) {
    EXPECT_EQ(GeneralText(0.0001), "0.0001");
    EXPECT_EQ(GeneralText(0.00012345), "0.00012345");
    EXPECT_EQ(GeneralText(0.00001), "1E-05");
    EXPECT_EQ(GeneralText(-0.000099), "-9.9E-05");
    EXPECT_EQ(GeneralText(999999999999999.0), "999999999999999");
    EXPECT_EQ(GeneralText(1e15), "1E+15");
    EXPECT_EQ(GeneralText(2.5e20), "2.5E+20");
    EXPECT_EQ(GeneralText(1e-100), "1E-100");
    EXPECT_EQ(GeneralText(Largest), "1.79769313486232E+308");
}

// ---- ShortestFloatText

TEST(ShortestFloatText, WritesTheFewestDigits) {
    EXPECT_EQ(ShortestFloatText(0.1F), "0.1");
    EXPECT_EQ(ShortestFloatText(1.0F / 3), "0.33333334");
    EXPECT_EQ(ShortestFloatText(-80.7436F), "-80.7436");
    EXPECT_EQ(ShortestFloatText(16777216.0F), "16777216");
    EXPECT_EQ(ShortestFloatText(0), "0");
    EXPECT_EQ(ShortestFloatText(-0.0F), "0");
    // 12300000256 is the float's whole value; the fewest digits are 123.
    EXPECT_EQ(ShortestFloatText(1.23e10F), "12300000000");
    EXPECT_EQ(ShortestFloatText(123456789.0F), "123456790");
}

TEST(ShortestFloatText, TakesTheExponentFormWhereTheGeneralTextDoes) {
    EXPECT_EQ(ShortestFloatText(1e-4F), "0.0001");
    EXPECT_EQ(ShortestFloatText(9.9e-5F), "9.9E-05");
    EXPECT_EQ(ShortestFloatText(9.99e14F), "999000000000000");
    EXPECT_EQ(ShortestFloatText(1e15F), "1E+15");
    EXPECT_EQ(ShortestFloatText(-2.5e20F), "-2.5E+20");
    EXPECT_EQ(ShortestFloatText(std::numeric_limits<float>::max()), "3.4028235E+38");
    EXPECT_EQ(ShortestFloatText(std::numeric_limits<float>::denorm_min()), "1E-45");
}

TEST(ShortestFloatText, ReadsBackAndHasNoDigitToSpare) {
    std::mt19937 random(1);
    for (int count = 0; count < 2000; ++count) {
        const auto bits = static_cast<std::uint32_t>(random());
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value) || value == 0) continue;
        const std::string text = ShortestFloatText(value);
        EXPECT_EQ(std::strtof(text.c_str(), nullptr), value) << text;
        std::string digits; // the significant ones
        for (const char c : text.substr(0, text.find('E')))
            if (c >= '0' && c <= '9' && !(digits.empty() && c == '0')) digits += c;
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.size() < 2) continue;
        char shorter[40];
        std::snprintf(shorter, sizeof shorter, "%.*e", static_cast<int>(digits.size()) - 2,
                      static_cast<double>(value));
        EXPECT_NE(std::strtof(shorter, nullptr), value) << text;
    }
}

// ---- Text to number

TEST(IsNumeric, TakesPlainAndExponentForms) {
    for (const char* text : {"0", "12", "-1.5", "+1.5", ".5", "5.", "-.5", " 7", "7\t", " \t7 ", "1e5",
                             "1E-5", "1d5", "1D+05", "5.e3", "007", "1e999", "-1e999", "1e-999"})
        EXPECT_TRUE(IsNumeric(text)) << text;
}

TEST(IsNumeric, RefusesEverythingElse) {
    for (const char* text : {"",
                             " ",
                             "\t",
                             ".",
                             "-",
                             "+",
                             "e5",
                             ".e5",
                             "1e",
                             "1e+",
                             "1e5.0",
                             "1 2",
                             "- 1",
                             "+-1",
                             "1,5",
                             "1,000",
                             "$1",
                             "1%",
                             "0x10",
                             "&H10",
                             "nan",
                             "NaN",
                             "inf",
                             "-inf",
                             "infinity",
                             "1f",
                             "1_000",
                             "1\n",
                             "one",
                             "\xC2\xA0"
                             "1",
                             "\xD9\xA1" /* Arabic 1 */,
                             "\xEF\xBC\x91" /* full width 1 */,
                             "1.2.3",
                             "(1)"})
        EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_FALSE(IsNumeric(std::string_view("1\0", 2)));
}

TEST(ToNumber, ReadsTheValue) {
    EXPECT_EQ(ToNumber("435.5"), 435.5);
    EXPECT_EQ(ToNumber(" -1.5e2 "), -150);
    EXPECT_EQ(ToNumber("+.5"), 0.5);
    EXPECT_EQ(ToNumber("5."), 5);
    EXPECT_EQ(ToNumber("1D+02"), 100);
    EXPECT_EQ(ToNumber("2.5d-1"), 0.25);
    EXPECT_EQ(ToNumber("0.1"), 0.1);
    EXPECT_EQ(ToNumber("9007199254740993"), 9007199254740992.0); // a tie, to even
    EXPECT_TRUE(std::signbit(ToNumber("-0")));
}

TEST(ToNumber, ReadsTheSmallEndAndRefusesTheLargeOne) {
    EXPECT_EQ(ToNumber("1e-400"), 0);
    EXPECT_EQ(ToNumber("4.9e-324"), Smallest);
    EXPECT_EQ(ToNumber("1e-99999999999999999999"), 0);
    EXPECT_EQ(ToNumber("0e99999999999999999999"), 0);
    EXPECT_EQ(ToNumber("1.7976931348623157e308"), Largest);
    for (const char* text : {"1.8e308", "-1.8e308", "1e999", "1d400", "1e99999999999999999999"})
        EXPECT_EQ(ErrorNumberOf([=] { ToNumber(text); }), Overflow) << text;
    EXPECT_EQ(ToNumber("1" + std::string(300, '0')), 1e300);
    EXPECT_EQ(ErrorNumberOf([] { ToNumber(std::string(400, '9')); }), Overflow);
}

TEST(ToNumber, NamesThePlaceAndTheText) {
    EXPECT_EQ(ErrorNumberOf([] { ToNumber("abc"); }), TypeMismatch);
    EXPECT_EQ(ErrorNumberOf([] { ToNumber(""); }), TypeMismatch);
    EXPECT_EQ(ErrorDescriptionOf([] { ToNumber("abc", "line 3 of points.txt"); }),
              "Type mismatch\nline 3 of points.txt: \"abc\" is not a number.");
    EXPECT_EQ(ErrorDescriptionOf([] { ToNumber(std::string(41, 'a')); }),
              "Type mismatch\n\"" + std::string(40, 'a') + "...\" is not a number.");
    EXPECT_EQ(ErrorDescriptionOf([] { ToNumber("1e999", "line 1 of a.txt"); }),
              "Overflow\nline 1 of a.txt: the number is too large.");
}

TEST(Conversions, DoNotAskTheLocale) {
    const CommaLocale commas;
    EXPECT_EQ(Num(1234567.891, "0.00"), "1234567.89");
    EXPECT_EQ(GeneralText(1234567.5), "1234567.5");
    EXPECT_EQ(ShortestFloatText(1234567.5F), "1234567.5");
    EXPECT_FALSE(IsNumeric("1,5"));
    EXPECT_EQ(ToNumber("1234567.5"), 1234567.5);
    EXPECT_EQ(ToNumber("1.5e-400"), 0);
    EXPECT_EQ(ToNumber("12345.5e-324"), ToNumber("1.23455e-320"));
}

// ---- Rounding to whole numbers

TEST(RoundToInt32, GoesToTheEvenNeighbour) {
    EXPECT_EQ(RoundToInt32(0.5), 0);
    EXPECT_EQ(RoundToInt32(1.5), 2);
    EXPECT_EQ(RoundToInt32(2.5), 2);
    EXPECT_EQ(RoundToInt32(-0.5), 0);
    EXPECT_EQ(RoundToInt32(-1.5), -2);
    EXPECT_EQ(RoundToInt32(-2.5), -2);
    EXPECT_EQ(RoundToInt32(2.4999999), 2);
}

TEST(RoundToInt32, StopsOutsideItsRange) {
    EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min()); // the even neighbour
    for (const double value : {2147483647.5, -2147483648.6, 1e10, -1e300, Infinity, -Infinity, NotANumber})
        EXPECT_EQ(ErrorNumberOf([=] { RoundToInt32(value); }), Overflow) << value;
}

TEST(RoundToInt16, StopsOutsideItsRange) {
    EXPECT_EQ(RoundToInt16(2.5), 2);
    EXPECT_EQ(RoundToInt16(32767.4), 32767);
    EXPECT_EQ(RoundToInt16(-32768.5), -32768);
    for (const double value : {32767.5, -32769.0, 1e10, NotANumber})
        EXPECT_EQ(ErrorNumberOf([=] { RoundToInt16(value); }), Overflow) << value;
}

TEST(Counter16, HoldsExactly32767) {
    EXPECT_EQ(Counter16(0), 0);
    EXPECT_EQ(Counter16(32767), 32767);
    EXPECT_EQ(ErrorNumberOf([] { Counter16(32768); }), Overflow);
    EXPECT_EQ(ErrorNumberOf([] { Counter16(NotANumber); }), Overflow);
    EXPECT_EQ(ErrorDescriptionOf([] { Counter16(40000); }),
              "Overflow\n40000 is more than a 16-bit counter holds (32767).");
}

TEST(ShortestText, ReadsBackToTheSameValueInAtMost24Characters) {
    EXPECT_EQ(ShortestText(12), "12");
    EXPECT_EQ(ShortestText(0.1), "0.1");
    EXPECT_EQ(ShortestText(-0.0), "-0");
    EXPECT_EQ(ShortestText(1e-9), "1e-09");
    EXPECT_EQ(ShortestText(0.1 + 0.2), "0.30000000000000004"); // the sum is not the nearest value to 0.3
    EXPECT_EQ(ShortestText(-2.2250738585072014e-308), "-2.2250738585072014e-308");
    EXPECT_EQ(ShortestText(-2.2250738585072014e-308).size(), 24U);
}
