#include "desktop/prospective/PolygonWatchScreen.h"
#include "support/screens/ScreenChecks.h"

#include <QAbstractItemView>
#include <QLabel>

using namespace vastrel;

namespace {

using frmUnivariateTest = PolygonWatchScreenTest;
using Texts = std::vector<std::string>;

const std::string Titles = "  Year   Cusum     Region of max cusum value";
const std::string Rule(82, '-');
const Texts PeriodRows{Titles,
                       Rule,
                       "    1     5.50                    B",
                       "    2    11.00                    B",
                       "    3    10.00                    C",
                       Rule};

} // namespace

TEST_F(frmUnivariateTest, ShowsItsCaptionsAndDefaults) {
    ExpectCaptions(Screen, {{"frmUnivariate", "Univariate Cusum"},
                            {"fraParameters", "Parameters"},
                            {"lblSigma", "sigma"},
                            {"txtSigma", "0"},
                            {"lblH", "h-value"},
                            {"txtHvalue", "9.3"},
                            {"lblK", "k-value"},
                            {"txtKvalue", "0.5"},
                            {"fraData", "Data option"},
                            {"optFieldSelection", "Fields selection"},
                            {"optExistingTextfile", "Existing text file"},
                            {"lblFrom", "from"},
                            {"lblTo", "to"},
                            {"fraStart", "Start option"},
                            {"optZero", "Zero"},
                            {"optFIR", "FIR"},
                            {"optPre", "Previous"},
                            {"fraSpeed", "Animation speed"},
                            {"optFast", "Fast"},
                            {"optMedium", "Medium"},
                            {"optSlow", "Slow"},
                            {"fraChart", "Chart for maximum cusum"},
                            {"lblCusumKey", "Cusum"},
                            {"lblHKey", "h-value"},
                            {"fraPeriods", "Maximum cusum value for each year"},
                            {"fraRegions", "Signaled region and cusum for the year "},
                            {"lblY", ""},
                            {"cmdCalc", "&Run"},
                            {"cmdSaveResult", "&Save result"},
                            {"cmdSaveCusum", "&Save cusum"}});
    ExpectEnabled(
        Screen,
        {"cmdCalc", "cmdSaveResult", "cmdSaveCusum", "cboStartZ", "cboEndZ", "optFIR", "optZero", "optPre"},
        {"cmdCalc", "cmdSaveCusum", "cboStartZ", "optZero", "optPre"});
    for (const char* option : {"optFieldSelection", "optZero", "optFast"})
        EXPECT_TRUE(The_<OptionButton>(Screen, option)->Value()) << option;
    EXPECT_FALSE(IsShown(Screen, "MSChart1"));
    EXPECT_EQ(From()->ListCount(), FieldCount);
    EXPECT_EQ(To()->ListCount(), FieldCount);
    EXPECT_EQ(From()->Text() + To()->Text(), "");
    EXPECT_EQ(Screen.Frame()->pos(), QPoint(533, 0)); // 8000 and 1 by 15
    EXPECT_EQ(ws.AnimationDelay, 300000);
    ExpectAccessibleNames(Screen);
    Shot(Frame, "frmUnivariate_load");
}

TEST_F(frmUnivariateTest, TestsTheFirstAndTheLastColumnAlone) {
    From()->SetListIndex(2);
    EXPECT_TRUE(To()->isEnabled());
    EXPECT_EQ(From()->ListCount(), 2 * FieldCount); // the list grows at every click
    EXPECT_EQ(ws.StartFieldIndex, 2);

    Script.ExpectMessage("Data should be numerical values!");
    From()->SetListIndex(1);
    EXPECT_EQ(From()->Text(), "");
    EXPECT_EQ(From()->ListCount(), 3 * FieldCount);
    From()->showPopup();
    Shot(*From()->view()->window(), "frmUnivariate_grownList");
    From()->hidePopup();
    Script.ExpectMessage("Data should be numerical values!"); // a null is no number
    To()->SetListIndex(5);
    EXPECT_EQ(To()->Text(), "");

    From()->SetListIndex(4);
    Script.ExpectMessage("Start and end priods were not set improperly!");
    To()->SetListIndex(3);
    EXPECT_EQ(To()->Text(), "");
    EXPECT_EQ(ws.EndFieldIndex, 3);
    To()->SetListIndex(6); // the null lies between
    Script.ExpectRunTimeError(94);
    Run();
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(Rows(Periods()), (Texts{Titles, Rule}));
}

