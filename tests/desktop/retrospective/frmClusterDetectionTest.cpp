#include "desktop/retrospective/frmClusterDetection.h"

#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/FullDisk.h"
#include "support/screens/ScreenChecks.h"

using namespace vastrel;

namespace {

constexpr const char* Variables[] = {"optUnadjusted", "optAdjusted_Generic", "optStandard", "optRossi"};

class frmClusterDetectionTest : public RetroPolygonTest {
protected:
    frmClusterDetectionTest() { OpenSample(); }

    /// The two buttons of the state table: the run's and the save's.
    using Enabled = std::pair<bool, bool>;
    Enabled Buttons() { return {IsEnabled(Retro, "cmdRun"), IsEnabled(Retro, "cmdSave")}; }

    void Sweep(const char* variable = "optUnadjusted") { RunRange(variable, "0.5", "1.5", "0.5"); }

    QColor ColourOf(int region) { return ColourAt(Picture(), ws.RegionCentroid(region)); }
    /// The Regions of the country that are painted yellow.
    std::vector<int> Yellow() {
        std::vector<int> regions;
        for (int i = 1; i <= ws.NumRegion; ++i)
            if (ColourOf(i) == QColor(255, 255, 0)) regions.push_back(i);
        return regions;
    }
    /// Takes the shapefile away, and puts it back.
    void TakeFileAway() { std::filesystem::rename(Folder / "country.shp", Folder / "away"); }
    void PutFileBack() { std::filesystem::rename(Folder / "away", Folder / "country.shp"); }
};

} // namespace

TEST_F(frmClusterDetectionTest, StandsAsDesigned) {
    ExpectCaptions(Retro, {{"frmClusterDetection", "Cluster Detection --- Score and M Statistic"},
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
                           {"cmdRun", "&Run"},
                           {"cmdSave", "&Save"},
                           {"cmdExit", "&Exit"},
                           {"cmdDataReset", "&Reset Data"}});
    EXPECT_EQ(Buttons(), Enabled(true, false));
    EXPECT_TRUE(The_<QAbstractButton>(Retro, "optUnadjusted")->isChecked());
    EXPECT_TRUE(The_<QAbstractButton>(Retro, "optSpatialSingleSigma")->isChecked());
    EXPECT_EQ(Entries(Retro, "cboAlpha"), (Names{"0.05", "0.01"}));
    EXPECT_EQ(ws.AlphaLevel, 0.05);
    ExpectAccessibleNames(Retro);
    ExpectTabOrder(Retro, {"cmdDataReset", "optUnadjusted", "optAdjusted_Generic", "optStandard", "optRossi",
                           "optSpatialSingleSigma", "txtSingleSigma", "optSpatialSigmaRange", "txtFromSigma",
                           "txtToSigma", "txtStep", "cboAlpha", "cmdRun", "cmdSave", "cmdExit",
                           "lstGlobalPatternSummary", "lstLocalPatternSummary"});
    EXPECT_LE(Retro.Frame()->height(), screens().FrameSize().height());
    Shot(Frame, "polygon-plain");
}

TEST_F(frmClusterDetectionTest, EnablesItsButtonsByItsStates) {
    RunSingle("optUnadjusted", "1");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    for (const char* variable : {"optRossi", "optStandard", "optAdjusted_Generic", "optUnadjusted"}) {
        Press(Retro, variable);
        EXPECT_EQ(Buttons(), Enabled(true, false)) << variable;
        Press(Retro, "cmdRun");
        EXPECT_EQ(Buttons(), Enabled(true, true)) << variable;
    }
    Press(Retro, "optUnadjusted"); // selected already: no click
    Alpha()->SetListIndex(1);
    EXPECT_EQ(ws.AlphaLevel, 0.01);
    EXPECT_EQ(Buttons(), Enabled(true, true));
    Press(Retro, "optSpatialSigmaRange");
    EXPECT_EQ(Buttons(), Enabled(true, false));
    Press(Retro, "cmdRun");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    Press(Retro, "optSpatialSingleSigma");
    EXPECT_EQ(Buttons(), Enabled(true, false));
}

