#include "desktop/retrospective/frmClusterDetectionTextfile.h"

#include "core/retrospective/PointDataset.h"
#include "core/workspace/Workspace.h"
#include "desktop/retrospective/PointScreen.h"
#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/PlotWidget.h"
#include "desktop/toolkit/QtPlatform.h"
#include "pictures/LineChart.h"
#include "support/ProjectFolder.h"
#include "support/screens/PostedInput.h"
#include "support/screens/ScreenChecks.h"

#include <QLabel>
#include <filesystem>

using namespace vastrel;

namespace {

const std::string Sample = InProject("samples/country_pop.txt");

constexpr const char* Variables[] = {"optUnadjusted", "optAdjusted_Generic", "optStandard", "optRossi"};
constexpr const char* ChartParts[] = {"MSChart1", "picEachRegionInfo", "picMLegend", "txtXTitle"};

class PointScreen : public PointScreenTest {
protected:
    /// The two buttons of the state table: the run's and the save's.
    std::pair<bool, bool> Buttons() { return {IsEnabled(Screen, "cmdRun"), IsEnabled(Screen, "cmdSave")}; }
    int ChartPartsShown() {
        int shown = 0;
        for (const char* part : ChartParts)
            shown += IsShown(Screen, part) ? 1 : 0;
        return shown;
    }
    QImage Map() { return The_<PlotWidget>(Screen, "picPoint")->Picture(); }
    ComboBox* Alpha() { return The_<ComboBox>(Screen, "cboAlpha"); }

    using Enabled = std::pair<bool, bool>;
};

} // namespace

TEST_F(PointScreen, StandsAsDesigned) {
    ExpectCaptions(Screen, {{"frmClusterDetectionTextfile", "Cluster Detection --- Score and M test"},
                            {"fraVariables", "Variables"},
                            {"optUnadjusted", "Unadjusted"},
                            {"optAdjusted_Generic", "Adjusted - Poisson"},
                            {"optStandard", "Freeman-Tukey"},
                            {"optRossi", "Rossi"},
                            {"fraBandwidth", "Bandwidth"},
                            {"optSpatialSingleSigma", "Single value"},
                            {"optSpatialSigmaRange", "A range of values"},
                            {"txtSingleSigma", ""},
                            {"lblFrom", "from"},
                            {"txtFromSigma", "0.2"},
                            {"lblTo", "to"},
                            {"txtToSigma", "2.0"},
                            {"lblBy", "by"},
                            {"txtStep", "0.2"},
                            {"fraAlpha", "Alpha"},
                            {"cboAlpha", "0.05"},
                            {"fraEquation", "Expression of Variables"},
                            {"fraGlobal", "Global Pattern Summary"},
                            {"fraLocal", "Local Pattern Summary"},
                            {"fraChart", "Score/M statistics for a range of bandwidth"},
                            {"cmdRun", "&Run"},
                            {"cmdSave", "&Save"},
                            {"cmdExit", "&Exit"},
                            {"cmdLoadData", "&Load Data"},
                            {"txtXTitle", "Bandwidth(Sigma)"}});
    EXPECT_EQ(Buttons(), Enabled(false, false));
    EXPECT_EQ(ChartPartsShown(), 0);
    EXPECT_FALSE(IsShown(Screen, "imgM_Legend"));
    EXPECT_EQ(ws.AlphaLevel, 0.05);
    EXPECT_TRUE(The_<QAbstractButton>(Screen, "optUnadjusted")->isChecked());
    EXPECT_TRUE(The_<QAbstractButton>(Screen, "optSpatialSingleSigma")->isChecked());
    for (const char* tool : {"optZoomIn", "optZoomOut", "optPan", "optFullExtent", "optIdentify"})
        EXPECT_FALSE(The_<QAbstractButton>(Screen, tool)->isChecked()) << tool;
    ExpectAccessibleNames(Screen);
    ExpectTabOrder(Screen, {"cmdLoadData",
                            "optUnadjusted",
                            "optAdjusted_Generic",
                            "optStandard",
                            "optRossi",
                            "optSpatialSingleSigma",
                            "txtSingleSigma",
                            "optSpatialSigmaRange",
                            "txtFromSigma",
                            "txtToSigma",
                            "txtStep",
                            "cboAlpha",
                            "cmdRun",
                            "cmdSave",
                            "cmdExit",
                            "lstGlobalPatternSummary",
                            "lstLocalPatternSummary",
                            "optZoomIn",
                            "optZoomOut",
                            "optPan",
                            "optFullExtent",
                            "optIdentify"});
    Shot(Frame, "point-empty");
}

