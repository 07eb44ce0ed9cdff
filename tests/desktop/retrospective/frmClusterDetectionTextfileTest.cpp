#include "desktop/retrospective/frmClusterDetectionTextfile.h"

#include "core/retrospective/PointDataset.h"
#include "core/workspace/Workspace.h"
#include "desktop/retrospective/PointScreen.h"
#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/QtPlatform.h"
#include "support/screens/FullDisk.h"
#include "support/screens/PostedInput.h"
#include "support/screens/ScreenChecks.h"

#include <filesystem>

using namespace vastrel;

namespace {

class PointScreen : public PointScreenTest {
protected:
    ComboBox* Alpha() { return The_<ComboBox>(Screen, "cboAlpha"); }
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
    Shot(Frame, "point-empty");
}

TEST_F(PointScreen, TabsFromTheDataToTheMap) {
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

TEST_F(PointScreen, SavesTheReportOfTheModeOfTheMoment) {
    LoadFour();
    Press(Screen, "optStandard");
    RunSingle("1");
    Save(Folder / "single.txt");
    EXPECT_NE(ReadFile(Folder / "single.txt").find("A"), std::string::npos);
    EXPECT_EQ(Buttons(), Enabled(true, true)); // may be saved again
    EXPECT_EQ(Script.DroppedInputs(), 2);      // while the dataset was read, and while the report was written
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

TEST_F(PointScreen, LeavesTheOldReportOnAFullDisk) {
    LoadFour();
    RunSingle("1");
    ExpectOldFileOnAFullDisk(Script, SaveFilter, ".txt", DiskFullError, [this] { Press(Screen, "cmdSave"); });
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_FALSE(Script.BusyPointer());
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
