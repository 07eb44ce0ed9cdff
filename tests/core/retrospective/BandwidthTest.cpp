#include "core/retrospective/Bandwidth.h"

#include "core/workspace/Workspace.h"
#include "support/RaisedError.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

constexpr const char* NotNumeric = "A range of bandwidth parameters should be numeric.";
constexpr const char* NotValid = "Ivalid range of bandwidth was input. Check the parameters!";

} // namespace

TEST(TakeSingleSigma, TakesANumber) {
    ScriptedPlatform silent;
    ws = Workspace{};
    for (const auto& [text, value] : {std::pair("1.5", 1.5), std::pair(" +2 ", 2.0), std::pair("1e-3", 0.001),
                                      std::pair("1D2", 100.0), std::pair(".5", 0.5)}) {
        EXPECT_TRUE(TakeSingleSigma(text));
        EXPECT_EQ(ws.CurrentSigma, value);
    }
}

TEST(TakeSingleSigma, PutsATinyNumberInThePlaceOfZero) {
    ScriptedPlatform silent;
    ws = Workspace{};
    for (const char* zero : {"0", "-0", "0.000", "1e-400"}) {
        ws.CurrentSigma = 7;
        EXPECT_TRUE(TakeSingleSigma(zero));
        EXPECT_EQ(ws.CurrentSigma, 0.00000001) << zero;
    }
}

TEST(TakeSingleSigma, TakesANumberThatIsTinyItself) {
    ScriptedPlatform silent;
    ws = Workspace{};
    for (const auto& [text, value] : {std::pair("0.00000002", 2e-8), std::pair("1e-9", 1e-9)}) {
        EXPECT_TRUE(TakeSingleSigma(text));
        EXPECT_EQ(ws.CurrentSigma, value);
    }
}

TEST(TakeSingleSigma, RefusesOtherTextsAndLeavesTheBandwidth) {
    ScriptedPlatform platform;
    ws = Workspace{};
    ws.CurrentSigma = 7;
    for (const char* text : {"", " ", "x", "nan", "inf", "0x1", "1,5", "1 2", "-"}) {
        platform.ExpectMessage("Bandwidth should be numerical.");
        EXPECT_FALSE(TakeSingleSigma(text)) << text;
    }
    platform.ExpectMessage("Bandwidth should not be negative.");
    EXPECT_FALSE(TakeSingleSigma("-0.1"));
    EXPECT_EQ(ws.CurrentSigma, 7);
}

TEST(TakeSingleSigma, StopsAtANumberTooLarge) {
    ScriptedPlatform silent;
    ws = Workspace{};
    EXPECT_EQ(ErrorNumberOf([] { TakeSingleSigma("1e400"); }), Overflow);
}

TEST(TakeSweepRange, TakesItsTexts) {
    ScriptedPlatform silent;
    ws = Workspace{};
    SweepRange range;
    EXPECT_TRUE(TakeSweepRange({"0", "2.0", "0.2"}, range));
    EXPECT_EQ(range.From, 0);
    EXPECT_EQ(range.To, 2);
    EXPECT_EQ(range.Step, 0.2);
    EXPECT_EQ(ws.CurrentSigma, 0); // the tiny number comes after the count of steps
    EXPECT_EQ(ws.SigmaTo, 2);
}

TEST(TakeSweepRange, RefusesTextsThatAreNoNumbers) {
    ScriptedPlatform platform;
    ws = Workspace{};
    SweepRange range;
    for (const SweepTexts& texts : {SweepTexts{"", "2", "1"}, SweepTexts{"0", "x", "1"},
                                    SweepTexts{"0", "2", ""}, SweepTexts{"-1", "2", "nan"}}) {
        platform.ExpectMessage(NotNumeric);
        EXPECT_FALSE(TakeSweepRange(texts, range));
    }
    EXPECT_EQ(ws.SigmaTo, 0);
}

TEST(TakeSweepRange, RefusesARangeThatIsNotValid) {
    ScriptedPlatform platform;
    ws = Workspace{};
    SweepRange range;
    for (const SweepTexts& texts :
         {SweepTexts{"-0.1", "2", "1"}, SweepTexts{"-2", "0", "1"}, SweepTexts{"1", "1", "1"},
          SweepTexts{"2", "1", "1"}, SweepTexts{"0", "1", "0"}, SweepTexts{"0", "1", "-0.5"}}) {
        platform.ExpectMessage(NotValid);
        EXPECT_FALSE(TakeSweepRange(texts, range));
    }
}
