#include "desktop/prospective/frmCusumTools.h"

#include "support/screens/ScreenChecks.h"
#include "support/screens/ScreenTest.h"

using namespace vastrel;

namespace {

constexpr const char* Refusal = "k-value and ARL0 should be positive numerical values";

constexpr const char* Overall = "txtHvalue_NoAdjustment";
constexpr const char* Bonferroni = "txtBonferroni_Correction";
constexpr const char* Spatial = "txtLocalStatistics";

class ThresholdTest : public ScreenTest {
protected:
    ThresholdTest() { Command("mnuCusumTool"); }

    void TypeAll(const std::string& k, const std::string& arl0, const std::string& n,
                 const std::string& sigma) {
        Type(Screen, "txtKvalue", k);
        Type(Screen, "txtARL0", arl0);
        Type(Screen, "txtNumRegion", n);
        Type(Screen, "txtSigma", sigma);
    }
    std::vector<std::string> Inputs() {
        return {Text(Screen, "txtKvalue"), Text(Screen, "txtARL0"), Text(Screen, "txtNumRegion"),
                Text(Screen, "txtSigma")};
    }
    std::vector<std::string> Results() {
        return {Text(Screen, Overall), Text(Screen, Bonferroni), Text(Screen, Spatial)};
    }
    using Texts = std::vector<std::string>;

    frmCusumTools& Screen = The<frmCusumTools>();
};

} // namespace

TEST_F(ThresholdTest, StandsAsDesigned) {
    ExpectCaptions(Screen, {{"frmCusumTools", "Get h-value from ARL"},
                            {"fraParameters", "Parameters"},
                            {"lblKvalue", "k-value"},
                            {"txtKvalue", "0.5"},
                            {"lblARL0", "ARL0"},
                            {"txtARL0", ""},
                            {"lblNumRegion", "# of region"},
                            {"txtNumRegion", "100"},
                            {"lblSigma", "Sigma"},
                            {"txtSigma", "1"},
                            {"fraOptions", "ARL0 Options"},
                            {"optOverallRegion", "Overall Region"},
                            {"lblResult1", "h-value"},
                            {Overall, ""},
                            {"optBonferroniCorrection", "Bonferroni correction"},
                            {"lblResult2", "h-value"},
                            {Bonferroni, ""},
                            {"optAdjustForLocalStatistics", "Spatial autocorrelation"},
                            {"lblResult3", "h-value"},
                            {Spatial, ""},
                            {"cmdGetResult", "&Get Result"}});
    ExpectAccessibleNames(Screen);
    ExpectTabOrder(Screen, {"txtKvalue", "txtARL0", "txtNumRegion", "txtSigma", "optOverallRegion", Overall,
                            "optBonferroniCorrection", Bonferroni, "optAdjustForLocalStatistics", Spatial,
                            "cmdGetResult"});
    const QSize rest = screens().FrameSize() - Screen.Frame()->size();
    EXPECT_EQ(Screen.Frame()->pos(), QPoint(rest.width() / 3, rest.height() / 2));
    Shot(Frame, "threshold");
}

// k = 0.5: A = ARL0 m / 2; worked out on paper for ARL0 = 100, m = 1, 100 and 100 / 1.81.
TEST_F(ThresholdTest, WritesTheResultOfTheChosenOptionAlone) {
    Type(Screen, "txtARL0", "100");
    Press(Screen, "optOverallRegion");
    Press(Screen, "cmdGetResult");
    EXPECT_EQ(Results(), (Texts{"2.844", "", ""}));
    Press(Screen, "optBonferroniCorrection");
    Press(Screen, "cmdGetResult");
    EXPECT_EQ(Results(), (Texts{"2.844", "7.354", ""}));
    Press(Screen, "optAdjustForLocalStatistics");
    Press(Screen, "cmdGetResult");
    EXPECT_EQ(Results(), (Texts{"2.844", "7.354", "6.764"}));
    EXPECT_EQ(Inputs(), (Texts{"0.5", "100", "100", "1"}));
    Shot(Screen, "threshold-results");
}

