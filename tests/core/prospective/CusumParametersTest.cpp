#include "core/prospective/CusumParameters.h"

#include "core/workspace/Workspace.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

class CusumParameters : public testing::Test {
protected:
    CusumParameters() { ws = Workspace{}; }
    ScriptedPlatform platform_;
};

} // namespace

TEST_F(CusumParameters, AreTakenAsTyped) {
    EXPECT_TRUE(TakeCusumParameters({" 0.25 ", "5.07", "1"}));
    EXPECT_EQ(ws.KValue, 0.25);
    EXPECT_EQ(ws.HValue, 5.07);
    EXPECT_EQ(ws.CurrentSigma, 0); // sigma is taken by the run
}

TEST_F(CusumParameters, HaveTheDefaultsOfTheScreens) {
    EXPECT_TRUE(TakeCusumParameters({}));
    EXPECT_EQ(ws.KValue, 0.5);
    EXPECT_EQ(ws.HValue, 9.3);
}

TEST_F(CusumParameters, MayBeZero) {
    EXPECT_TRUE(TakeCusumParameters({"0", "0", "0"}));
    EXPECT_EQ(ws.KValue, 0);
    EXPECT_EQ(ws.HValue, 0);
}

TEST_F(CusumParameters, AreRefusedWhereOneIsNotNumeric) {
    ws.KValue = 7;
    // A negative number beside a text that is not numeric: the text is told first.
    for (const CusumTexts& texts :
         {CusumTexts{"x", "9.3", "0"}, CusumTexts{"0.5", "", "0"}, CusumTexts{"-1", "9.3", "0,5"}}) {
        platform_.ExpectMessage("Parameters are not properly input.");
        EXPECT_FALSE(TakeCusumParameters(texts));
    }
    EXPECT_EQ(ws.KValue, 7);
}

TEST_F(CusumParameters, AreRefusedWhereOneIsNegative) {
    for (const CusumTexts& texts :
         {CusumTexts{"-0.5", "9.3", "0"}, CusumTexts{"0.5", "-1", "0"}, CusumTexts{"0.5", "9.3", "-1e-9"}}) {
        platform_.ExpectMessage("Parameters should be positive values.");
        EXPECT_FALSE(TakeCusumParameters(texts));
    }
    EXPECT_EQ(ws.KValue, 0);
    EXPECT_EQ(ws.HValue, 0);
}

TEST_F(CusumParameters, PutAVerySmallSigmaInThePlaceOfZero) {
    TakeCusumSigma("0");
    EXPECT_EQ(ws.CurrentSigma, 0.000000001);
    TakeCusumSigma("-0.0");
    EXPECT_EQ(ws.CurrentSigma, 0.000000001);
    TakeCusumSigma("0.00000000001");
    EXPECT_EQ(ws.CurrentSigma, 1e-11);
    TakeCusumSigma("1.5");
    EXPECT_EQ(ws.CurrentSigma, 1.5);
}

TEST_F(CusumParameters, LetTheRunGoOnWithTheSigmaBefore) {
    ws.CurrentSigma = 2;
    platform_.ExpectMessage("The bandwidht should be properly input.");
    TakeCusumSigma("wide");
    EXPECT_EQ(ws.CurrentSigma, 2);
}