TEST_F(PointScreen, FitsIntoTheFrameAndKeepsItsMapAtItsSize) {
    EXPECT_LE(Screen.Frame()->width(), 1280);
    EXPECT_LE(Screen.Frame()->height(), screens().FrameSize().height());
    EXPECT_EQ(The_<PlotWidget>(Screen, "picPoint")->Size(), (SurfaceSize{5595, 4275, 369, 281}));
    Screen.Frame()->resize(Screen.Frame()->size() + QSize(200, 100));
    EXPECT_EQ(The_<PlotWidget>(Screen, "picPoint")->Size(), (SurfaceSize{5595, 4275, 369, 281}));
}

TEST_F(PointScreen, EnablesItsButtonsByItsStates) {
    EXPECT_EQ(Buttons(), Enabled(false, false));
    LoadFour();
    EXPECT_EQ(Buttons(), Enabled(true, false));
    RunSingle("1");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    for (const char* variable : {"optRossi", "optStandard", "optAdjusted_Generic", "optUnadjusted"}) {
        Press(Screen, variable);
        EXPECT_EQ(Buttons(), Enabled(true, false)) << variable;
        Press(Screen, "cmdRun");
        EXPECT_EQ(Buttons(), Enabled(true, true)) << variable;
    }
    Press(Screen, "optUnadjusted"); // selected already: no click
    Alpha()->SetListIndex(1);
    Press(Screen, "optSpatialSigmaRange"); // meant to do nothing at all
    EXPECT_EQ(Buttons(), Enabled(true, true));
    Press(Screen, "optSpatialSingleSigma");
    EXPECT_EQ(Buttons(), Enabled(true, false));
}

// What was run on one file is not saved beside the ids and counts of another.
TEST_F(PointScreen, EndsSavingWithAnotherDatasetUntilItIsRun) {
    LoadFour();
    RunSingle("1");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    LoadFour();
    EXPECT_EQ(Buttons(), Enabled(true, false));
    RunSingle("1");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    Press(Screen, "cmdLoadData"); // a load that is refused changes nothing
    Press(Dialog, "optObsExp");
    Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, Folder.Write("three.txt", "A,1,2\n"));
    Script.ExpectMessage(WrongPointFormat);
    Press(Dialog, "cmdContinue");
    EXPECT_EQ(Buttons(), Enabled(true, true));
}

TEST_F(PointScreen, TakesAlphaFromItsListAlsoTheSameAgain) {
    EXPECT_EQ(Alpha()->ListCount(), 2);
    Alpha()->SetListIndex(1);
    EXPECT_EQ(ws.AlphaLevel, 0.01);
    ws.AlphaLevel = 0.5;
    Alpha()->SetListIndex(1);
    EXPECT_EQ(ws.AlphaLevel, 0.01);
    Alpha()->SetListIndex(0);
    EXPECT_EQ(ws.AlphaLevel, 0.05);
}

