#include "desktop/retrospective/PointScreen.h"
#include "desktop/retrospective/RetroPolygonTest.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/screens/Mouse.h"

#include <QMdiArea>

using namespace vastrel;

namespace {

constexpr const char* HugeSigma = "1e200"; // its square is an overflow

/// What a run leaves on the polygon screen and on the map window that ended in a fault.
class FaultedPolygonRunTest : public RetroPolygonTest {
protected:
    FaultedPolygonRunTest() { OpenSample(); }

    void ExpectNothingToSave() {
        EXPECT_TRUE(IsEnabled(Retro, "cmdRun"));
        EXPECT_FALSE(IsEnabled(Retro, "cmdSave"));
        for (const char* key : {"Find", "MapAnimation"})
            EXPECT_FALSE(Tool(key)->isEnabled() || Tool(key)->isChecked()) << key;
        EXPECT_FALSE(IsShown(MapWindow, "sliderStatsRange"));
    }

    /// Whatever draws the map again draws outlines, without a legend.
    void ExpectOutlines() {
        const auto expectPlain = [this](const char* what) {
            const QImage shown = Picture();
            EXPECT_EQ(shown, Outlines()) << what;
            EXPECT_TRUE(IsWhite(Print())) << what;
        };
        expectPlain("at the fault");
        Retro.Show();
        MapWindow.Show();
        expectPlain("in front again");
        MapWindow.Frame()->resize(MapWindow.Frame()->size() + QSize(20, 10));
        expectPlain("resized");
        Mouse hand(*picSHP());
        for (const char* key : {"ZoomIn", "ZoomOut", "Pan", "ID"}) {
            Tool(key)->trigger();
            hand.Click(100, 100);
            expectPlain(key);
        }
        Tool("FullExt")->trigger();
        expectPlain("FullExt");
    }
};

} // namespace

TEST_F(FaultedPolygonRunTest, LeavesNothingOfASingleRunBefore) {
    for (const char* variable : {"optUnadjusted", "optAdjusted_Generic", "optStandard", "optRossi"}) {
        SCOPED_TRACE(variable);
        RunSingle(variable, "1");
        EXPECT_TRUE(IsEnabled(Retro, "cmdSave") && Tool("Find")->isChecked());
        Script.ExpectRunTimeError(6);
        RunSingle(variable, HugeSigma);
        ExpectNothingToSave();
        ExpectOutlines();
    }
}

TEST_F(FaultedPolygonRunTest, LeavesNothingOfARangeBefore) {
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    EXPECT_TRUE(IsEnabled(Retro, "cmdSave") && Tool("MapAnimation")->isEnabled());
    Script.ExpectRunTimeError(6);
    RunRange("optUnadjusted", "1", "3e200", HugeSigma); // in its second step
    EXPECT_EQ(Global()->ListCount(), 3);
    ExpectNothingToSave();
    ExpectOutlines();
}

TEST_F(FaultedPolygonRunTest, StaysPlainBehindTheDataInput) {
    RunSingle("optRossi", "1");
    ws.ExpCount(7) = 0; // as columns that are picked anew may have it
    Script.ExpectRunTimeError(11);
    RunSingle("optRossi", "1");
    Press(Retro, "cmdDataReset");
    Bind(SampleColumns());
    ExpectNothingToSave();
    ExpectOutlines();
    RunSingle("optRossi", "1");
    EXPECT_TRUE(IsEnabled(Retro, "cmdSave") && Tool("Find")->isChecked() && ws.bRetroMapping);
}

TEST_F(PointScreenTest, LeavesNothingToSaveOfARunThatFaulted) {
    LoadFour();
    Press(Screen, "optStandard");
    RunSingle("1");
    EXPECT_TRUE(IsEnabled(Screen, "cmdSave"));
    Script.ExpectRunTimeError(6);
    RunSingle(HugeSigma);
    EXPECT_TRUE(IsEnabled(Screen, "cmdRun"));
    EXPECT_FALSE(IsEnabled(Screen, "cmdSave"));
    EXPECT_FALSE(ws.bRetroMapping);
    EXPECT_EQ(ws.DisplayClassValues, Array1<double>());
    EXPECT_EQ(ws.DisplayDrawValues, Array1<double>());

    RunRange("1", "2", "1");
    EXPECT_TRUE(IsEnabled(Screen, "cmdSave"));
    Script.ExpectRunTimeError(6);
    RunRange("1", "3e200", HugeSigma);
    EXPECT_FALSE(IsEnabled(Screen, "cmdSave"));
    RunSingle("1");
    EXPECT_TRUE(IsEnabled(Screen, "cmdSave") && ws.bRetroMapping);
}
