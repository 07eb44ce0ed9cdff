// The study area of a point map that was zoomed and moved.
#include "core/workspace/Workspace.h"
#include "desktop/retrospective/PointScreen.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/screens/Mouse.h"

#include <cmath>

using namespace vastrel;

namespace {

/// Four points at the corners of a rectangle of 4 by 3 units, with margins of 0.2 and 0.15.
class PointArea : public PointScreenTest {
protected:
    /// The study area by hand: the corners in whole pixels, drawn at a zoom and moved, in the order of the
    /// hull from the upper left one. Of the four sides only those are summed that touch no first corner.
    double Area(double zoom, const QPoint& moved = {}) {
        const SurfaceSize size = picPoint.Size();
        const double scale = static_cast<double>(size.ScaleWidth) * (size.Height / size.Width) * zoom / 4.4;
        const auto corner = [&](double x, double y) {
            return std::pair{std::nearbyint(size.ScaleWidth / 2.0 + moved.x() + scale * (x - 2)),
                             std::nearbyint(size.ScaleHeight / 2.0 + moved.y() - scale * (y - 1.5))};
        };
        const auto cross = [](const auto& a, const auto& b) {
            return a.first * b.second - b.first * a.second;
        };
        const auto upperRight = corner(4, 3), lowerRight = corner(4, 0), lowerLeft = corner(0, 0);
        return std::fabs(cross(upperRight, lowerRight) + cross(lowerRight, lowerLeft)) / 2 / (scale * scale);
    }

    PlotWidget& picPoint = *Screen.findChild<PlotWidget*>("picPoint");
    Mouse Hand{picPoint};
};

} // namespace

TEST_F(PointArea, FollowsTheMapOfTheMoment) {
    LoadFour();
    RunSingle("1");
    const double before = ws.TotalShapeArea;
    EXPECT_NEAR(before, Area(1.2), 1e-9 * before);
    const auto lists = Rows(Local());
    Press(Screen, "optZoomIn");
    Hand.Click(50, 50);
    Hand.Click(50, 50);
    EXPECT_EQ(ws.TotalShapeArea, before); // the next run takes it
    RunSingle("1");
    EXPECT_NEAR(ws.TotalShapeArea, Area(1.6), 1e-9 * before);
    EXPECT_GT(std::fabs(ws.TotalShapeArea - before), 1e-3 * before);
    EXPECT_NE(Rows(Local()), lists);
    Press(Screen, "optPan");
    Hand.Drag(100, 100, 30, 12);
    RunSingle("1"); // the settled pan and the last drag both move the points
    EXPECT_NEAR(ws.TotalShapeArea, Area(1.6, {60, 24}), 1e-9 * before);
}