TEST_F(PointScreen, RunsEachVariableWithOneBandwidth) {
    Load(Sample);
    const struct {
        const char* Option;
        int GlobalRows;
        bool MLegend;
    } rows[] = {{"optUnadjusted", 10, false},
                {"optAdjusted_Generic", 15, false},
                {"optStandard", 5, true},
                {"optRossi", 5, true}};
    for (const auto& [option, globalRows, legend] : rows) {
        Press(Screen, option);
        RunSingle("1");
        EXPECT_EQ(Global()->ListCount(), globalRows) << option;
        EXPECT_EQ(Local()->ListCount(), 207 + 4) << option;
        EXPECT_EQ(IsShown(Screen, "imgM_Legend"), legend) << option;
        EXPECT_FALSE(IsShown(Screen, "MSChart1"));
        EXPECT_TRUE(ws.bRetroMapping);
        EXPECT_FALSE(Script.BusyPointer());
        Local()->SetListIndex(65); // in the cluster
        Shot(Frame, std::string("point-single-") + option);
    }
    EXPECT_EQ(Script.YieldCalls(), 0);
}

TEST_F(PointScreen, KeepsListsAndMapWhenAnotherVariableIsChosen) {
    LoadFour();
    RunSingle("1");
    const auto global = Rows(Global()), local = Rows(Local());
    const QImage map = Map();
    Press(Screen, "optRossi");
    EXPECT_EQ(Rows(Global()), global);
    EXPECT_EQ(Rows(Local()), local);
    EXPECT_EQ(Map(), map);
}

TEST_F(PointScreen, RunsARange) {
    Load(Sample);
    Press(Screen, "optAdjusted_Generic");
    RunRange("0.2", "2.0", "0.2");
    EXPECT_EQ(Global()->ListCount(), 2 + 10 + 1);
    EXPECT_EQ(Local()->ListCount(), 0);
    EXPECT_EQ(ChartPartsShown(), 4);
    EXPECT_EQ(Text(Screen, "lblStats"), "Chi");
    EXPECT_EQ(Text(Screen, "lblCriticalStats"), "Chi*");
    EXPECT_EQ(The_<LineChart>(Screen, "MSChart1")->Spoken(), "Line chart of Chi and Chi* over 10 rows.");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_TRUE(ws.bRetroMapping);
    EXPECT_FALSE(Script.BusyPointer());
    Global()->SetListIndex(6);
    Shot(Frame, "point-range");
    Press(Screen, "optStandard");
    Press(Screen, "cmdRun");
    EXPECT_EQ(Text(Screen, "lblStats"), "M");
    EXPECT_EQ(Text(Screen, "lblCriticalStats"), "M*");
    Press(Screen, "optSpatialSingleSigma"); // closes the chart
    EXPECT_EQ(ChartPartsShown(), 0);
}

TEST_F(PointScreen, ShowsTheStepOfASweepThatIsPicked) {
    LoadFour();
    Press(Screen, "optStandard");
    RunRange("0.5", "1.5", "0.5");
    const QImage plain = Map();
    for (const int row : {2, 3, 4}) {
        Global()->SetListIndex(row);
        EXPECT_EQ(ws.CurrentSigma, ws.BandwidthList(row - 2));
        for (int i = 1; i <= 4; ++i)
            EXPECT_EQ(ws.DisplayDrawValues(i), ws.StatisticTable(i, row - 2));
        EXPECT_TRUE(IsShown(Screen, "imgM_Legend"));
        EXPECT_NE(Map(), plain);
    }
    for (const int row : {0, 1, 5}) { // heading, dashes, dashes: the plain map
        Global()->SetListIndex(2);
        Global()->SetListIndex(row);
        EXPECT_EQ(Map(), plain) << row;
        EXPECT_EQ(ws.DisplayDrawValues(1), 0);
    }
    Press(Screen, "optUnadjusted");
    Global()->SetListIndex(2);
    EXPECT_FALSE(IsShown(Screen, "imgM_Legend"));
}

TEST_F(PointScreen, EmptiesTheDisplayArraysAtAClickOnASingleRunsRow) {
    LoadFour();
    Press(Screen, "optStandard");
    RunSingle("1");
    const QImage map = Map();
    EXPECT_NE(ws.DisplayDrawValues(1), 0);
    Global()->SetListIndex(1);
    EXPECT_EQ(ws.DisplayDrawValues(1), 0);
    EXPECT_EQ(Map(), map);
    Press(Screen, "optSpatialSigmaRange"); // no sweep was run on these points: plain
    Global()->SetListIndex(2);
    EXPECT_NE(Map(), map);
}

