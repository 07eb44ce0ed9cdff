#include "core/display/HitTest.h"
#include "core/display/PolygonView.h"
#include "core/spatial/CPolygon.h"
#include "core/workspace/Workspace.h"
#include "support/PlainView.h"
#include "support/screens/Mouse.h"
#include "support/screens/PolygonScreenTest.h"

#include <QAction>
#include <QStatusBar>

#include <algorithm>
#include <cmath>
#include <cstdio>

using namespace vastrel;

namespace {

using Ring = std::vector<PointXY>;

/// Crossing number: how often a ray to the right meets the edges, odd or even.
bool Holds(const Ring& ring, const PointXY& at) {
    bool inside = false;
    for (size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++)
        if ((ring[i].Y > at.Y) != (ring[j].Y > at.Y) &&
            at.X < (ring[j].X - ring[i].X) * (at.Y - ring[i].Y) / (ring[j].Y - ring[i].Y) + ring[i].X)
            inside = !inside;
    return inside;
}

double DistanceToEdges(const Ring& ring, const PointXY& at) {
    double least = 1e300;
    for (size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
        const double ex = ring[i].X - ring[j].X, ey = ring[i].Y - ring[j].Y;
        const double length = ex * ex + ey * ey;
        const double along =
            length > 0 ? std::clamp(((at.X - ring[j].X) * ex + (at.Y - ring[j].Y) * ey) / length, 0.0, 1.0)
                       : 0;
        least = std::min(least, std::hypot(at.X - ring[j].X - along * ex, at.Y - ring[j].Y - along * ey));
    }
    return least;
}

/// The map window with a real dataset, and where everything on it should be, worked out anew.
class RealMap : public PolygonScreenTest, public testing::WithParamInterface<const char*> {
protected:
    bool Open() {
        const std::string path = CopyOfRealShapefile(Folder, GetParam());
        if (path.empty()) return false;
        OpenPro(path);
        for (const auto& polygon : ws.ShpPolygons) {
            Polygons.emplace_back();
            for (const CPart& part : *polygon) {
                Polygons.back().emplace_back();
                for (const CPoint& vertex : part) {
                    Polygons.back().back().push_back({vertex.X, vertex.Y});
                    View.Box.Take({vertex.X, vertex.Y});
                }
            }
        }
        View.Surface = picSHP.Size();
        return true;
    }

    void Moved(double x, double y) {
        View.MovedX = x;
        View.MovedY = y;
    }
    double Near(double value) const { // what a 32-bit float keeps of a coordinate
        return 1e-6 * std::max({View.Box.Width(), View.Box.Height(), std::fabs(value)});
    }

    /// The Region that a click has to select: of a single ring at once, else the last of several rings.
    std::int32_t RegionAt(const PointXY& at) const {
        std::int32_t found = 0;
        for (size_t k = 0; k < Polygons.size(); ++k)
            for (const Ring& ring : Polygons[k])
                if (Holds(ring, at)) {
                    found = static_cast<std::int32_t>(k);
                    if (Polygons[k].size() == 1) return found;
                }
        return found;
    }
    /// Too near to a border for the float that the click goes through, in pixels.
    bool IsOnABorder(const PointXY& at) const {
        constexpr double pixels = 0.02;
        for (const auto& rings : Polygons)
            for (const Ring& ring : rings)
                if (DistanceToEdges(ring, at) * std::fabs(View.Scale()) < pixels) return true;
        return false;
    }

    void Tool(const char* key) { MapWindow.findChild<QAction*>(key)->trigger(); }

    /// What the map was drawn with, and every vertex of it.
    void ExpectView() {
        for (const double scale : {ws.PolygonView.MapScaleX, ws.PolygonView.MapScaleY})
            EXPECT_NEAR(scale, View.Scale(), 1e-9 * std::fabs(View.Scale()));
        double worst = 0;
        for (const auto& rings : Polygons)
            for (const Ring& ring : rings)
                for (const PointXY& vertex : ring) {
                    const PlotPoint drawn = WorldToPlot(vertex.X, vertex.Y);
                    const PointXY expected = View.Plot(vertex);
                    worst = std::max(worst, std::fabs(drawn.X - expected.X) - 0.5);
                    worst = std::max(worst, std::fabs(drawn.Y - expected.Y) - 1.0); // rounded twice
                }
        EXPECT_LT(worst, 1e-6);
    }