TEST_F(frmUnivariateTest, RunsFromFields) {
    Script.AtYield(3, [this] { Shot(Frame, "frmUnivariate_running"); });
    RunFields();
    EXPECT_EQ(Rows(Periods()), PeriodRows);
    EXPECT_EQ(Periods()->ListIndex(), 4); // the last period, picked by itself
    EXPECT_EQ(Text(Screen, "lblY"), "3");
    EXPECT_EQ(Rows(Regions()), (Texts{"   10.00 <---                 C"}));
    EXPECT_EQ(Script.YieldCalls(), 3);
    EXPECT_NE(Script.Transcript().find("yield 2\nyield 2\nyield 2\npointer normal\n"), std::string::npos);
    EXPECT_TRUE(CanSaveResult() && CanSaveCusum());
    EXPECT_TRUE(IsShown(Screen, "MSChart1"));
    EXPECT_TRUE(IsShown(Map, "picLegend"));
    EXPECT_TRUE(Map.IsToolPressed("Graph"));
    EXPECT_TRUE(ws.bCusumMapping && ws.bCusumRun);
    EXPECT_FALSE(Graph.IsLoaded()); // by its tool alone
    Shot(Frame, "frmUnivariate_result");
}

TEST_F(frmUnivariateTest, RunsFromATextFile) {
    Press(Screen, "optExistingTextfile");
    EXPECT_FALSE(From()->isEnabled() || To()->isEnabled());
    ExpectText();
    Run();
    EXPECT_EQ(Rows(Periods()), PeriodRows);
    EXPECT_TRUE(CanSaveResult() && CanSaveCusum());

    Script.ExpectFile(FileQuestion::Kind::Open, TextFilter, "");
    Run(); // ends quietly, the pointer as it stands
    EXPECT_EQ(Rows(Periods()), (Texts{Titles, Rule}));
    EXPECT_TRUE(Script.BusyPointer());
}

TEST_F(frmUnivariateTest, ListsTheRegionsThatHaveARecord) {
    Open("NAME", "", 2);
    Press(Screen, "optExistingTextfile");
    ExpectText();
    Run();
    EXPECT_EQ(ws.MaxCusum(3), 10); // of the third Region, which the list passes over
    EXPECT_EQ(Rows(Regions()), Texts{});
    EXPECT_EQ(ws.CusumValue(3, 3), 10);
}

TEST_F(frmUnivariateTest, RefusesWhatIsMissing) {
    Script.ExpectMessage("Both start and end period should be determined.");
    Run();
    EXPECT_EQ(Rows(Periods()), (Texts{Titles, Rule}));
    EXPECT_FALSE(Script.BusyPointer());

    Type(Screen, "txtKvalue", "x");
    Script.ExpectMessage("Parameters are not properly input.");
    Run();
    Type(Screen, "txtKvalue", "-1");
    Script.ExpectMessage("Parameters should be positive values.");
    Run();
    EXPECT_EQ(Periods()->ListCount(), 0);
}

TEST_F(frmUnivariateTest, FailsAtAnEntryOfTheGrownList) {
    From()->SetListIndex(2);
    To()->SetListIndex(2);              // grows
    To()->SetListIndex(2 + FieldCount); // the walk goes by the name, the run by the place
    Script.ExpectRunTimeError(94);      // GAP comes first
    Run();
    From()->SetListIndex(6);
    Script.ExpectRunTimeError(3265);
    Run();
    EXPECT_TRUE(Script.BusyPointer());
}

TEST_F(frmUnivariateTest, ShowsThePeriodThatIsPicked) {
    RunFields();
    Periods()->SetListIndex(3);
    EXPECT_EQ(ws.SelectedPeriod, 2);
    EXPECT_EQ(Rows(Regions()), (Texts{"   11.00 <---                 B"}));
    Periods()->SetListIndex(2); // no signal
    EXPECT_EQ(Regions()->ListCount(), 0);
    EXPECT_EQ(Text(Screen, "lblY"), "1");
    for (const int row : {0, 1, 5}) {
        Periods()->SetListIndex(3);
        Periods()->SetListIndex(row);
        EXPECT_EQ(Text(Screen, "lblY"), "");
        EXPECT_EQ(Regions()->ListCount(), 0);
        EXPECT_FALSE(Map.IsToolPressed("Graph"));
        EXPECT_FALSE(ws.bCusumMapping);
    }
}