TEST_F(PointScreen, MarksTheRegionOfALocalRow) {
    LoadFour();
    RunSingle("1");
    const QImage map = Map();
    const auto green = [this] {
        const QImage shown = Map();
        int count = 0;
        for (int y = 0; y < shown.height(); ++y)
            for (int x = 0; x < shown.width(); ++x)
                count += shown.pixelColor(x, y) == QColor(0, 255, 0) ? 1 : 0;
        return count;
    };
    for (const int row : {0, 1, 2, 7}) { // dashes, heading, dashes; dashes at the end
        Local()->SetListIndex(row);
        EXPECT_EQ(Map(), map) << row;
    }
    QImage before = map;
    for (const int row : {3, 4, 5, 6}) {
        Local()->SetListIndex(row);
        EXPECT_GT(green(), 0) << row;
        EXPECT_NE(Map(), before) << row;
        before = Map();
        Local()->SetListIndex(row);
        EXPECT_EQ(Map(), before) << "the same row marks again";
    }
}

// Each refusal leaves the lists empty, cmdSave as it was and the pointer normal; the next run works.
TEST_F(PointScreen, RefusesABandwidthThatIsNone) {
    LoadFour();
    RunSingle("1");
    for (const auto& [text, message] : {std::pair{"-0.5", "Bandwidth should not be negative."},
                                        {"", "Bandwidth should be numerical."},
                                        {"0,5", "Bandwidth should be numerical."},
                                        {"nan", "Bandwidth should be numerical."}}) {
        ws.CurrentSigma = 7;
        Script.ExpectMessage(message);
        RunSingle(text);
        EXPECT_EQ(Global()->ListCount(), 0) << text;
        EXPECT_EQ(Local()->ListCount(), 0) << text;
        EXPECT_EQ(Buttons(), Enabled(true, true)) << text;
        EXPECT_FALSE(Script.BusyPointer()) << text;
        EXPECT_EQ(ws.CurrentSigma, 7) << text;
    }
    RunSingle(" +1e0 ");
    EXPECT_EQ(ws.CurrentSigma, 1);
    EXPECT_EQ(Local()->ListCount(), 8);
}

TEST_F(PointScreen, RefusesARangeThatIsNone) {
    LoadFour();
    constexpr const char* numeric = "A range of bandwidth parameters should be numeric.";
    constexpr const char* invalid = "Ivalid range of bandwidth was input. Check the parameters!";
    const struct {
        const char *From, *To, *Step, *Message;
    } rows[] = {{"", "2", "0.2", numeric},   {"0.2", "x", "0.2", numeric}, {"0.2", "2", "", numeric},
                {"-0.1", "2", "1", invalid}, {"0", "0", "1", invalid},     {"2", "2", "1", invalid},
                {"2", "1", "1", invalid},    {"0.2", "2", "0", invalid},   {"0.2", "2", "-1", invalid}};
    for (const auto& [from, to, step, message] : rows) {
        Script.ExpectMessage(message);
        RunRange(from, to, step);
        EXPECT_EQ(Global()->ListCount(), 0);
        EXPECT_EQ(Buttons(), Enabled(true, false));
        EXPECT_EQ(ChartPartsShown(), 0);
        EXPECT_FALSE(Script.BusyPointer());
    }
    RunRange("0", "1", "0.4"); // round(3.5) = 4 steps; the last one overshoots and shows the end
    EXPECT_EQ(Global()->ListCount(), 2 + 4 + 1);
    EXPECT_EQ(ws.BandwidthList(3), 1.0);
    EXPECT_EQ(Buttons(), Enabled(true, true));
}

TEST_F(PointScreen, StopsBeforeItBeginsWhereThereAreTooManySteps) {
    LoadFour();
    Script.ExpectRunTimeError(6);
    RunRange("0", "1", "0.00001");
    EXPECT_EQ(Global()->ListCount(), 0);
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(Buttons(), Enabled(true, false));
}

