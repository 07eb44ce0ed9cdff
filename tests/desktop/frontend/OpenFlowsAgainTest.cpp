#include "desktop/frontend/OpenFlows.h"

#include "core/spatial/AttributeRows.h"
#include "desktop/display/frmGraph.h"
#include "desktop/prospective/frmUnivariate.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/RetroBatch.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSelectDataFormat.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/ProjectFolder.h"
#include "support/screens/Mouse.h"

#include <QTest>

using namespace vastrel;

namespace {

/// A dataset that is opened while the screens and results of another one stand.
class OpenFlowsAgain : public RetroPolygonTest {
protected:
    void OpenThree() { OpenBound(WriteThree(), {"POP", "CASES", "", "", "KEY", ""}); }
    void Close() { Parameter.close(); }
    void Cancel(const char* flow) {
        Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, "");
        Script.ExpectMessage("You didn't specify shapefile.");
        Command(flow);
    }
    void Sweep() { RunRange("optUnadjusted", "0.5", "1.5", "0.5"); }

    /// The screens that a flow unloads, in its order.
    Names UnloadedBy(const std::function<void()>& flow) {
        Names names;
        const auto connection = QObject::connect(&screens(), &Screens::Unloaded, [&](Screen* screen) {
            names.push_back(screen->objectName().toStdString());
        });
        flow();
        QObject::disconnect(connection);
        return names;
    }
    static void ShowAll() {
        for (Screen* screen : std::initializer_list<Screen*>{
                 &The<frmClusterDetectionTextfile>(), &The<frmUnivariateCusumTextfile>(),
                 &The<frmUnivariate>(), &The<frmGraph>(), &The<frmSigmaChart>(), &The<frmPolygonSHP>(),
                 &The<frmClusterDetection>()})
            screen->Show();
    }
    /// What the batch program prints of the sample, as the screen has to show it.
    static std::string SampleLists(const Names& test) {
        return RunRetroBatch({"retrospective-polygons", InProject("samples/country.shp"), "--pop", "POP",
                              "--cases", "CASES", "--id", "NAME"},
                             test)
            .Lists;
    }
    std::string ShownLists() { return JoinedLists(Rows(Global()), Rows(Local())); }
};

} // namespace

TEST_F(OpenFlowsAgain, UnloadWhatWouldConflictInTheirOwnOrders) {
    OpenPro(WriteThree()); // a table for the screens to show
    SelectName.Unload();
    ShowAll();
    EXPECT_EQ(UnloadedBy([this] { Cancel("mnuOpenShapeRetro"); }),
              (Names{"frmClusterDetectionTextfile", "frmUnivariateCusumTextfile", "frmGraph", "frmUnivariate",
                     "frmSigmaChart", "frmPolygonSHP"}))
        << "the watch takes its chart with it";
    EXPECT_TRUE(Retro.IsLoaded());
    ws.ShapeFilePath = Folder / "three.shp";
    ShowAll();
    EXPECT_EQ(UnloadedBy([this] { Cancel("mnuOpenShapePro"); }),
              (Names{"frmSigmaChart", "frmClusterDetection", "frmClusterDetectionTextfile",
                     "frmUnivariateCusumTextfile", "frmGraph", "frmPolygonSHP"}))
        << "the test takes its chart with it";
    EXPECT_TRUE(The<frmUnivariate>().IsLoaded());
}

TEST_F(OpenFlowsAgain, CancelledLeaveTheTestOfBeforeWithoutAMap) {
    OpenSample();
    RunSingle("optStandard", "1");
    const std::string lists = ShownLists();
    ws.MapZoom = 3;
    Cancel("mnuOpenShapeRetro");
    EXPECT_EQ(ws.MapZoom, 1);
    EXPECT_TRUE(Retro.isVisible());
    EXPECT_FALSE(MapWindow.IsLoaded());
    EXPECT_EQ(ShownLists(), lists);
    EXPECT_TRUE(IsEnabled(Retro, "cmdSave"));
    EXPECT_FALSE(Frame.Entry("mnuAttTable")->isEnabled());
    EXPECT_TRUE(CanExport());
    EXPECT_EQ(ws.NumRegion, 207);
    // There is no file to draw from any more: the run has its lists, and no map comes up.
    Press(Retro, "cmdRun");
    EXPECT_EQ(ShownLists(), lists);
    Local()->SetListIndex(10);
    EXPECT_FALSE(MapWindow.IsLoaded());
    Sweep();
    Global()->SetListIndex(2);
    EXPECT_FALSE(MapWindow.IsLoaded());
    OpenSample(); // and the next dataset is as good as the first
    RunSingle("optStandard", "1");
    EXPECT_TRUE(MapWindow.isVisible());
    EXPECT_EQ(ShownLists(), lists);
}