TEST_F(frmUnivariateTest, FlashesTheRegionThatIsPickedAndFillsItsChart) {
    RunFields();
    Periods()->SetListIndex(3);
    Regions()->SetListIndex(0);
    EXPECT_EQ(Script.YieldCalls(), 3 + 3);
    EXPECT_NE(Script.Transcript().find("yield 50001\nyield 50001\nyield 50001\n"), std::string::npos);
    EXPECT_EQ(ws.SelectedRegion, 1);
    EXPECT_EQ(Text(Graph, "Text1"), "B in 2: ---> 11.00");
    EXPECT_EQ(ws.CusumChartData(2, 0), 8.5);
    EXPECT_FALSE(Graph.isVisible()); // filled, not shown
    Press(Screen, "optExistingTextfile");
    EXPECT_FALSE(Graph.IsLoaded());
}

TEST_F(frmUnivariateTest, ShowsTheClassesBesideTheMapFromTheFirstFrameOn) {
    Script.AtYield(1, [this] { EXPECT_FALSE(IsShown(Map, "picLegend")); });
    Script.AtYield(2, [this] { EXPECT_TRUE(IsShown(Map, "picLegend")); });
    RunFields();
    ExpectCaptions(Map, {{"frmPolygonSHP", "three.shp"},
                         {"Label1", ""},
                         {"lblLeg0", "< 25%"},
                         {"lblLeg1", "< 50%"},
                         {"lblLeg2", "< 75%"},
                         {"lblLeg3", "< 100%"},
                         {"lblLeg4", "SIGNAL"}});
    const QColor colours[] = {White, {0, 255, 255}, {128, 128, 255}, {0, 0, 192}, Red};
    for (int i = 0; i < 5; ++i) {
        auto* label = The_<QLabel>(Map, QString("lblLeg%1").arg(i).toUtf8());
        EXPECT_EQ(label->grab().toImage().pixelColor(1, 1), colours[i]) << i;
        EXPECT_EQ(label->font().families(), QStringList({"Times New Roman", "Liberation Serif"})) << i;
    }
}

TEST_F(frmUnivariateTest, LeavesThePlainMapWhenItCloses) {
    RunFields();
    Screen.Frame()->close();
    EXPECT_FALSE(Screen.IsLoaded());
    EXPECT_FALSE(IsShown(Map, "picLegend"));
    EXPECT_FALSE(Map.IsToolPressed("Graph"));
    EXPECT_FALSE(ws.bCusumMapping);
    EXPECT_EQ(ColourOf(5.5), White);
}

TEST_F(frmUnivariateTest, LeavesAClosedMapClosedWhenItCloses) {
    RunFields();
    Regions()->SetListIndex(0);
    EXPECT_TRUE(Graph.IsLoaded());
    Map.Frame()->close();
    Screen.Frame()->close();
    EXPECT_FALSE(Screen.IsLoaded() || Graph.IsLoaded() || Map.IsLoaded());
    EXPECT_FALSE(ws.bCusumMapping);
}

TEST_F(frmUnivariateTest, TakesTheSpeedWhenARunStarts) {
    for (const auto& [speed, yields] :
         {std::pair{"optMedium", "yield 120001\n"}, std::pair{"optSlow", "yield 300001\n"},
          std::pair{"optFast", "yield 2\n"}}) {
        Press(Screen, speed);
        Pick(2, 2);
        const size_t before = Script.Transcript().size();
        Run();
        EXPECT_EQ(Script.Transcript().substr(before),
                  std::string("pointer busy\n") + yields + "pointer normal\n");
    }
    EXPECT_EQ(ws.AnimationDelay, 1);
}