TEST_F(PointScreen, StopsAtADivisionByZeroWithThePointerBusyAndRunsAgain) {
    Load(Folder.Write("nobody.txt", "A,0,0,0,5\nB,4,0,200,1\nC,0,3,300,1\n")); // cases where nobody lives
    Press(Screen, "optAdjusted_Generic");
    Script.ExpectRunTimeError(11);
    RunSingle("1");
    EXPECT_EQ(Global()->ListCount(), 0);
    EXPECT_EQ(Local()->ListCount(), 0);
    EXPECT_EQ(Buttons(), Enabled(true, false));
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_FALSE(ws.bRetroMapping);
    Script.ExpectRunTimeError(11);
    RunRange("0.2", "2", "0.2"); // the title rows stand, the first bandwidth does not
    EXPECT_EQ(Global()->ListCount(), 2);
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(ChartPartsShown(), 0);
    Load(Folder.Write("no-cases.txt", "A,0,0,100,0\nB,4,0,200,0\nC,0,3,300,0\n"));
    Script.ExpectRunTimeError(5); // the sweep begins with the deviations: 0 / 0
    RunRange("0.2", "2", "0.2");
    EXPECT_TRUE(Script.BusyPointer());
    LoadFour();
    RunSingle("1");
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(Local()->ListCount(), 8);
}

TEST_F(PointScreen, RunsASinglePointAndStopsAtTwoWithoutAnArea) {
    Load(Folder.Write("one.txt", "A,1,2,3,4\n"), "optObsExp");
    Press(Screen, "optStandard");
    Script.ExpectMessage("Error!"); // M* is out of range for one Region: in the list, then in the legend
    Script.ExpectMessage("Error!");
    RunSingle("5");
    EXPECT_EQ(Local()->ListCount(), 5);
    Load(Folder.Write("two.txt", "A,1,2,3,4\nB,5,2,3,4\n"), "optObsExp");
    Script.ExpectRunTimeError(11);
    RunSingle("1");
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(Local()->ListCount(), 0);
}

// x = 4 alpha (1 + 0.81 sigma^2) / N is above 1 here, so that M* does not exist.
TEST_F(PointScreen, GoesOnWithoutACriticalValue) {
    LoadFour();
    Press(Screen, "optStandard");
    Script.ExpectMessage("Error!");
    Script.ExpectMessage("Error!");
    RunSingle("6");
    EXPECT_EQ(Global()->List(3), "M Critical (M*) = 0.000");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_FALSE(Script.BusyPointer());
}

TEST_F(PointScreen, SavesTheReportOfTheModeOfTheMoment) {
    LoadFour();
    Press(Screen, "optStandard");
    RunSingle("1");
    Save(Folder / "single.txt");
    EXPECT_NE(ReadFile(Folder / "single.txt").find("A"), std::string::npos);
    EXPECT_EQ(Buttons(), Enabled(true, true)); // may be saved again
    RunRange("0.5", "1.5", "0.5");
    Save(Folder / "range.txt");
    EXPECT_NE(ReadFile(Folder / "range.txt"), ReadFile(Folder / "single.txt"));
}

TEST_F(PointScreen, WritesNothingAfterACancelAndReportsAFileThatCannotBe) {
    LoadFour();
    RunSingle("1");
    const auto rows = Rows(Local());
    Save("");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    Folder.Write("taken", "");
    std::filesystem::create_directory(Folder / "folder");
    Script.ExpectFile(FileQuestion::Kind::Save, SaveFilter, Folder / "folder");
    Script.ExpectRunTimeError(75);
    Press(Screen, "cmdSave");
    EXPECT_EQ(Rows(Local()), rows);
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_FALSE(Script.BusyPointer());
    Save(Folder / "report.txt");
    EXPECT_FALSE(ReadFile(Folder / "report.txt").empty());
}

