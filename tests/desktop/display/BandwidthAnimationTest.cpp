#include "core/display/BandwidthAnimation.h"

#include "desktop/retrospective/RetroPolygonTest.h"

using namespace vastrel;

// The exit ends the process on the spot, with no unload step and nothing after it.
TEST_F(RetroPolygonTest, EndsTheProcessInsideAnAnimation) {
    OpenSample();
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    Script.AtYield(2, [this] {
        Script.ExpectEndOfProcess();
        Command("mnuExit");
        EXPECT_TRUE(Script.Transcript().ends_with("yield 50000\nend of process\n"));
        EXPECT_TRUE(Retro.IsLoaded());
        EXPECT_EQ(Global()->ListIndex(), 2);
    });
    Tool("MapAnimation")->trigger();
}

// A second animation can be told where to stand meanwhile by the slider that the first one has left.
TEST_F(RetroPolygonTest, GoesOnWhereTheSliderIsMovedInsideAnAnimation) {
    OpenSample();
    RunRange("optUnadjusted", "0.5", "1.5", "0.5");
    Tool("MapAnimation")->trigger();
    for (const int wait : {1, 2, 3}) {
        Slider()->setValue(0);
        Script.AtYield(wait, [this] {
            Slider()->setValue(1);
            EXPECT_EQ(Picture(), ClassesOf(StepValues(1)));
            EXPECT_EQ(Global()->ListIndex(), 3);
        });
        Tool("MapAnimation")->trigger();
        EXPECT_EQ(Picture(), ClassesOf(StepValues(2)));
        EXPECT_EQ(Global()->ListIndex(), 4);
        EXPECT_EQ(Slider()->value(), 1);
        EXPECT_TRUE(IsShown(MapWindow, "sliderStatsRange"));
    }
    EXPECT_EQ(Script.YieldCalls(), 3 + 3 * 3);
}
