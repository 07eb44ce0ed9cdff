// Small duties of the two screens of the watch that no run of theirs shows.
#include "core/display/PointLegend.h"
#include "core/display/PolygonPainter.h"
#include "desktop/prospective/PolygonWatchScreen.h"
#include "desktop/prospective/WatchScreen.h"
#include "support/screens/AskedFile.h"
#include "support/screens/Mouse.h"

#include <QApplication>
#include <QEvent>
#include <QImage>

#include <filesystem>

using namespace vastrel;

namespace {

class PointDuties : public WatchScreenTest {
protected:
    PlotWidget& Map() { return *The_<PlotWidget>(Screen, "picPoint"); }
};

class PolygonDuties : public PolygonWatchScreenTest {
protected:
    PlotWidget& picSHP() { return *The_<PlotWidget>(Map, "picSHP"); }

    /// What is shown is what this draws on an erased surface, and not what the other does.
    using Drawing = std::function<void(PlotSurface&)>;
    void ExpectDrawn(const Drawing& drawing, const Drawing& other) {
        const QImage shown = picSHP().Picture();
        other(picSHP());
        EXPECT_NE(picSHP().Picture(), shown);
        drawing(picSHP());
        EXPECT_EQ(picSHP().Picture(), shown);
    }
    /// A settled pan, far enough for two drawings to be told apart.
    static void Pan() {
        ws.PolygonView.PanSettledX = 37;
        ws.PolygonView.PanSettledY = -23;
    }
};

void PlainWithPan(PlotSurface& surface) {
    vastrel::DrawPlainMap(surface);
}
void PlainWithoutPan(PlotSurface& surface) {
    vastrel::DrawPlainMapNoPan(surface);
}

} // namespace

TEST_F(PointDuties, PrintsTheClassesBesideTheMap) {
    auto* legend = The_<PlotWidget>(Screen, "picLegend");
    const QImage shown = legend->Picture();
    legend->Erase();
    EXPECT_NE(legend->Picture(), shown);
    PrintCusumLegend(*legend);
    EXPECT_EQ(legend->Picture(), shown);
}

TEST_F(PointDuties, DrawsThePlainPointsBeforeItJudgesTheParameters) {
    LoadForStart();
    Type(Screen, "txtHvalue", "-1");
    const QImage empty = Map().Picture();
    Script.ExpectMessage("Parameters should be positive values.");
    Run();
    const QImage plain = Map().Picture();
    EXPECT_NE(plain, empty);
    Type(Screen, "txtHvalue", "2.2");
    Run();
    EXPECT_NE(Map().Picture(), plain); // the classes of the last period
    Type(Screen, "txtHvalue", "x");
    Script.ExpectMessage("Parameters are not properly input.");
    Run();
    EXPECT_EQ(Map().Picture(), plain);
}

TEST_F(PointDuties, AsksForTheCusumFileWithItsEnding) {
    LoadForStart();
    Run();
    const FileQuestion asked = AskedFile(Script, [this] { Press(Screen, "cmdSaveCusum"); });
    EXPECT_EQ(asked.Filter, CusumFilter);
    EXPECT_EQ(asked.DefaultExtension, ".csm");
}

// A group of options that has none cannot come about by the mouse.
TEST_F(PointDuties, SavesNothingWithoutAStartOption) {
    LoadForStart();
    Run();
    auto* zero = The_<OptionButton>(Screen, "optZero");
    zero->setAutoExclusive(false);
    zero->setChecked(false);
    Script.ExpectFile(FileQuestion::Kind::Save, CusumFilter, Folder / "c.csm");
    Press(Screen, "cmdSaveCusum");
    EXPECT_FALSE(std::filesystem::exists(Folder / "c.csm"));
    Script.ExpectFile(FileQuestion::Kind::Save, ReportFilter, Folder / "r.txt");
    Press(Screen, "cmdSaveResult");
    EXPECT_FALSE(std::filesystem::exists(Folder / "r.txt"));
    zero->setChecked(true);
    zero->setAutoExclusive(true);
}