    /// A net of clicks over the surface; how many fell on a Region other than the first.
    int ExpectHits() {
        int hits = 0;
        for (double x = 4; x < View.Surface.ScaleWidth; x += 13)
            for (double y = 4; y < View.Surface.ScaleHeight; y += 11) {
                const PointXY at = View.Map({x, y});
                if (IsOnABorder(at)) continue;
                const RegionHit hit = HitTestRegion(x, y);
                EXPECT_EQ(hit.Region, RegionAt(at)) << x << ", " << y;
                EXPECT_NEAR(hit.At.X, at.X, Near(at.X));
                EXPECT_NEAR(hit.At.Y, at.Y, Near(at.Y));
                hits += hit.Region > 0 ? 1 : 0;
            }
        return hits;
    }
    void ExpectStatus(double plotX, double plotY, const PointXY& lastDrag = {}) {
        Hand.Move(plotX, plotY, Qt::NoButton);
        double x = 0, y = 0;
        const std::string shown = Frame.findChild<QStatusBar*>("staMain")->currentMessage().toStdString();
        ASSERT_EQ(std::sscanf(shown.c_str(), "(X: %lf, Y: %lf)", &x, &y), 2) << shown;
        const PointXY at = View.Map({plotX + lastDrag.X, plotY + lastDrag.Y});
        EXPECT_NEAR(x, at.X, Near(at.X));
        EXPECT_NEAR(y, at.Y, Near(at.Y));
    }

    std::vector<std::vector<Ring>> Polygons;
    PlainView View;
    PlotWidget& picSHP = *MapWindow.findChild<PlotWidget*>("picSHP");
    Mouse Hand{picSHP};
};

} // namespace

TEST_P(RealMap, StandsWhereTheViewSays) {
    if (!Open()) GTEST_SKIP() << "no real data";
    ExpectView();
    EXPECT_GT(ExpectHits(), 10);
    ExpectStatus(120, 90);

    Tool("Pan");
    Hand.Drag(100, 100, 25, -14); // the release draws by the offset alone and settles it behind that
    Moved(25, -14);
    ExpectView();
    EXPECT_GT(ExpectHits(), 10);
    ExpectStatus(120, 90, {25, -14});

    Tool("ZoomIn"); // by settled sum and offset both
    Hand.Press(10, 10);
    View.Zoom = 1.8;
    Moved(50, -28);
    ExpectView();
    EXPECT_GT(ExpectHits(), 10);
    Hand.Release(10, 10); // settled 50, -28
    Tool("ZoomOut");
    Hand.Click(200, 100, Qt::RightButton); // drawn before its release settles 75, -42
    View.Zoom = 1;
    Moved(75, -42);
    ExpectView();
    EXPECT_GT(ExpectHits(), 10);

    Hand.DoubleClick(200, 100); // zooms out once more, and settles 100, -56 before it forgets the offset
    View.Zoom = 0.2;
    EXPECT_EQ(ws.PolygonView.PanSettledX, 100);
    Tool("ZoomIn");
    Hand.Press(200, 100);
    View.Zoom = 1;
    Moved(100, -56);
    ExpectView();
    ExpectHits();
    ExpectStatus(120, 90);

    Tool("FullExt");
    Moved(0, 0);
    ExpectView();
    EXPECT_GT(ExpectHits(), 10);
}

TEST_P(RealMap, FallsOnOnePointAndIsMirroredBelowAZoomOfZero) {
    if (!Open()) GTEST_SKIP() << "no real data";
    Tool("ZoomOut");
    Hand.Click(10, 10);
    Hand.Click(10, 10, Qt::MiddleButton);
    View.Zoom = 1 - 4 * 0.4; // -0.6
    ExpectView();
    EXPECT_GT(ExpectHits(), 5);
}

/// A press of the Find tool at the middle of a Region lights it up. Its middle need not be inside, but a
/// click there has to select what holds it.
TEST_P(RealMap, FindsWhatIsUnderTheMouse) {
    if (!Open()) GTEST_SKIP() << "no real data";
    MapWindow.EnableButton("Find", true);
    Tool("Find");
    int own = 0;
    for (int i = 1; i <= std::min<int>(ws.NumRegion, 60); ++i) {
        const PointXY centre{ws.RegionCentroid(i).X, ws.RegionCentroid(i).Y};
        if (IsOnABorder(centre)) continue;
        const PointXY plot = View.Plot(centre);
        Hand.Press(plot.X, plot.Y, Mouse::EachButton[i % 3]);
        EXPECT_EQ(ws.SelectedRegion, RegionAt(centre)) << i;
        own += ws.SelectedRegion == i - 1;
    }
    EXPECT_GT(own, std::min<int>(ws.NumRegion, 60) * 9 / 10);
}

INSTANTIATE_TEST_SUITE_P(Datasets, RealMap,
                         testing::Values("nc/nc", "scotlip/scotlip", "imd_de/imd_de", "measles/msl_we"),
                         [](const auto& test) {
                             const std::string name = test.param;
                             return name.substr(name.find('/') + 1);
                         });