TEST_F(ThresholdTest, DoesNothingWithoutAnOption) {
    Type(Screen, "txtARL0", "100");
    Press(Screen, "cmdGetResult");
    EXPECT_EQ(Results(), (Texts{"", "", ""}));
}

TEST_F(ThresholdTest, IsSilentWhereATestedTextIsNoNumber) {
    struct Row {
        const char* Option;
        Texts Inputs;
    };
    for (const auto& [option, inputs] :
         {Row{"optOverallRegion", {"0.5", "", "100", "1"}}, Row{"optOverallRegion", {"x", "-1", "100", "1"}},
          Row{"optBonferroniCorrection", {"0.5", "100", "x", "1"}},
          Row{"optAdjustForLocalStatistics", {"0.5", "100", "100", ""}}}) {
        TypeAll(inputs[0], inputs[1], inputs[2], inputs[3]);
        Press(Screen, option);
        Press(Screen, "cmdGetResult");
        EXPECT_EQ(Results(), (Texts{"", "", ""}));
        EXPECT_EQ(Inputs(), inputs);
    }
}

TEST_F(ThresholdTest, EmptiesTheFirstBoxThatFailsAndGoesOn) {
    struct Row {
        const char* Option;
        Texts Before, After;
    };
    const Row rows[] = {
        {"optOverallRegion", {"0", "-5", "-1", "-1"}, {"", "-5", "-1", "-1"}},
        {"optOverallRegion", {"0.5", "0", "-1", "-1"}, {"0.5", "", "-1", "-1"}},
        {"optBonferroniCorrection", {"0.5", "100", "0", "-1"}, {"0.5", "100", "", "-1"}},
        {"optAdjustForLocalStatistics", {"0.5", "100", "100", "-1"}, {"0.5", "100", "100", ""}},
    };
    for (const auto& [option, before, after] : rows) {
        TypeAll(before[0], before[1], before[2], before[3]);
        Press(Screen, option);
        Script.ExpectMessage(Refusal);
        Press(Screen, "cmdGetResult");
        EXPECT_EQ(Inputs(), after);
        EXPECT_EQ(Results(), (Texts{"", "", ""}));
    }
    Type(Screen, "txtSigma", "0");
    Press(Screen, "cmdGetResult");
    EXPECT_EQ(Text(Screen, Spatial), "7.354"); // no smoothing: the Bonferroni threshold
}

TEST_F(ThresholdTest, StopsAtAnOverflowAndGoesOn) {
    Press(Screen, "optOverallRegion");
    TypeAll("1e200", "100", "100", "1");
    Script.ExpectRunTimeError(6);
    Press(Screen, "cmdGetResult");
    EXPECT_EQ(Results(), (Texts{"", "", ""}));
    Type(Screen, "txtKvalue", "0.5");
    Press(Screen, "cmdGetResult");
    EXPECT_EQ(Text(Screen, Overall), "2.844");
}

TEST_F(ThresholdTest, CalculatesOnEnterGoesAtEscapeAndComesBackAsNew) {
    Press(Screen, "optOverallRegion");
    Type(Screen, "txtARL0", "100");
    Key(Screen, "txtARL0", Qt::Key_Return);
    EXPECT_EQ(Text(Screen, Overall), "2.844");
    Key(Screen, "txtARL0", Qt::Key_Escape);
    EXPECT_FALSE(Screen.IsLoaded());
    Command("mnuCusumTool");
    EXPECT_EQ(Results(), (Texts{"", "", ""}));
    EXPECT_EQ(Inputs(), (Texts{"0.5", "", "100", "1"}));
    EXPECT_FALSE(The_<QAbstractButton>(Screen, "optOverallRegion")->isChecked());
}