TEST_F(frmClusterDetectionTest, MapsEachVariableOfASingleRun) {
    const struct {
        const char* Option;
        int GlobalRows;
        const Array1<double>& Values;
        bool MLegend;
    } rows[] = {{"optUnadjusted", 10, ws.LocalU, false},
                {"optAdjusted_Generic", 15, ws.LocalUAdjusted, false},
                {"optStandard", 5, ws.LocalM, true},
                {"optRossi", 5, ws.LocalM, true}};
    for (const auto& [option, globalRows, values, legend] : rows) {
        Sweep(option); // whose traces go
        Tool("MapAnimation")->trigger();
        RunSingle(option, "1");
        EXPECT_EQ(Global()->ListCount(), globalRows) << option;
        EXPECT_EQ(Local()->ListCount(), 207 + 4) << option;
        EXPECT_EQ(IsShown(MapWindow, "imgM_Legend"), legend) << option;
        EXPECT_FALSE(IsShown(MapWindow, "sliderStatsRange"));
        EXPECT_FALSE(IsShown(MapWindow, "lblAni"));
        EXPECT_TRUE(ws.bRetroMapping);
        EXPECT_TRUE(Tool("Find")->isEnabled());
        EXPECT_TRUE(Tool("Find")->isChecked());
        EXPECT_FALSE(Tool("MapAnimation")->isEnabled());
        EXPECT_FALSE(Script.BusyPointer());
        const QImage shown = Picture();
        EXPECT_EQ(shown, ClassesOf(values)) << option;
        EXPECT_FALSE(IsWhite(Print()));
        Shot(Frame, std::string("polygon-single-") + option);
    }
}

TEST_F(frmClusterDetectionTest, RunsARangeOverAPlainMap) {
    RunSingle("optRossi", "1"); // whose colours and legend go
    Sweep("optRossi");
    EXPECT_EQ(Global()->ListCount(), 2 + 3 + 1);
    EXPECT_EQ(Local()->ListCount(), 0);
    EXPECT_TRUE(ws.bRetroMapping);
    EXPECT_FALSE(Tool("Find")->isEnabled());
    EXPECT_FALSE(Tool("Find")->isChecked());
    EXPECT_TRUE(Tool("MapAnimation")->isEnabled());
    EXPECT_FALSE(IsShown(MapWindow, "imgM_Legend"));
    EXPECT_TRUE(IsWhite(Print()));
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(ws.CurrentSigma, 2);
    const QImage shown = Picture();
    EXPECT_EQ(shown, Outlines());
    EXPECT_EQ(Script.YieldCalls(), 0);
    Shot(Frame, "polygon-range");
}

TEST_F(frmClusterDetectionTest, ShowsTheStepOfASweepThatIsPicked) {
    Sweep("optStandard");
    for (const int row : {4, 2, 3}) {
        Global()->SetListIndex(row);
        EXPECT_EQ(ws.CurrentSigma, ws.BandwidthList(row - 2));
        const auto values = StepValues(row - 2);
        EXPECT_EQ(ws.DisplayDrawValues, values);
        EXPECT_TRUE(IsShown(MapWindow, "imgM_Legend"));
        const QImage shown = Picture();
        EXPECT_EQ(shown, ClassesOf(values));
    }
    Shot(Frame, "polygon-range-row");
    for (const int row : {0, 1, 5}) { // heading, dashes, dashes: the plain map
        Global()->SetListIndex(2);
        Global()->SetListIndex(row);
        EXPECT_EQ(ws.DisplayDrawValues(1), 0);
        EXPECT_EQ(ws.CurrentSigma, 0.5);
        const QImage shown = Picture();
        EXPECT_EQ(shown, Outlines()) << row;
        EXPECT_TRUE(IsShown(MapWindow, "imgM_Legend")); // in both cases
    }
    Press(Retro, "optUnadjusted");
    Global()->SetListIndex(2);
    EXPECT_FALSE(IsShown(MapWindow, "imgM_Legend"));
}

TEST_F(frmClusterDetectionTest, EmptiesTheDisplayArraysAtAClickOnASingleRunsRow) {
    RunSingle("optStandard", "1");
    const QImage map = Picture();
    EXPECT_NE(ws.DisplayDrawValues(1), 0);
    Global()->SetListIndex(3);
    EXPECT_EQ(ws.DisplayDrawValues(1), 0);
    EXPECT_EQ(ws.DisplayClassValues(1), 0);
    EXPECT_EQ(ws.DisplayDrawValues.UpperBound(), 207);
    EXPECT_EQ(Picture(), map);
    Press(Retro, "optSpatialSigmaRange"); // no sweep was run: plain
    Global()->SetListIndex(3);
    const QImage shown = Picture();
    EXPECT_EQ(shown, Outlines());
}

TEST_F(frmClusterDetectionTest, HighlightsTheRegionOfALocalRow) {
    RunSingle("optUnadjusted", "1");
    for (const int region : {1, 60, 207}) {
        Local()->SetListIndex(region + 2); // three title rows; the first Region stands in row 3
        EXPECT_EQ(Yellow(), std::vector<int>{region});
        EXPECT_EQ(ColourOf(region == 60 ? 1 : 60), QColor(255, 255, 255));
    }
    Shot(Frame, "polygon-highlight");
    for (const int row : {0, 1, 2, 210}) { // dashes, heading, dashes; dashes at the end: all white
        Local()->SetListIndex(row);
        EXPECT_EQ(Yellow(), std::vector<int>{}) << row;
        EXPECT_EQ(ColourOf(60), QColor(255, 255, 255)) << row;
    }
    EXPECT_FALSE(IsWhite(Print())); // the legend stays
}

