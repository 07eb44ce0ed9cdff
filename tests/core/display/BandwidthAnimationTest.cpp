#include "core/display/BandwidthAnimation.h"

#include "support/Arrays.h"
#include "support/PolygonFile.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

class BandwidthAnimation : public ::testing::Test {
protected:
    BandwidthAnimation() {
        OpenThreeRegions(folder_.Write("map.shp", PolygonFile(ThreeRegions())));
        ws.bRetroMapping = true;
        ws.BandwidthCount = 2;
        ws.BandwidthList.ReDim(1);
        ws.BandwidthList(0) = 0.4;
        ws.BandwidthList(1) = 1.2345;
        ws.StatisticTable.ReDim(3, 2);
        for (int i = 1; i <= 3; ++i) {
            ws.StatisticTable(i, 0) = -i;
            ws.StatisticTable(i, 1) = 10 - i;
        }
        ws.DisplayClassValues.ReDim(3);
        ws.DisplayDrawValues.ReDim(3);
        ws.CurrentSigma = 9;
    }

    bool Animate() {
        return AnimateBandwidths({[this] { return shown_; }, [this] { return map_; },
                                  [this](std::ptrdiff_t row) {
                                      log_ += "row " + std::to_string(row) + " after " +
                                              std::to_string(platform_.YieldCalls()) + " waits\n";
                                      frames_.push_back(From1(ws.DisplayDrawValues));
                                  }});
    }

    TemporaryFolder folder_;
    ScriptedPlatform platform_;
    RecorderSurface form_{FramedSurface(2500, 4000)};
    RecorderSurface picSHP_{ThreeRegionsSurface};
    PolygonMap map_{form_, picSHP_, RetroVariable::Unadjusted};
    bool shown_ = true;
    std::string log_;
    std::vector<std::vector<double>> frames_;
};

} // namespace

TEST_F(BandwidthAnimation, WaitsBeforeEachFrameAndSelectsItsRow) {
    platform_.AtYield(1, [this] { EXPECT_EQ(picSHP_.Operations(), ""); });
    EXPECT_TRUE(Animate());
    EXPECT_EQ(log_, "row 2 after 1 waits\nrow 3 after 2 waits\n");
    EXPECT_EQ(platform_.Transcript(), "yield 50000\nyield 50000\n");
    EXPECT_EQ(frames_, (std::vector<std::vector<double>>{{-1, -2, -3}, {9, 8, 7}}));
    EXPECT_EQ(From1(ws.DisplayClassValues), (std::vector<double>{7, 8, 9})); // sorted by the legend
    EXPECT_EQ(ws.CurrentSigma, 9); // the click of the row sets it, not the frame
}

// A variable that is chosen in a wait is that of the frame behind it.
TEST_F(BandwidthAnimation, PaintsByTheVariableOfTheFrame) {
    ws.CurrentSigma = 0.5;
    ws.AlphaLevel = 0.05;
    platform_.AtYield(2, [this] {
        form_.Forget();
        map_.Variable = RetroVariable::Rossi;
    });
    EXPECT_TRUE(Animate());
    EXPECT_NE(form_.Operations().find("|M* =< |"), std::string::npos);
}

TEST_F(BandwidthAnimation, EndsQuietlyWhereItsScreenIsGone) {
    platform_.AtYield(2, [this] { shown_ = false; });
    EXPECT_FALSE(Animate());
    EXPECT_EQ(log_, "row 2 after 1 waits\n");
}

TEST_F(BandwidthAnimation, HasOneFrameForOneBandwidthAndNoneForNone) {
    ws.BandwidthCount = 1;
    EXPECT_TRUE(Animate());
    EXPECT_EQ(log_, "row 2 after 1 waits\n");
    ws.BandwidthCount = 0;
    log_.clear();
    EXPECT_TRUE(Animate());
    EXPECT_EQ(log_, "");
}

TEST_F(BandwidthAnimation, TellsTheBandwidthOfTheSlider) {
    EXPECT_EQ(BandwidthTip(0), "Bandwidth=0.400");
    EXPECT_EQ(BandwidthTip(1), "Bandwidth=1.235");
    EXPECT_EQ(ErrorNumberOf([] { BandwidthTip(2); }), SubscriptOutOfRange);
}