TEST_F(PointScreen, DrawsPlainPointsOfANewDatasetUntilItIsRun) {
    LoadFour();
    RunSingle("1");
    Load(Folder.Write("more.txt", "A,0,0,4,5\nB,4,0,9,6\nC,0,3,2,4\nD,4,3,5,5\nE,2,2,5,5\n"), "optObsExp");
    const auto rows = Rows(Local()); // still the rows of the four
    Local()->SetListIndex(3);
    EXPECT_EQ(Rows(Local()), rows);
    RunSingle("1");
    EXPECT_EQ(Local()->ListCount(), 9);
}

TEST_F(PointScreen, GoesAndComesBackAsNew) {
    LoadFour();
    Press(Screen, "optRossi");
    RunRange("0.5", "1.5", "0.5");
    Press(Screen, "cmdExit");
    EXPECT_FALSE(Screen.IsLoaded());
    Command("mnuOpenTextRetro");
    EXPECT_EQ(Buttons(), Enabled(false, false));
    EXPECT_EQ(Global()->ListCount(), 0);
    EXPECT_EQ(Alpha()->ListCount(), 2);
    EXPECT_EQ(ChartPartsShown(), 0);
    EXPECT_EQ(Text(Screen, "txtFromSigma"), "0.2");
    EXPECT_TRUE(The_<QAbstractButton>(Screen, "optUnadjusted")->isChecked());
    QImage white = Map();
    white.fill(Qt::white);
    EXPECT_EQ(Map(), white);
    LoadFour();
    RunSingle("1");
    EXPECT_EQ(Local()->ListCount(), 8);
}

TEST_F(PointScreen, EnablesTheRunOfANewScreenWhereTheOldOneWasClosedBelowTheDialog) {
    Press(Screen, "cmdLoadData");
    Press(Screen, "cmdExit");
    Press(Dialog, "optObsExp");
    Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, Folder.Write("one.txt", "A,1,2,3,4\n"));
    Press(Dialog, "cmdContinue");
    EXPECT_TRUE(Screen.IsLoaded());
    EXPECT_FALSE(Screen.isVisible()); // loaded is not shown
    EXPECT_TRUE(IsEnabled(Screen, "cmdRun"));
}

TEST_F(PointScreen, RunsOnEnterAndStaysAtEscape) {
    LoadFour();
    Type(Screen, "txtSingleSigma", "1");
    Key(Screen, "txtSingleSigma", Qt::Key_Return);
    EXPECT_EQ(Local()->ListCount(), 8);
    Key(Screen, "txtSingleSigma", Qt::Key_Escape);
    EXPECT_TRUE(Screen.IsLoaded());
}

// What is clicked while a run computes is dropped: no second run, and the screen with its results stays.
TEST_F(PointScreen, TakesNoInputWhileItComputes) {
    LoadFour();
    EXPECT_EQ(Script.DroppedInputs(), 1); // while the file was read
    Press(Screen, "optSpatialSingleSigma");
    Type(Screen, "txtSingleSigma", "1");
    ServeEvents();
    QtPlatform desktop;
    SetPlatform(&desktop);
    const int before = Screen.Generation();
    const auto clickMeanwhile = [this] {
        PostClick(*The_<QAbstractButton>(Screen, "cmdRun"));
        PostClick(*The_<QAbstractButton>(Screen, "cmdExit"));
    };
    clickMeanwhile();
    Press(Screen, "cmdRun");
    ServeEvents();
    EXPECT_EQ(Screen.Generation(), before + 1);
    EXPECT_TRUE(Screen.IsLoaded());
    EXPECT_EQ(Local()->ListCount(), 8);

    Press(Screen, "optSpatialSigmaRange");
    clickMeanwhile();
    Press(Screen, "cmdRun");
    ServeEvents();
    EXPECT_EQ(Screen.Generation(), before + 2);
    EXPECT_TRUE(Screen.IsLoaded());

    PostClick(*The_<QAbstractButton>(Screen, "cmdExit")); // with nothing computing it is served
    ServeEvents();
    EXPECT_FALSE(Screen.IsLoaded());
    SetPlatform(&Script);
}
