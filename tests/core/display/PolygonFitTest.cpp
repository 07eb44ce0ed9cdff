#include "core/display/PolygonFit.h"

#include "core/display/MapSizes.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

PolygonMapView Fit(const SurfaceSize& surface, const MapExtent& extent,
                   SettledPan settledPan = SettledPan::Included, const MapPan& pan = {}) {
    PolygonMapView view;
    static_cast<MapPan&>(view) = pan;
    FitPolygonView(view, surface, extent, settledPan);
    return view;
}

MapPan Panned() {
    MapPan pan;
    pan.PanSettledX = 8;
    pan.PanSettledY = -4;
    pan.PanDX = 3;
    pan.PanDY = 5;
    return pan;
}

// Half as high as wide outside: the factor is 0.5 at zoom 1.
constexpr SurfaceSize Wide = {3000, 1500, 200, 100};

} // namespace

// By hand: 200 x 0.5 = 100 wide, 0.5 x (0.5 x 200) = 50 high.
TEST(PolygonFit, FitsAWideMapByTheInnerWidth) {
    const auto view = Fit(Wide, {100, 205, 10, 5, 1});
    EXPECT_EQ(view.ViewAspect, 0.5);
    EXPECT_EQ(view.ViewFactor, 0.5);
    EXPECT_EQ(view.DrawnWidth, 100);
    EXPECT_EQ(view.DrawnHeight, 50);
    EXPECT_EQ(view.MapCentreX, 50);
    EXPECT_EQ(view.MapCentreY, 25);
    EXPECT_EQ(view.MapScaleX, 10);
    EXPECT_EQ(view.MapScaleY, 10);
    EXPECT_EQ(view.MapShiftX, -100);
    EXPECT_EQ(view.MapShiftY, -200);
}

// 100 x 0.5 = 50 high, 0.5 x (100 / 2) = 25 wide.
TEST(PolygonFit, FitsAHighMapByTheInnerHeight) {
    const auto view = Fit(Wide, {0, 10, 5, 10, 1});
    EXPECT_EQ(view.ViewAspect, 2);
    EXPECT_EQ(view.DrawnHeight, 50);
    EXPECT_EQ(view.DrawnWidth, 25);
    EXPECT_EQ(view.MapCentreX, 87.5);
    EXPECT_EQ(view.MapCentreY, 25);
    EXPECT_EQ(view.MapScaleX, 5);
    EXPECT_EQ(view.MapScaleY, 5);
}

TEST(PolygonFit, FitsASquareMapByTheInnerHeight) {
    const auto view = Fit(Wide, {0, 10, 10, 10, 1});
    EXPECT_EQ(view.DrawnHeight, 50);
    EXPECT_EQ(view.DrawnWidth, 50);
}

// Computed with the same formulas in Python, the ratio rounded to 32 bits through struct.
TEST(PolygonFit, TakesTheRatioOfTheSurfaceAsA32BitFloat) {
    const SurfaceSize surface = PolygonMapSurface();
    const auto wide = Fit(surface, {-84.32377, 36.5896, 8.86686, 2.70767, 1});
    EXPECT_EQ(wide.ViewFactor, 0.694656491279602); // 4095 / 5895 is 0.69465648854...
    EXPECT_DOUBLE_EQ(wide.DrawnWidth, 270.2213751077652);
    EXPECT_DOUBLE_EQ(wide.DrawnHeight, 82.5174087262055);
    EXPECT_DOUBLE_EQ(wide.MapCentreX, 59.3893124461174);
    EXPECT_DOUBLE_EQ(wide.MapCentreY, 93.24129563689725);
    EXPECT_DOUBLE_EQ(wide.MapScaleX, 30.475430435099366);
    EXPECT_EQ(RoundedPosition(wide, -80, 35), (PlotPoint{191, 142}));
    EXPECT_EQ(RoundedPosition(wide, -84.32377, 36.5896), (PlotPoint{59, 93}));

    const auto high = Fit(surface, {0, 10, 5, 10, 1.8}); // larger than the surface: it runs over the edges
    EXPECT_DOUBLE_EQ(high.DrawnHeight, 336.35267307758335);
    EXPECT_DOUBLE_EQ(high.MapCentreY, -33.67633653879167);
    EXPECT_EQ(RoundedPosition(high, 2.5, 5), (PlotPoint{194, 135}));
    EXPECT_EQ(RoundedPosition(high, 5, 10), (PlotPoint{279, -33}));
}

TEST(PolygonFit, TakesTheSettledPanInOrLeavesItOut) {
    const MapExtent extent{100, 205, 10, 5, 1};
    EXPECT_EQ(Fit(Wide, extent, SettledPan::Included, Panned()).MapCentreX, 58);
    EXPECT_EQ(Fit(Wide, extent, SettledPan::Included, Panned()).MapCentreY, 21);
    EXPECT_EQ(Fit(Wide, extent, SettledPan::LeftOut, Panned()).MapCentreX, 50);
    EXPECT_EQ(Fit(Wide, extent, SettledPan::LeftOut, Panned()).MapCentreY, 25);
}