TEST_F(frmUnivariateTest, RunsWithZeroForReferenceAndThreshold) {
    Type(Screen, "txtKvalue", "0");
    Type(Screen, "txtHvalue", "0");
    RunFields();
    Periods()->SetListIndex(2);
    EXPECT_EQ(Rows(Regions()), (Texts{"    1.00 <---                 A", "    6.00 <---                 B"}));
    EXPECT_EQ(ColourOf(0.5), Red); // every positive cusum signals, and 0 is white
    EXPECT_EQ(ColourOf(5.5), White);
}

TEST_F(frmUnivariateTest, RunsASinglePeriod) {
    Pick(2, 2);
    Run();
    EXPECT_EQ(Rows(Periods()), (Texts{Titles, Rule, PeriodRows[2], Rule}));
    EXPECT_EQ(ws.CusumChartData.UpperBound1(), 0);
    EXPECT_EQ(Text(Screen, "lblY"), "1");
    Shot(Frame, "frmUnivariate_single");
}

TEST_F(frmUnivariateTest, EmptiesTheColumnsWithTheDataOption) {
    Pick(2, 4);
    Press(Screen, "optExistingTextfile");
    EXPECT_EQ(From()->Text() + To()->Text(), "");
    Press(Screen, "optFieldSelection");
    EXPECT_TRUE(From()->isEnabled());
    EXPECT_FALSE(To()->isEnabled());
    EXPECT_EQ(From()->Text() + To()->Text(), "");
    Script.ExpectMessage("Both start and end period should be determined.");
    Run();
}

TEST_F(frmUnivariateTest, EndsSavingWithAChangeOfTheStart) {
    RunFields();
    Press(Screen, "optPre");
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
    Press(Screen, "optZero");
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
    EXPECT_EQ(Rows(Periods()), PeriodRows); // what is shown stays
    EXPECT_TRUE(ws.bCusumMapping);
}

TEST_F(frmUnivariateTest, ColoursTheMapByThePeriodThatIsPicked) {
    RunFields();
    EXPECT_EQ(ColourOf(0.5), QColor(128, 128, 255)); // 5.5, above a half of 9.3
    EXPECT_EQ(ColourOf(5.5), Red);
    Periods()->SetListIndex(2);
    EXPECT_EQ(ColourOf(0.5), White);
    EXPECT_EQ(ColourOf(1.5), QColor(128, 128, 255));
    Map.Frame()->close();
    Periods()->SetListIndex(3); // which shows the map again
    EXPECT_TRUE(Map.isVisible() && Map.IsToolPressed("Graph"));
    EXPECT_EQ(ColourOf(1.5), Red);
    Periods()->SetListIndex(5); // the closing row
    EXPECT_EQ(ColourOf(1.5), White);
}

TEST_F(frmUnivariateTest, LabelsWithBothIdsWhereTheRecordsAreRead) {
    Screen.Unload();
    Open("NAME", "KEY");
    RunFields();
    const Texts labelled{Titles,
                         Rule,
                         "    1     5.50               B (8) ",
                         "    2    11.00               B (8) ",
                         "    3    10.00               C (9) ",
                         Rule};
    EXPECT_EQ(Rows(Periods()), labelled);
    EXPECT_EQ(Rows(Regions()), (Texts{"   10.00 <---            C (9) "}));
    Regions()->SetListIndex(0);
    EXPECT_EQ(Text(Graph, "Text1"), "C (9)  in 3: ---> 10.00");
    Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, Folder / "r.txt");
    Press(Screen, "cmdSaveResult");
    EXPECT_NE(ReadFile(Folder / "r.txt").find("            C (9) , \n"), std::string::npos);
    EXPECT_NE(ReadFile(Folder / "r.txt").find("\n" + std::string(30, ' ') + "C (9) ,  0.0000,"),
              std::string::npos);

    Press(Screen, "optExistingTextfile"); // the maxima carry the first id alone, the signals both
    ExpectText();
    Run();
    EXPECT_EQ(Rows(Periods()), PeriodRows);
    EXPECT_EQ(Rows(Regions()), (Texts{"   10.00 <---            C (9) "}));
    Regions()->SetListIndex(0);
    EXPECT_EQ(Text(Graph, "Text1"), "C (9)  in 3: ---> 10.00");
    Shot(Frame, "frmUnivariate_twoIds");
}
