#include "prospective/screens/PolygonWatchScreen.h"
#include "support/screens/ScreenChecks.h"

#include <functional>

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
    Open(2);
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

TEST_F(frmUnivariateTest, SavesItsFiles) {
    RunFields();
    Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, "");
    Press(Screen, "cmdSaveResult"); // a cancel ends it
    EXPECT_TRUE(CanSaveResult());
    Script.ExpectFile(FileQuestion::Kind::Save, TextFilter, Folder / "r.txt");
    Press(Screen, "cmdSaveResult");
    EXPECT_FALSE(CanSaveResult());
    EXPECT_TRUE(CanSaveCusum());
    EXPECT_NE(ReadFile(Folder / "r.txt").find("C,  0.0000,  1.5000, 10.0000, "), std::string::npos);
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "c.csm");
    Press(Screen, "cmdSaveCusum");
    EXPECT_EQ(ReadFile(Folder / "c.csm"), "period1,period2,period3,\n0.5,1,5.5,\n5.5,11,8.5,\n0,1.5,10,\n");
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
}

TEST_F(frmUnivariateTest, WritesEmptyLinesBeforeAnyRun) {
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "c.csm");
    Press(Screen, "cmdSaveCusum");
    EXPECT_EQ(ReadFile(Folder / "c.csm"), "\n\n\n\n"); // the header and a line for each record
}

TEST_F(frmUnivariateTest, LeavesThePlainMapWhenItCloses) {
    RunFields();
    Screen.Frame()->close();
    EXPECT_FALSE(Screen.IsLoaded());
    EXPECT_FALSE(IsShown(Map, "picLegend"));
    EXPECT_FALSE(Map.IsToolPressed("Graph"));
    EXPECT_FALSE(ws.bCusumMapping);
}

TEST_F(frmUnivariateTest, StaysAsItStoodWhenAnotherDatasetIsOpened) {
    RunFields();
    Open();
    EXPECT_EQ(Rows(Periods()), PeriodRows);
    EXPECT_EQ(From()->ListCount(), 2 * FieldCount);
}

TEST_F(frmUnivariateTest, EndsQuietlyWhereTheScreenOrItsRunIsGone) {
    for (const int wait : {1, 2, 3}) {
        Pick(2, 4);
        Script.AtYield(wait, [this] { Screen.Frame()->close(); });
        Run();
        EXPECT_FALSE(Screen.IsLoaded());
        EXPECT_FALSE(Script.BusyPointer());
        EXPECT_FALSE(ws.bCusumMapping);
        Screen.Show();

        Pick(2, 4);
        Script.AtYield(wait, [this] { Run(); });
        Run();
        EXPECT_EQ(Rows(Periods()), PeriodRows) << wait;
        EXPECT_FALSE(Script.BusyPointer());
        EXPECT_TRUE(ws.bCusumMapping);
    }
}

TEST_F(frmUnivariateTest, PlaysOnWhereOnlyTheMapOrAListIsTouched) {
    const std::function<void()> events[] = {
        [this] { Map.Frame()->close(); }, [this] { Map.Frame()->resize(400, 300); },
        [this] { Periods()->SetListIndex(0); }, [this] { Graph.Frame()->close(); },
        [this] { Press(Screen, "optPre"); }};
    for (const auto& event : events)
        for (const int wait : {1, 2, 3}) {
            Press(Screen, "optZero");
            Pick(2, 4);
            Script.AtYield(wait, event);
            Run();
            EXPECT_EQ(Rows(Periods()), PeriodRows);
            EXPECT_TRUE(Map.IsLoaded() && ws.bCusumMapping && CanSaveCusum());
            EXPECT_FALSE(Script.BusyPointer());
        }
}
