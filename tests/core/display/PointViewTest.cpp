// Expected numbers of the views are from a transcription of the definition into Python (doubles, the ratio
// of the surface's sizes rounded to a 32-bit float), those of square surfaces from the head.
#include "core/display/PointView.h"

#include "core/display/MapSizes.h"
#include "support/Arrays.h"
#include "support/RaisedError.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vastrel;

namespace {

const std::vector<double> Xs = {435.5, 436.0, 440.25, 437.75, 433.1, 439.0, 436.4};
const std::vector<double> Ys = {881.25, 880.0, 885.5, 890.125, 886.6, 882.3, 884.9};

/// 220 pixels for 22 units of a view from -1 to 21: x = 10 X + 10, y = 210 - 10 Y.
constexpr SurfaceSize Square{3000, 3000, 220, 220};

struct Points {
    Array1<double> X, Y;
};

Points PointsOf(const std::vector<double>& x, const std::vector<double>& y) {
    return {ArrayFrom1(x), ArrayFrom1(y)};
}

PointView ViewOf(const SurfaceSize& surface, const Points& points, double zoom = 1) {
    PointView view;
    view.PointZoom = zoom;
    ComputePointView(view, surface, points.X, points.Y);
    return view;
}

std::vector<PlotPoint> Plotted(const SurfaceSize& surface, const Points& points, double zoom = 1) {
    PointView view;
    view.PointZoom = zoom;
    PlotAllPoints(view, surface, points.X, points.Y);
    return From1(ws.PlottedPoints);
}

} // namespace

TEST(PointView, FitsADatasetThatIsHigherThanWide) {
    ws = Workspace{};
    const auto view = ViewOf(RetroPointSurface(), PointsOf(Xs, Ys), 1.2);
    EXPECT_EQ(view.DataXMin, 433.1);
    EXPECT_EQ(view.DataXMax, 440.25);
    EXPECT_EQ(view.DataYMin, 880);
    EXPECT_EQ(view.DataYMax, 890.125);
    EXPECT_EQ(view.MarginX, 0x1.6e147ae147acdp-2);
    EXPECT_EQ(view.MarginY, 0.50625);
    EXPECT_EQ(view.ViewXMin, 0x1.b0be147ae147bp+8);
    EXPECT_EQ(view.ViewYMax, 890.63125);
    EXPECT_EQ(view.ViewWidth, 0x1.f75c28f5c2900p+2);
    EXPECT_EQ(view.ViewHeight, 0x1.6466666666680p+3);
    EXPECT_EQ(view.ViewAspect, 0x1.6a8479bbf8d80p+0);
    EXPECT_EQ(view.ViewFactor, 0x1.d5729ccccccccp-1);
    EXPECT_EQ(view.DrawnWidth, 0x1.6be2a70adb350p+7);
    EXPECT_EQ(view.DrawnHeight, 0x1.01a5670e66666p+8);
    EXPECT_EQ(view.MapCentreX, 0x1.761d58f524cb0p+6);
    EXPECT_EQ(view.MapCentreY, 0x1.75a98f19999a0p+3);
    EXPECT_EQ(view.ScaleX, 0x1.72219eae1d4cbp+4);
    EXPECT_EQ(view.ScaleY, 0x1.72219eae1d4ccp+4);
    EXPECT_EQ(view.MapShiftX, -0x1.b0be147ae147bp+8);
    EXPECT_EQ(view.MapShiftY, -0x1.b7bf333333333p+9);
    EXPECT_EQ(ws.ScaleX, view.ScaleX);
    EXPECT_EQ(ws.ScaleY, view.ScaleY);
}

TEST(PointView, FitsADatasetThatIsWiderThanHigh) {
    // 44 by 22 units on 220 by 110 pixels whose outer sizes are as 1 to 2, zoom 2: factor 1,
    // drawn 220 by 220 * 0.5.
    const auto view = ViewOf({2000, 1000, 220, 110}, PointsOf({0, 40}, {0, 20}), 2);
    EXPECT_EQ(view.ViewFactor, 1);
    EXPECT_EQ(view.DrawnWidth, 220);
    EXPECT_EQ(view.DrawnHeight, 110);
    EXPECT_EQ(view.ScaleX, 5);
    EXPECT_EQ(view.ScaleY, 5);
    EXPECT_EQ(view.MapCentreX, 0);
    EXPECT_EQ(view.MapCentreY, 0);
    EXPECT_EQ(view.MapShiftX, 2);
    EXPECT_EQ(view.MapShiftY, 1);
}

TEST(PointView, FitsASquareByItsHeight) {
    // A view that is as high as wide takes ScaleHeight, not ScaleWidth.
    const auto view = ViewOf({1000, 1000, 500, 220}, PointsOf({0, 20}, {0, 20}));
    EXPECT_EQ(view.DrawnWidth, 220);
    EXPECT_EQ(view.DrawnHeight, 220);
    EXPECT_EQ(view.MapCentreX, 140);
}