// ---- Refusals and faults

TEST_F(frmClusterDetectionTest, RefusesABandwidthThatIsNone) {
    RunSingle("optStandard", "1");
    for (const auto& [text, message] : {std::pair{"-0.5", "Bandwidth should not be negative."},
                                        {"", "Bandwidth should be numerical."},
                                        {"0,5", "Bandwidth should be numerical."}}) {
        ws.CurrentSigma = 7;
        Script.ExpectMessage(message);
        RunSingle("optStandard", text);
        EXPECT_EQ(Global()->ListCount(), 0) << text;
        EXPECT_EQ(Local()->ListCount(), 0) << text;
        EXPECT_EQ(Buttons(), Enabled(true, true)) << text;
        EXPECT_FALSE(Script.BusyPointer()) << text;
        EXPECT_EQ(ws.CurrentSigma, 7) << text;
        // The map was cleared before.
        EXPECT_FALSE(IsShown(MapWindow, "imgM_Legend"));
        EXPECT_TRUE(IsWhite(Print()));
        const QImage shown = Picture();
        EXPECT_EQ(shown, Outlines());
    }
    RunSingle("optStandard", "0"); // each Region alone
    EXPECT_EQ(ws.CurrentSigma, 0.00000001);
    EXPECT_EQ(Local()->ListCount(), 211);
}

TEST_F(frmClusterDetectionTest, RefusesARangeThatIsNone) {
    Sweep();
    const struct {
        const char *From, *To, *Step, *Message;
    } rows[] = {{"", "2", "0.2", "A range of bandwidth parameters should be numeric."},
                {"2", "2", "1", "Ivalid range of bandwidth was input. Check the parameters!"}};
    for (const auto& [from, to, step, message] : rows) {
        Script.ExpectMessage(message);
        RunRange("optUnadjusted", from, to, step);
        EXPECT_EQ(Global()->ListCount(), 0);
        EXPECT_EQ(Buttons(), Enabled(true, true)); // unchanged
        EXPECT_TRUE(Chart.IsLoaded());
        EXPECT_TRUE(Tool("MapAnimation")->isEnabled());
        EXPECT_FALSE(Script.BusyPointer());
        const QImage shown = Picture();
        EXPECT_EQ(shown, Outlines());
    }
}

TEST_F(frmClusterDetectionTest, StopsWhereTheShapefileIsGone) {
    RunSingle("optUnadjusted", "1");
    TakeFileAway();
    Script.ExpectRunTimeError(53); // at the first clearing of the map, before the lists are cleared
    RunSingle("optUnadjusted", "2");
    EXPECT_EQ(Local()->ListCount(), 211);
    EXPECT_EQ(ws.CurrentSigma, 1);
    EXPECT_FALSE(Script.BusyPointer());
    Script.ExpectRunTimeError(53);
    MapWindow.resize(MapWindow.size() + QSize(20, 20));
    Script.ExpectRunTimeError(53);
    Tool("FullExt")->trigger();
    PutFileBack();
    RunSingle("optUnadjusted", "2");
    EXPECT_EQ(ws.CurrentSigma, 2);
    EXPECT_EQ(Buttons(), Enabled(true, true));
}

TEST_F(frmClusterDetectionTest, IsUnloadedAlsoWhereTheMapCannotBeCleared) {
    RunSingle("optUnadjusted", "1");
    TakeFileAway();
    Script.ExpectRunTimeError(53);
    Press(Retro, "cmdExit");
    EXPECT_FALSE(Retro.IsLoaded());
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_FALSE(Tool("Find")->isEnabled());
    EXPECT_TRUE(MapWindow.IsLoaded()); // the command stopped there
    PutFileBack();
}

// ---- The map is closed

TEST_F(frmClusterDetectionTest, ShowsAClosedMapAtTheNextRun) {
    for (const bool range : {false, true}) {
        MapWindow.Frame()->close();
        range ? Sweep() : RunSingle("optUnadjusted", "1");
        EXPECT_TRUE(MapWindow.isVisible());
        EXPECT_TRUE(Frame.Entry("mnuAttTable")->isEnabled());
        EXPECT_EQ(Tool("Find")->isChecked(), !range);
        EXPECT_EQ(Tool("MapAnimation")->isEnabled(), range);
        const QImage shown = Picture();
        EXPECT_EQ(shown, range ? Outlines() : ClassesOf(ws.LocalU));
    }
}