// The column dialog that stands from a reset of the data gets the lists of the new table, without what
// follows on a dialog that closes.
TEST_F(OpenFlowsAgain, FillAStandingColumnDialogWithoutItsUnloadStep) {
    OpenThree();
    const int alphas = Alpha()->ListCount();
    Press(Retro, "cmdDataReset");
    PickPopCase();
    ws.AlphaLevel = 0.01;
    OpenRetro(CopySample(), [&] {
        EXPECT_EQ(ws.AlphaLevel, 0.01);
        EXPECT_EQ(Alpha()->ListCount(), alphas);
        EXPECT_TRUE(Parameter.isVisible());
        EXPECT_TRUE(Parameter.isModal());
        EXPECT_EQ(Shown(Parameter, "cboBasePopulation"), "");
        EXPECT_EQ(Entries(Parameter, "cboPrimaryID"), FieldNames());
        Bind(SampleColumns());
    });
    EXPECT_EQ(Alpha()->ListCount(), alphas + 2); // of the one that was closed
    EXPECT_FALSE(Parameter.isModal());
}

TEST_F(OpenFlowsAgain, OfFewerRegionsShowWhatStandsUntilItIsRun) {
    OpenSample();
    RunSingle("optRossi", "1");
    const auto old = Rows(Local());
    OpenThree();
    EXPECT_EQ(Rows(Local()), old);
    EXPECT_FALSE(IsEnabled(Retro, "cmdSave"));
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_FALSE(Tool("Find")->isEnabled());
    EXPECT_FALSE(IsShown(MapWindow, "imgM_Legend"));
    for (const int row : {3, 5, 100}) // of the second dataset's Regions, and of none of them
        Local()->SetListIndex(row);
    EXPECT_EQ(MapWindow.windowTitle(), "three.shp");
    RunSingle("optRossi", "0.5");
    EXPECT_EQ(Local()->ListCount(), 3 + 4);
    EXPECT_EQ(ws.LocalM.UpperBound(), 3);
    const QImage shown = Picture();
    EXPECT_EQ(shown, ClassesOf(ws.LocalM));
}

TEST_F(OpenFlowsAgain, OfFewerRegionsKeepTheRowsOfASweep) {
    OpenSample();
    Sweep();
    OpenThree();
    EXPECT_FALSE(Chart.IsLoaded());
    EXPECT_FALSE(Tool("MapAnimation")->isEnabled());
    EXPECT_EQ(Global()->ListCount(), 6);
    Global()->SetListIndex(3); // the first three values of the sweep that stands
    EXPECT_EQ(ws.DisplayDrawValues.UpperBound(), 3);
    EXPECT_EQ(ws.DisplayDrawValues(3), ws.StatisticTable(3, 1));
    EXPECT_EQ(ws.CurrentSigma, 1);
    Sweep();
    EXPECT_EQ(ws.StatisticTable.UpperBound1(), 3);
    EXPECT_TRUE(Chart.isVisible());
}

TEST_F(OpenFlowsAgain, OfMoreRegionsStopAtARowOfTheSweepOfBefore) {
    OpenThree();
    Sweep();
    OpenSample();
    Script.ExpectRunTimeError(9); // the fourth Region has no value
    QTest::mouseClick(Global()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      Global()->visualRect(Global()->model()->index(3, 0)).center());
    EXPECT_EQ(Global()->ListIndex(), 3);
    EXPECT_FALSE(Script.BusyPointer());
    QImage shown = Picture();
    EXPECT_EQ(shown, Outlines());
    Sweep();
    Global()->SetListIndex(3);
    shown = Picture();
    EXPECT_EQ(shown, ClassesOf(StepValues(1)));
}

