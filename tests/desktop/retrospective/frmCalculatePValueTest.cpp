#include "desktop/retrospective/frmCalculatePValue.h"

#include "support/screens/ScreenChecks.h"
#include "support/screens/ScreenTest.h"

using namespace vastrel;

namespace {

class CalculatorTest : public ScreenTest {
protected:
    CalculatorTest() { Command("mnuGetPValue"); }

    std::string Normal(const std::string& z) {
        Type(Screen, "txtInputNormalZScore", z);
        Press(Screen, "cmdCalculate");
        return Text(Screen, "txtInputZScore_PValue");
    }
    std::string ChiSquare(const std::string& chi, const std::string& df) {
        Type(Screen, "txtInputChiSquare", chi);
        Type(Screen, "txtInputDF", df);
        Press(Screen, "cmdCalculate");
        return Text(Screen, "txtChiSquarePValue");
    }
    void ChooseChiSquare() {
        Script.ExpectMessage("This p-value calculator generate an reasonable approximation only for the "
                             "integer value of degree of freedom (DF).",
                             "Attention!");
        Press(Screen, "optChiSquare");
    }
    bool IsSelected(const char* option) { return The_<QAbstractButton>(Screen, option)->isChecked(); }

    frmCalculatePValue& Screen = The<frmCalculatePValue>();
};

} // namespace

TEST_F(CalculatorTest, StandsAsDesigned) {
    ExpectCaptions(Screen, {{"optNormal", "Normal Distribution"},
                            {"fraNormalInput", "User input"},
                            {"lbltxtInputNormalZScore", "z-value"},
                            {"txtInputNormalZScore", ""},
                            {"fraNormalResult", "Result"},
                            {"lbltxtInputZScore_PValue", "p-value"},
                            {"txtInputZScore_PValue", ""},
                            {"optChiSquare", "Chi-Square Distribution"},
                            {"fraChiInput", "User input"},
                            {"lbltxtInputChiSquare", "Chi-Square statistic"},
                            {"txtInputChiSquare", ""},
                            {"lbltxtInputDF", "Degree of Freedom"},
                            {"txtInputDF", ""},
                            {"fraChiResult", "Result"},
                            {"lbltxtChiSquarePValue", "p-value"},
                            {"txtChiSquarePValue", ""},
                            {"cmdCalculate", "&Calculate"},
                            {"cmdExit", "&Exit"}});
    EXPECT_TRUE(IsSelected("optNormal"));
    ExpectAccessibleNames(Screen);
    ExpectTabOrder(Screen,
                   {"optNormal", "txtInputNormalZScore", "txtInputZScore_PValue", "optChiSquare",
                    "txtInputChiSquare", "txtInputDF", "txtChiSquarePValue", "cmdCalculate", "cmdExit"});
    const QSize rest = screens().FrameSize() - Screen.Frame()->size();
    EXPECT_EQ(Screen.Frame()->pos(), QPoint(rest.width() / 2, rest.height() / 2));
    Shot(Frame, "p-value");
}

// The numbers come from the definition's loop, written down once more in Python.
TEST_F(CalculatorTest, GivesOneSidedNormalTails) {
    EXPECT_EQ(Normal("1.96"), "0.02495800");
    EXPECT_EQ(Normal("-1.96"), "0.02495800");
    EXPECT_EQ(Normal(" 1e0 "), "0.15861536");
    EXPECT_EQ(Normal("0"), "0.50000000");
    EXPECT_EQ(Normal("4.6"), "0.00000000");
}

TEST_F(CalculatorTest, GivesChiSquareTails) {
    ChooseChiSquare();
    EXPECT_EQ(ChiSquare("3.84", "1"), "0.04724553");
    EXPECT_EQ(ChiSquare("10", "2"), "0.00685804");
    EXPECT_EQ(ChiSquare("10", "2.5"), "0.00685804"); // 2.5 degrees become 2
    EXPECT_EQ(ChiSquare("5", "5"), "0.41648194");
    EXPECT_EQ(Text(Screen, "txtInputZScore_PValue"), ""); // the other result is left alone
    Shot(Screen, "p-value-chi");
}

TEST_F(CalculatorTest, RefusesANormalTextAndGoesOn) {
    Script.ExpectMessage("Z-score should be specified.");
    EXPECT_EQ(Normal(""), "");
    Script.ExpectMessage("Z-score should be numeric.");
    EXPECT_EQ(Normal("1,96"), "");
    EXPECT_EQ(Normal("4.6"), "0.00000000");
    Script.ExpectMessage("Z-score should be numeric.");
    EXPECT_EQ(Normal(" "), "0.00000000"); // the old result stays
}

TEST_F(CalculatorTest, RefusesChiSquareTextsOnlyWhereOneIsEmpty) {
    ChooseChiSquare();
    struct Row {
        const char *Chi, *DF;
        bool Message;
    };
    for (const auto& [chi, df, message] : {Row{"", "", true},
                                           {"3", "", true},
                                           {"", "2", true},
                                           {"x", "", true},
                                           {"x", "2", false},
                                           {"3", "x", false}}) {
        if (message) Script.ExpectMessage("Both chi-square statistic and D.F. should be specified.");
        EXPECT_EQ(ChiSquare(chi, df), "") << chi << "/" << df;
    }
    EXPECT_EQ(ChiSquare("3.84", "1"), "0.04724553");
}

TEST_F(CalculatorTest, StopsAtArithmeticFaultsAndGoesOn) {
    ChooseChiSquare();
    EXPECT_EQ(ChiSquare("3.84", "1"), "0.04724553");
    Script.ExpectRunTimeError(11);
    ChiSquare("3.84", "0");
    Script.ExpectRunTimeError(11);
    ChiSquare("3.84", "0.5"); // half a degree becomes 0
    Script.ExpectRunTimeError(5);
    ChiSquare("-1", "1");
    Script.ExpectRunTimeError(6);
    ChiSquare("3.84", "40000");
    Script.ExpectRunTimeError(6);
    ChiSquare("1e400", "1");
    EXPECT_EQ(Text(Screen, "txtChiSquarePValue"), "0.04724553"); // no result of a fault is shown
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(ChiSquare("10", "2"), "0.00685804");
}

TEST_F(CalculatorTest, SaysWhatItIsGoodForEachTimeChiSquareIsChosen) {
    ChooseChiSquare();
    Press(Screen, "optChiSquare"); // chosen already
    Press(Screen, "optNormal");
    ChooseChiSquare();
}

TEST_F(CalculatorTest, CalculatesOnEnterAndGoesAtEscape) {
    Type(Screen, "txtInputNormalZScore", "0");
    Key(Screen, "txtInputNormalZScore", Qt::Key_Return);
    EXPECT_EQ(Text(Screen, "txtInputZScore_PValue"), "0.50000000");
    Key(Screen, "txtInputNormalZScore", Qt::Key_Escape);
    EXPECT_FALSE(Screen.IsLoaded());
}

TEST_F(CalculatorTest, ComesBackAsNew) {
    Normal("0");
    ChooseChiSquare();
    Press(Screen, "cmdExit");
    EXPECT_FALSE(Screen.IsLoaded());
    Command("mnuGetPValue");
    EXPECT_TRUE(IsSelected("optNormal"));
    EXPECT_EQ(Text(Screen, "txtInputNormalZScore"), "");
    EXPECT_EQ(Text(Screen, "txtInputZScore_PValue"), "");
}