TEST_F(frmClusterDetectionTest, ShowsAClosedMapAtAClickOnARow) {
    RunSingle("optUnadjusted", "1");
    MapWindow.Frame()->close();
    Local()->SetListIndex(62);
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_FALSE(Tool("Find")->isEnabled()); // as the window begins
}

TEST_F(frmClusterDetectionTest, ShowsAClosedMapAlsoAfterADrawingThatFailed) {
    RunSingle("optUnadjusted", "1");
    MapWindow.Frame()->close();
    TakeFileAway();
    Script.ExpectRunTimeError(53);
    Press(Retro, "cmdRun");
    PutFileBack();
    Press(Retro, "cmdRun");
    EXPECT_TRUE(MapWindow.isVisible());
    const QImage shown = Picture();
    EXPECT_EQ(shown, ClassesOf(ws.LocalU));
}

// ---- Leaving

TEST_F(frmClusterDetectionTest, LeavesThePlainMapWhereItIsClosedByItsWindow) {
    RunSingle("optRossi", "1");
    Retro.Frame()->close();
    EXPECT_FALSE(Retro.IsLoaded());
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_FALSE(Tool("Find")->isEnabled());
    EXPECT_FALSE(Tool("Find")->isChecked());
    EXPECT_TRUE(IsWhite(Print()));
    const QImage shown = Picture();
    EXPECT_EQ(shown, Outlines());
}

TEST_F(frmClusterDetectionTest, TakesTheAnimationAwayWhereItIsClosed) {
    Sweep();
    Tool("MapAnimation")->trigger();
    Retro.Frame()->close();
    EXPECT_FALSE(Tool("MapAnimation")->isEnabled());
    EXPECT_FALSE(IsShown(MapWindow, "sliderStatsRange"));
    EXPECT_FALSE(IsShown(MapWindow, "lblAni"));
    EXPECT_FALSE(Chart.IsLoaded());
}

TEST_F(frmClusterDetectionTest, TakesTheMapAwayWithExit) {
    Sweep();
    Press(Retro, "cmdExit");
    EXPECT_FALSE(Retro.IsLoaded());
    EXPECT_FALSE(MapWindow.IsLoaded());
    EXPECT_FALSE(Chart.IsLoaded());
    EXPECT_TRUE(Frame.isVisible());
}

TEST_F(frmClusterDetectionTest, DrawsNothingOnAMapThatWasClosedBefore) {
    RunSingle("optRossi", "1");
    MapWindow.Frame()->close();
    Retro.Frame()->close();
    EXPECT_FALSE(MapWindow.IsLoaded());
    EXPECT_FALSE(ws.bRetroMapping);
}

// ---- Reset of the data while results stand

TEST_F(frmClusterDetectionTest, KeepsListsAndMapWhileTheDataAreReset) {
    RunSingle("optStandard", "1");
    const auto rows = Rows(Local());
    const QImage map = Picture();
    Press(Retro, "cmdDataReset");
    EXPECT_FALSE(Parameter.isModal());
    Local()->SetListIndex(62); // the screen is live meanwhile
    EXPECT_EQ(Yellow(), std::vector<int>{60});
    Alpha()->SetListIndex(1);
    Bind({"", "", "CASES", "EXPECTED", "NAME", ""});
    EXPECT_EQ(Rows(Local()), rows);
    EXPECT_EQ(Buttons(), Enabled(true, false));
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_EQ(ws.AlphaLevel, 0.05);
    EXPECT_EQ(Shown(Retro, "cboAlpha"), "0.01"); // whatever the list shows
    EXPECT_EQ(Entries(Retro, "cboAlpha"), (Names{"0.05", "0.01", "0.05", "0.01"}));
    EXPECT_TRUE(Tool("Find")->isChecked());
    MapWindow.resize(MapWindow.size() + QSize(40, 20)); // the outlines: the map shows no statistic any more
    QImage shown = Picture();
    EXPECT_EQ(shown, Outlines());
    Press(Retro, "cmdRun");
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_NE(Rows(Local()), rows);
    shown = Picture();
    EXPECT_EQ(shown, ClassesOf(ws.LocalM));
    EXPECT_NE(shown, map);
}

TEST_F(frmClusterDetectionTest, LeavesTheOldReportOnAFullDisk) {
    RunSingle("optUnadjusted", "1");
    ExpectOldFileOnAFullDisk(Script, "Text File (*.txt)|*.txt", ".txt", DiskFullError,
                             [this] { Press(Retro, "cmdSave"); });
    EXPECT_EQ(Buttons(), Enabled(true, true));
    EXPECT_FALSE(Script.BusyPointer());
}
