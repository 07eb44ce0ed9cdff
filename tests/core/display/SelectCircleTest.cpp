#include "core/display/SelectCircle.h"

#include "support/Arrays.h"
#include "support/RaisedError.h"
#include "support/RecorderSurface.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

// Data from 0 to 20 on a square surface: x = 10 X + 10 and y = 210 - 10 Y.
PointView TenPixelsAUnit() {
    PointView view;
    const auto corners = ArrayFrom1<double>({0, 20});
    ComputePointView(view, {3000, 3000, 220, 220}, corners, corners);
    return view;
}

std::vector<double> Flags(const Array1<KeyedValue>& selection) {
    std::vector<double> flags;
    for (const KeyedValue& pair : From1(selection))
        flags.push_back(pair.Second);
    return flags;
}

} // namespace

TEST(SelectCircle, GoesThroughThePositionOfTheMouse) {
    const auto circle = CircleThrough(10, 20, 13, 16); // 3, 4, 5
    EXPECT_EQ(circle.CentreX, 10);
    EXPECT_EQ(circle.CentreY, 20);
    EXPECT_EQ(circle.Radius, 5);
}

TEST(SelectCircle, TellsItsRadiusInWholeMapUnits) {
    const auto view = TenPixelsAUnit();
    EXPECT_EQ(SelectRadius(view, {50, 50, 0}), 0);
    EXPECT_EQ(SelectRadius(view, {50, 50, 34}), 3);
    EXPECT_EQ(SelectRadius(view, {50, 50, 36}), 4);
    EXPECT_EQ(SelectRadius(view, {50, 50, 4}), 0);
}

TEST(SelectCircle, MeasuresTheSameOnAPannedMapAndTheOppositeOnAMirroredOne) {
    auto view = TenPixelsAUnit();
    view.PanDX = 64;
    EXPECT_EQ(SelectRadius(view, {50, 50, 70}), 7);
    view.ScaleX = -10;
    EXPECT_EQ(SelectRadius(view, {50, 50, 70}), -7);
}

TEST(SelectCircle, HasNoRadiusOnAMapWithoutScale) {
    EXPECT_EQ(ErrorNumberOf([] { SelectRadius(PointView{}, {50, 50, 10}); }), DivisionByZero);
}

TEST(SelectCircle, SelectsWhatIsInsideAndWhatIsOnIt) {
    const auto view = TenPixelsAUnit();
    const auto x = ArrayFrom1<double>({0, 5, 5.01, 3, 20});
    const auto y = ArrayFrom1<double>({0, 0, 0, 4, 20});
    // The first point is at (10, 210); the second and the fourth are 50 pixels away, the third 50.1.
    const auto selection = PointSelection(view, {10, 210, 50}, x, y, 5);
    EXPECT_EQ(Flags(selection), (std::vector<double>{1, 1, 0, 1, 0}));
    EXPECT_EQ(selection(4).First, 4);
    EXPECT_EQ(Flags(PointSelection(view, {10, 210, 50}, x, y, 2)), (std::vector<double>{1, 1}));
    EXPECT_EQ(ErrorNumberOf([&] { PointSelection(view, {10, 210, 50}, x, y, 6); }), SubscriptOutOfRange);
}

TEST(SelectCircle, SelectsByUnroundedPositionsAndTheDrag) {
    auto view = TenPixelsAUnit();
    const auto x = ArrayFrom1<double>({0, 5.04});
    const auto y = ArrayFrom1<double>({0, 0});
    EXPECT_EQ(Flags(PointSelection(view, {10, 210, 50}, x, y, 2)), (std::vector<double>{1, 0}));
    view.PanDX = -0.5; // 60.4 - 0.5 is 49.9 from the centre
    EXPECT_EQ(Flags(PointSelection(view, {10, 210, 50}, x, y, 2)), (std::vector<double>{1, 1}));
}

TEST(SelectCircle, IsDrawnThinAndGreen) {
    RecorderSurface surface({3000, 3000, 220, 220}), expected({3000, 3000, 220, 220});
    DrawSelectCircle(surface, {10, 20, 5});
    expected.SetLineWidth(1);
    expected.Circle(10, 20, 5, 0x00FF00);
    expected.Refresh();
    EXPECT_EQ(surface.Operations(), expected.Operations());
}