TEST(PolygonFit, DrawsEverythingOnTheCentreAtZoomZeroAndMirrorsBelow) {
    const auto none = Fit(Wide, {100, 205, 10, 5, 0});
    EXPECT_EQ(RoundedPosition(none, 100, 200), (PlotPoint{100, 50}));
    EXPECT_EQ(RoundedPosition(none, 110, 205), (PlotPoint{100, 50}));
    const auto mirrored = Fit(Wide, {100, 205, 10, 5, -1});
    EXPECT_EQ(RoundedPosition(mirrored, 100, 200), (PlotPoint{150, 25}));
    EXPECT_EQ(RoundedPosition(mirrored, 110, 205), (PlotPoint{50, 75}));
}

TEST(PolygonFit, RefusesAnExtentThatIsALine) {
    EXPECT_EQ(ErrorNumberOf([] { Fit(Wide, {0, 5, 0, 5, 1}); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { Fit(Wide, {0, 0, 5, 0, 1}); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([] { Fit(Wide, {0, 0, 0, 0, 1}); }), DivisionByZero);
}

// Drawn height 2.5, scale 1, nothing else: y = 1.4 rounds to 1 and 2.5 - 1 = 1.5 to 2; in one rounding it
// were 1.1, so 1. And 0.5 rounds to the even 0, then 2.5 to the even 2.
TEST(PolygonFit, RoundsYTwice) {
    PolygonMapView view;
    view.MapScaleX = view.MapScaleY = 1;
    view.DrawnHeight = 2.5;
    EXPECT_EQ(RoundedPosition(view, 0, 1.4).Y, 2);
    EXPECT_EQ(RoundedPosition(view, 0, 0.5).Y, 2);
    EXPECT_DOUBLE_EQ(UnroundedPositionOf(view, 0, 1.4).Y, 1.1);
    EXPECT_EQ(RoundedPosition(view, 0.5, 0).X, 0);
    EXPECT_EQ(RoundedPosition(view, 1.5, 0).X, 2);
    EXPECT_EQ(RoundedPosition(view, -0.5, 0).X, 0);
    EXPECT_EQ(UnroundedPositionOf(view, 1.5, 0).X, 1.5);
}

TEST(PolygonFit, AddsTheLastDragToEveryPosition) {
    const auto view = Fit(Wide, {100, 205, 10, 5, 1}, SettledPan::Included, Panned());
    EXPECT_EQ(RoundedPosition(view, 100, 200), (PlotPoint{50 + 8 + 3, 75 - 4 + 5}));
    EXPECT_EQ(UnroundedPositionOf(view, 100.25, 200).X, 50 + 8 + 3 + 2.5);
    EXPECT_EQ(UnroundedPositionOf(view, 100, 200.25).Y, 75 - 4 + 5 - 2.5);
}

TEST(PolygonFit, OverflowsBeyond32Bits) {
    PolygonMapView view;
    view.MapScaleX = view.MapScaleY = 1;
    EXPECT_EQ(RoundedPosition(view, 2147483647, -2147483647).X, 2147483647);
    EXPECT_EQ(ErrorNumberOf([&] { RoundedPosition(view, 2147483648.0, 0); }), Overflow);
    EXPECT_EQ(ErrorNumberOf([&] { RoundedPosition(view, 0, 2147483648.0); }), Overflow);
}

TEST(PolygonFit, InvertsWithOrWithoutTheLastDrag) {
    const auto view = Fit(Wide, {100, 205, 10, 5, 1}, SettledPan::Included, Panned());
    // (61, 76) is the lower left corner, see above.
    EXPECT_EQ(MapPositionOf(view, 61, 76, LastDrag::Included), (MousePosition{100, 200}));
    EXPECT_EQ(MapPositionOf(view, 86, 46, LastDrag::Included), (MousePosition{102.5F, 203}));
    // Without the drag of (3, 5) the same place lies 0.3 right and 0.5 below.
    EXPECT_EQ(MapPositionOf(view, 61, 76, LastDrag::LeftOut), (MousePosition{100.3F, 199.5F}));
}

TEST(PolygonFit, HasNoInverseAtScaleZero) {
    const auto view = Fit(Wide, {100, 205, 10, 5, 0});
    EXPECT_EQ(ErrorNumberOf([&] { MapPositionOf(view, 61, 76, LastDrag::Included); }), DivisionByZero);
    EXPECT_EQ(ErrorNumberOf([&] { MapPositionOf(view, 100, 50, LastDrag::LeftOut); }), DivisionByZero);
}