TEST(PointView, TakesTheRatioOfTheSurfaceAsAFloat) {
    const auto view = ViewOf({3, 1, 100, 100}, PointsOf({0, 20}, {0, 20}));
    EXPECT_EQ(view.ViewFactor, 0x1.555556p-2); // 1/3 in 24 bits
}

TEST(PointView, IsRefusedWithoutAnArea) {
    ws = Workspace{};
    auto view = ViewOf(Square, PointsOf({0, 20}, {0, 20}));
    const double scale = view.ScaleX;
    ASSERT_EQ(scale, 10);
    ws.ScaleX = 3; // as another map leaves it
    for (const auto& points : {PointsOf({5}, {5}), PointsOf({5, 5}, {1, 9}), PointsOf({1, 9}, {5, 5}),
                               PointsOf({5, 5, 5}, {7, 7, 7}), PointsOf({}, {})}) {
        ComputePointView(view, Square, points.X, points.Y);
        EXPECT_FALSE(view.IsValid());
        EXPECT_EQ(view.ScaleX, scale); // the old value
        EXPECT_EQ(ws.ScaleX, 3);
    }
    const auto slanted = PointsOf({0, 10, 20}, {0, 10, 20}); // one line, but not along an axis
    ComputePointView(view, Square, slanted.X, slanted.Y);
    EXPECT_TRUE(view.IsValid());
    EXPECT_EQ(ws.ScaleX, 10);
}

TEST(PointView, SharesOnlyTheScalesOfTheLastComputation) {
    ws = Workspace{};
    auto retro = ViewOf(RetroPointSurface(), PointsOf(Xs, Ys), 1.2);
    const auto points = PointsOf(Xs, Ys);
    PointView prospective;
    prospective.PanSettledX = 50;
    ComputePointView(prospective, ProspectivePointSurface(), points.X, points.Y);
    EXPECT_DOUBLE_EQ(prospective.MapCentreX, 150.27812727292397 + 50);
    EXPECT_EQ(ws.ScaleX, 0x1.f22e8a6c9b24ap+3);
    EXPECT_EQ(ws.ScaleY, 0x1.f22e8a6c9b249p+3);
    ComputePointView(retro, RetroPointSurface(), points.X, points.Y);
    EXPECT_EQ(retro.MapCentreX, 0x1.761d58f524cb0p+6); // no pan of the other
    EXPECT_EQ(retro.PointZoom, 1.2);
    EXPECT_EQ(ws.ScaleX, 0x1.72219eae1d4cbp+4);
}

TEST(PointToPlot, RoundsYOnceAndKeepsX) {
    const auto view = ViewOf(Square, PointsOf({0, 20}, {0, 20}));
    EXPECT_EQ(PointToPlot(view, 0, 0).X, 10);
    EXPECT_EQ(PointToPlot(view, 0, 0).Y, 210);
    EXPECT_EQ(PointToPlot(view, 20, 20).Y, 10);
    EXPECT_EQ(PointToPlot(view, 10.25, 0).X, 112.5);
    EXPECT_EQ(PointToPlot(view, 0, 8.75).Y, 122); // 122.5
    EXPECT_EQ(PointToPlot(view, 0, 1.25).Y, 198); // 197.5
    EXPECT_EQ(PointToPlot(view, 0, 8.7500001).Y, 122);
    EXPECT_EQ(ErrorNumberOf([&] { PointToPlot(view, 0, 1e9); }), Overflow);
}

TEST(PointToPlot, FollowsZoomAndPan) {
    ws = Workspace{};
    const auto points = PointsOf(Xs, Ys);
    PointView view;
    view.PointZoom = 1.4;
    view.PanSettledX = 10.5;
    view.PanSettledY = -3;
    view.PanDX = 2;
    view.PanDY = 1.25;
    ComputePointView(view, RetroPointSurface(), points.X, points.Y);
    EXPECT_DOUBLE_EQ(PointToPlot(view, Xs[2], Ys[2]).X, 293.48475490734734);
    EXPECT_EQ(PointToPlot(view, Xs[2], Ys[2]).Y, 127); // 126.94242509874891
    EXPECT_DOUBLE_EQ(PointToPlot(view, Xs[4], Ys[4]).X, 100.51524509265062);
    EXPECT_EQ(PointToPlot(view, Xs[4], Ys[4]).Y, 97); // 97.25480820418159
}

TEST(PointView, KeepsWhatItWasButItsSizeWhereAFitStopsAtAFault) {
    ws = Workspace{};
    const auto points = PointsOf({0, 20}, {0, 20});
    PointView view = ViewOf(Square, points);
    const auto far = PointsOf({-1e308, 1e308}, {0, 20});
    EXPECT_EQ(ErrorNumberOf([&] { ComputePointView(view, Square, far.X, far.Y); }), Overflow);
    EXPECT_FALSE(view.IsValid());
    EXPECT_EQ(view.DataXMax, 20);
    EXPECT_EQ(view.ScaleX, 10);
    EXPECT_EQ(view.MapCentreX, 0);
    EXPECT_EQ(ws.ScaleX, 10);
    EXPECT_EQ(PointToPlot(view, 0, 0).X, 10); // a click finds what is drawn
}