TEST_F(PointDuties, BringsTheErasedMapToTheScreenWhereTheStartChanges) {
    LoadForStart();
    Run();
    QApplication::processEvents();
    struct PaintCounter : QObject {
        int Paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            Paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter;
    Map().installEventFilter(&counter);
    QApplication::processEvents();
    counter.Paints = 0;
    The_<OptionButton>(Screen, "optPre")->Select();
    QApplication::processEvents();
    EXPECT_GT(counter.Paints, 0);
}

TEST_F(PointDuties, SelectsNoPointsWithAToolThatIsDisabled) {
    LoadForStart();
    Run();
    auto* tool = The_<OptionButton>(Screen, "optMeasureDistance");
    tool->Select();
    tool->setEnabled(false);
    Mouse hand(Map());
    const QImage before = Map().Picture();
    hand.Press(100, 100);
    hand.Release(200, 100);
    EXPECT_EQ(Map().Picture(), before);
    EXPECT_EQ(Text(Screen, "lblDisplay"), "");
    tool->setEnabled(true);
    hand.Press(100, 100);
    hand.Release(200, 100);
    EXPECT_NE(Map().Picture(), before);
}

TEST_F(PolygonDuties, BeginsWithTheSlowSpeedAtEachLoad) {
    RunFields();
    EXPECT_EQ(ws.AnimationDelay, 1);
    Screen.Unload();
    Open();
    EXPECT_EQ(ws.AnimationDelay, 300000);
}

TEST_F(PolygonDuties, AsksForTheCusumFileWithItsEnding) {
    RunFields();
    EXPECT_EQ(AskedFile(Script, [this] { Press(Screen, "cmdSaveCusum"); }).DefaultExtension, ".csm");
    Press(Screen, "optPre");
    Run();
    EXPECT_EQ(AskedFile(Script, [this] { Press(Dialog, "cmdOpen"); }).DefaultExtension, ".csm");
}

TEST_F(PolygonDuties, ATitleRowDrawsThePlainMapWithoutItsPan) {
    RunFields();
    Pan();
    Periods()->SetListIndex(0);
    ExpectDrawn(PlainWithoutPan, PlainWithPan);
}

TEST_F(PolygonDuties, TheFlashesDrawWithThePan) {
    RunFields();
    Pan();
    Script.AtYield(2, [this] { // the highlight of the second flash over the map that the first one left
        ExpectDrawn(
            [](PlotSurface& surface) {
                PlainWithPan(surface);
                vastrel::DrawHighlight(surface, 2);
            },
            [](PlotSurface& surface) {
                PlainWithoutPan(surface);
                vastrel::DrawHighlight(surface, 2);
            });
    });
    Regions()->SetListIndex(0); // C
    ExpectDrawn([](PlotSurface& surface) { vastrel::DrawCusumMap(surface, 3); }, PlainWithPan);
}

TEST_F(PolygonDuties, TheEndOfTheScreenDrawsThePlainMapWithoutItsPan) {
    RunFields();
    Pan();
    Screen.Frame()->close();
    ExpectDrawn(PlainWithoutPan, PlainWithPan);
}

TEST_F(PolygonDuties, TheDialogOfTheSavedFileEndsSavingTheCusums) {
    EXPECT_TRUE(CanSaveCusum()); // as at the load
    Dialog.Load();
    EXPECT_FALSE(CanSaveCusum());
    Dialog.Unload();
}

// The option cannot be pressed; code may select it.
TEST_F(PolygonDuties, FIREndsSavingAndRunsNothing) {
    RunFields();
    Press(Screen, "optPre");
    Run();
    EXPECT_TRUE(Dialog.IsLoaded());
    Press(Screen, "optZero");
    RunFields();
    EXPECT_TRUE(CanSaveResult() && CanSaveCusum());
    Dialog.Load();
    The_<OptionButton>(Screen, "optFIR")->Select();
    EXPECT_FALSE(Dialog.IsLoaded());
    EXPECT_FALSE(CanSaveResult() || CanSaveCusum());
    const size_t before = Script.Transcript().size();
    for (const char* source : {"optExistingTextfile", "optFieldSelection"}) {
        Press(Screen, source);
        Type(Screen, "txtHvalue", "4");
        Run();
        EXPECT_EQ(Periods()->ListCount() + Regions()->ListCount(), 0);
        EXPECT_EQ(ws.HValue, 4); // the parameters are taken, and that is all
    }
    EXPECT_EQ(Script.Transcript().substr(before), "");
    EXPECT_FALSE(Dialog.IsLoaded());
}