TEST_F(OpenFlowsAgain, WithoutColumnsLeaveTheCountsOfBefore) {
    OpenSample();
    RunSingle("optUnadjusted", "1");
    OpenRetro(WriteThree(), [this] { Close(); });
    EXPECT_TRUE(Retro.isVisible());
    EXPECT_TRUE(IsEnabled(Retro, "cmdSave")); // a data input that is closed incomplete touches nothing
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_EQ(ws.NumRegion, 3);
    EXPECT_EQ(ws.ObsCount.UpperBound(), 207);
    const QImage shown = Picture();
    EXPECT_EQ(shown, Outlines());

    // And where the counts of before are too few, the next run stops.
    OpenThree();
    OpenRetro(CopySample(), [this] { Close(); });
    Script.ExpectRunTimeError(9);
    RunSingle("optUnadjusted", "1");
    EXPECT_TRUE(Script.BusyPointer());
    EXPECT_EQ(Local()->ListCount(), 0);
    EXPECT_FALSE(IsEnabled(Retro, "cmdSave"));
    OpenSample();
    RunSingle("optUnadjusted", "1");
    EXPECT_FALSE(Script.BusyPointer());
    EXPECT_EQ(ShownLists(), SampleLists({"--sigma", "1"}));
}

// A shapefile of the same country after a run on its points: nothing of the points is left.
TEST_F(OpenFlowsAgain, FollowARunOnPoints) {
    auto& points = The<frmClusterDetectionTextfile>();
    auto& format = The<frmSelectDataFormat>();
    Command("mnuOpenTextRetro");
    Press(points, "cmdLoadData");
    Press(format, "optPopCase");
    Script.ExpectFile(FileQuestion::Kind::Open, "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|",
                      InProject("samples/country_pop.txt"));
    Press(format, "cmdContinue");
    Press(points, "optRossi");
    Type(points, "txtSingleSigma", "1");
    Press(points, "cmdRun");
    EXPECT_TRUE(ws.bRetroMapping);

    OpenSample();
    EXPECT_FALSE(points.IsLoaded());
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_EQ(ws.RegionCentroid(1).ID, "1");
    EXPECT_NEAR(ws.TotalShapeArea, 207 * 346.41, 1);
    for (const auto& [option, variable] : RetroVariables) {
        RunSingle(option, "1");
        EXPECT_EQ(ShownLists(), SampleLists({"--variable", variable, "--sigma", "1"})) << variable;
    }
}

TEST_F(OpenFlowsAgain, KeepTheSettledPanAndDrawTheFirstMapWithoutIt) {
    OpenSample();
    const QImage whole = Picture();
    Tool("ZoomIn")->trigger();
    Mouse(*picSHP()).Click(50, 50);
    Tool("Pan")->trigger();
    Mouse(*picSHP()).Drag(100, 100, 30, 20);
    Mouse(*picSHP()).DoubleClick(5, 5);
    const double settled = ws.PolygonView.PanSettledX;
    EXPECT_NE(settled, 0);
    OpenSample();
    EXPECT_EQ(ws.MapZoom, 1);
    EXPECT_EQ(ws.PolygonView.PanSettledX, settled);
    EXPECT_FALSE(Tool("Pan")->isChecked());
    EXPECT_EQ(Picture(), whole);
    MapWindow.DrawPlainMap();
    EXPECT_NE(Picture(), whole);
}

// Lines are read and not kept: the areas find no polygon.
TEST_F(OpenFlowsAgain, StopAtLines) {
    ShapefileBytes lines(3);
    lines.Add(PartsContents(3, {0}, {{0, 0}, {1, 1}}));
    Folder.Write("lines.dbf", TableBytes({{"ID", 'N', 5}}, {{"1"}}));
    const std::string path = lines.WritePair(Folder, "lines");
    OpenRetro(path, [this] {
        Script.ExpectRunTimeError(9);
        Close();
    });
    Script.ExpectFile(FileQuestion::Kind::Open, ShapeFilter, path);
    Script.ExpectRunTimeError(9);
    Command("mnuOpenShapePro");
    EXPECT_FALSE(MapWindow.IsLoaded());
    EXPECT_FALSE(SelectName.IsLoaded());
    EXPECT_FALSE(CanExport());
}
