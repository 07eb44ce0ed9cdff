#include "core/display/PolygonView.h"

#include "core/display/MapZoom.h"
#include "core/display/Pan.h"
#include "support/PolygonFile.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

class PolygonView : public ::testing::Test {
protected:
    PolygonView() { OpenThreeRegions(""); }

    void Drag(double dx, double dy) {
        PressPan(ws.PolygonView, 0, 0);
        MovePan(ws.PolygonView, dx, dy);
        ReleasePan(ws.PolygonView);
    }

    RecorderSurface surface_{ThreeRegionsSurface};
};

} // namespace

TEST_F(PolygonView, PutsTheSurfaceInItsDrawingState) {
    ComputeView(surface_);
    EXPECT_EQ(surface_.Operations(), "width 1\nstyle transparent\nfill 0xFFFFFF\n");
    surface_.Forget();
    ComputeViewNoPan(surface_);
    EXPECT_EQ(surface_.Operations(), "width 1\nstyle transparent\nfill 0xFFFFFF\n");
}

// 10 pixels a unit, the lower left corner at (50, 75).
TEST_F(PolygonView, PutsTheExtentOfTheStoreOnTheSurface) {
    ComputeView(surface_);
    EXPECT_EQ(WorldToPlot(100, 200), (PlotPoint{50, 75}));
    EXPECT_EQ(WorldToPlot(110, 205), (PlotPoint{150, 25}));
    EXPECT_EQ(PlotToWorld(150, 25), (MousePosition{110, 205}));
    EXPECT_EQ(PlotToWorld(50, 75), (MousePosition{100, 200}));
}

TEST_F(PolygonView, GrowsAboutTheCentreWithTheZoom) {
    ws.MapZoom = 2;
    ComputeView(surface_);
    EXPECT_EQ(WorldToPlot(105, 202.5), (PlotPoint{100, 50}));
    EXPECT_EQ(WorldToPlot(100, 200), (PlotPoint{0, 100}));
}

TEST_F(PolygonView, TakesBothSettledSumAndLastDrag) {
    Drag(4, -6);
    ComputeView(surface_);
    EXPECT_EQ(WorldToPlot(100, 200), (PlotPoint{58, 63})); // twice the drag
    ComputeViewNoPan(surface_);
    EXPECT_EQ(WorldToPlot(100, 200), (PlotPoint{54, 69})); // the last drag alone
    ReleasePan(ws.PolygonView);
    ComputeView(surface_);
    EXPECT_EQ(WorldToPlot(100, 200), (PlotPoint{62, 57})); // three times
    DropPanOffset(ws.PolygonView);
    ComputeView(surface_);
    EXPECT_EQ(WorldToPlot(100, 200), (PlotPoint{58, 63})); // the settled sum of two
    DropSettledPan(ws.PolygonView);
    ComputeView(surface_);
    EXPECT_EQ(WorldToPlot(100, 200), (PlotPoint{50, 75}));
}

TEST_F(PolygonView, DisagreesWithTheStatusLineByTheLastDrag) {
    Drag(5, 10);
    ComputeView(surface_);
    EXPECT_EQ(PlotToWorld(60, 95), (MousePosition{100, 200}));
    EXPECT_EQ(StatusPlotToWorld(60, 95), (MousePosition{100.5F, 199}));
    EXPECT_EQ(StatusText(60, 95), "(X: 100.5, Y: 199)");
    DropPanOffset(ws.PolygonView);
    EXPECT_EQ(StatusPlotToWorld(60, 95), PlotToWorld(60, 95));
}

TEST_F(PolygonView, WritesTheShortest32BitText) {
    ComputeView(surface_);
    EXPECT_EQ(StatusText(51, 74), "(X: 100.1, Y: 200.1)"); // 100.1 in 32 bits is 100.09999847...
    EXPECT_EQ(PlotToWorld(51, 74).X, 100.1F);
}

TEST_F(PolygonView, StopsAtAnExtentWithoutWidthAndKeepsThePan) {
    Drag(1, 2);
    ComputeView(surface_);
    ws.ExtentWidth = 0;
    surface_.Forget();
    EXPECT_EQ(ErrorNumberOf([&] { ComputeView(surface_); }), DivisionByZero);
    EXPECT_EQ(surface_.Operations(), "");
    EXPECT_EQ(ws.PolygonView.MapScaleX, 0);
    EXPECT_EQ(ws.PolygonView.DrawnHeight, 0);
    EXPECT_EQ(ws.PolygonView.ViewFactor, 0);
    EXPECT_EQ(ws.PolygonView.PanSettledX, 1);
    EXPECT_EQ(ws.PolygonView.PanDY, 2);
}

TEST_F(PolygonView, StopsAtSizesThatAreNoNumbers) {
    ws.MapZoom = 1e308;
    ws.ExtentWidth = 1e-300;
    ws.ExtentHeight = 1e-301;
    EXPECT_EQ(ErrorNumberOf([&] { ComputeView(surface_); }), Overflow);
    EXPECT_EQ(ws.PolygonView.MapScaleX, 0);
    RecorderSurface nothing{SurfaceSize{}};
    OpenThreeRegions("");
    EXPECT_EQ(ErrorNumberOf([&] { ComputeView(nothing); }), InvalidProcedureCall);
    EXPECT_EQ(ws.PolygonView.ViewFactor, 0);
}

TEST_F(PolygonView, HasNoInverseBeforeADrawing) {
    EXPECT_EQ(ErrorNumberOf([] { PlotToWorld(1, 1); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { StatusPlotToWorld(0, 0); }), DivisionByZero);
}

TEST_F(PolygonView, OverflowsWhereAPositionDoesNotFitIn32Bits) {
    ComputeView(surface_);
    ws.PolygonView.MapScaleX = 1e-300;
    EXPECT_EQ(ErrorNumberOf([] { PlotToWorld(1, 1); }), Overflow);
}

TEST(MapZoom, HasARuleForEachMap) {
    EXPECT_EQ(PolygonMapZoom.Start, 1.0);
    EXPECT_EQ(PolygonMapZoom.FullExtent, 1.0);
    EXPECT_EQ(PolygonMapZoom.Step * PolygonMapZoom.StepsOnStatisticMap, 0.4);
    EXPECT_EQ(PolygonMapZoom.Step * PolygonMapZoom.StepsOnOtherMaps, 0.8);
    EXPECT_EQ(RetroPointMapZoom.Start, 1.2);
    EXPECT_EQ(RetroPointMapZoom.Step, 0.2);
    EXPECT_EQ(RetroPointMapZoom.FullExtent, 1.2);
    EXPECT_EQ(ProspectivePointMapZoom.Start, 1.0);
    EXPECT_EQ(ProspectivePointMapZoom.Step, 0.15);
    EXPECT_EQ(ProspectivePointMapZoom.FullExtent, 1.0);
}