TEST(PointView, IsRefusedAfterAFault) {
    ws = Workspace{};
    PointView view;
    Array1<double> x(2), y(2);
    x(1) = y(1) = -1;
    x(2) = y(2) = 1;
    ComputePointView(view, {100, 100, 100, 100}, x, y);
    ASSERT_TRUE(view.IsValid());
    const double before = view.ScaleX;

    y(1) = -1e308;
    y(2) = 1e308;
    EXPECT_EQ(ErrorNumberOf([&] { ComputePointView(view, {100, 100, 100, 100}, x, y); }), Overflow);
    EXPECT_FALSE(view.IsValid());
    EXPECT_TRUE(std::isfinite(view.MarginY));
    EXPECT_EQ(view.ScaleX, before);
    EXPECT_EQ(ws.ScaleX, before);

    y(1) = -1;
    y(2) = 1;
    EXPECT_EQ(ErrorNumberOf([&] { ComputePointView(view, {0, 0, 0, 0}, x, y); }), InvalidProcedureCall);
    EXPECT_FALSE(view.IsValid());
    EXPECT_TRUE(std::isfinite(view.ViewFactor));
}

TEST(PlotAllPoints, StandsForADrawing) {
    ws = Workspace{};
    EXPECT_EQ(Plotted(RetroPointSurface(), PointsOf(Xs, Ys), 1.2),
              (std::vector<PlotPoint>{
                  {157, 229}, {169, 258}, {267, 130}, {209, 23}, {102, 105}, {238, 204}, {178, 144}}));
    EXPECT_EQ(Plotted(ProspectivePointSurface(), PointsOf(Xs, Ys)),
              (std::vector<PlotPoint>{
                  {193, 194}, {201, 214}, {267, 128}, {228, 56}, {156, 111}, {248, 178}, {207, 138}}));
    EXPECT_EQ(ws.PlottedPoints(0), PlotPoint{});
}

TEST(PlotAllPoints, RoundsBothToTheEvenNeighbour) {
    // x = 112.5, 113.5 and y = 122.5, 197.5
    EXPECT_EQ(Plotted(Square, PointsOf({0, 20, 10.25, 10.35}, {0, 20, 8.75, 1.25})),
              (std::vector<PlotPoint>{{10, 210}, {210, 10}, {112, 122}, {114, 198}}));
}

TEST(PlotAllPoints, KeepsThePositionsWhereTheViewIsRefused) {
    Plotted(Square, PointsOf({0, 20}, {0, 20}));
    EXPECT_EQ(Plotted(Square, PointsOf({5}, {5})), (std::vector<PlotPoint>{{10, 210}, {210, 10}}));
}

TEST(NearestPoint, IsTheNearestOnThePlot) {
    const auto points = PointsOf({0, 20, 10}, {0, 20, 5});
    const auto view = ViewOf(Square, points);
    // On the plot: (10, 210), (210, 10), (110, 160).
    EXPECT_EQ(NearestPoint(view, 10, 210, points.X, points.Y), 1);
    EXPECT_EQ(NearestPoint(view, 150, 20, points.X, points.Y), 2);
    EXPECT_EQ(NearestPoint(view, 100, 150, points.X, points.Y), 3);
    EXPECT_EQ(NearestPoint(view, -1e6, 1e6, points.X, points.Y), 1);
}

TEST(NearestPoint, TakesUnroundedPositions) {
    // (110.4, 160) and (109.6, 160): both would be 110 when rounded.
    const auto points = PointsOf({0, 20, 10.04, 9.96}, {0, 20, 5, 5});
    const auto view = ViewOf(Square, points);
    EXPECT_EQ(NearestPoint(view, 110.1, 160, points.X, points.Y), 3);
    EXPECT_EQ(NearestPoint(view, 109.9, 160, points.X, points.Y), 4);
}

TEST(NearestPoint, LeavesTiesToTheSort) {
    // Four points; 2, 3 and 4 in one place, which is clicked. Distances a 0 0 0 with a above 0: half of 5 is
    // 2, a swap of 1 and 3; the order is then 3 2 1 4, and gap 1 moves point 1 to the end.
    const auto points = PointsOf({0, 20, 20, 20}, {0, 20, 20, 20});
    const auto view = ViewOf(Square, points);
    EXPECT_EQ(NearestPoint(view, 210, 10, points.X, points.Y), 3);
}

TEST(NearestPoint, NeedsAPoint) {
    EXPECT_EQ(ErrorNumberOf([] { NearestPoint(PointView{}, 0, 0, Array1<double>(0), Array1<double>(0)); }),
              SubscriptOutOfRange);
}
