#include "core/workspace/Workspace.h"
#include "desktop/prospective/frmUnivariateCusumTextfile.h"
#include "desktop/retrospective/frmClusterDetectionTextfile.h"
#include "desktop/retrospective/frmSelectDataFormat.h"
#include "desktop/toolkit/OptionButton.h"
#include "support/PlainView.h"
#include "support/TemporaryFolder.h"
#include "support/screens/Mouse.h"
#include "support/screens/ScreenTest.h"

#include <cmath>
#include <sstream>

using namespace vastrel;

namespace {

constexpr const char* OpenFilter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";
constexpr double Margin = 1.0 / 20;

/// A point map of real data, and where its points should be, worked out anew.
class RealPoints : public ScreenTest {
protected:
    struct NamedPoint {
        std::string Id;
        PointXY At;
    };

    /// The points of a file whose lines begin with id, x, y.
    void TakePoints(const std::string& path) {
        std::istringstream file(ReadFile(path));
        MapBox box;
        for (std::string line; std::getline(file, line);) {
            std::istringstream row(line);
            std::string id, x, y;
            std::getline(std::getline(std::getline(row, id, ','), x, ','), y, ',');
            Points.push_back({id, {std::stod(x), std::stod(y)}});
            box.Take(Points.back().At);
        }
        View.Box = box.With(Margin);
    }
    void Show(Screen& screen, double zoom) {
        picPoint = screen.findChild<PlotWidget*>("picPoint");
        View.Surface = picPoint->Size();
        View.Zoom = zoom;
    }
    void Moved(double x, double y) {
        View.MovedX = x;
        View.MovedY = y;
    }

    /// The point nearest to a plot position, and whether no other one is about as near.
    std::pair<size_t, bool> Nearest(const PointXY& plot) const {
        size_t best = 0;
        double least = 1e300, second = 1e300;
        for (size_t i = 0; i < Points.size(); ++i) {
            const PointXY at = View.Plot(Points[i].At);
            const double distance = std::hypot(at.X - plot.X, at.Y - plot.Y);
            if (distance < least) {
                second = least;
                least = distance;
                best = i;
            } else {
                second = std::min(second, distance);
            }
        }
        return {best, second - least > 1e-6};
    }

    /// Asks for the nearest point all over the surface; `answer` compares what the screen shows.
    void Ask(const std::function<void(size_t)>& answer) {
        Mouse hand(*picPoint);
        int asked = 0;
        for (double x = 8; x < View.Surface.ScaleWidth; x += 37)
            for (double y = 8; y < View.Surface.ScaleHeight; y += 31) {
                const auto [nearest, clear] = Nearest({x, y});
                if (!clear) continue;
                hand.Press(x, y, Mouse::EachButton[asked++ % 3]);
                EXPECT_EQ(picPoint->toolTip().toStdString(), Points[nearest].Id) << x << ", " << y;
                answer(nearest);
            }
        EXPECT_GT(asked, 60);
    }

    std::vector<NamedPoint> Points;
    PlainView View;
    PlotWidget* picPoint = nullptr;
};

class RealRetroPoints : public RealPoints {
protected:
    ~RealRetroPoints() override { Dialog.Unload(); }

    bool Open(const std::string& name, const char* format) {
        const std::string path = RealData(name);
        if (path.empty()) return false;
        Command("mnuOpenTextRetro");
        ScreenTest::Press(Retro, "cmdLoadData");
        ScreenTest::Press(Dialog, format);
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, path);
        ScreenTest::Press(Dialog, "cmdContinue");
        Type(Retro, "txtSingleSigma", "1");
        ScreenTest::Press(Retro, "cmdRun");
        TakePoints(path);
        Show(Retro, 1.2);
        return true;
    }
    void ExpectPlotted() {
        for (size_t i = 0; i < Points.size(); ++i) {
            const PointXY at = View.Plot(Points[i].At);
            EXPECT_NEAR(ws.PlottedPoints(static_cast<std::ptrdiff_t>(i + 1)).X, at.X, 0.5 + 1e-9);
            EXPECT_NEAR(ws.PlottedPoints(static_cast<std::ptrdiff_t>(i + 1)).Y, at.Y, 0.5 + 1e-9);
        }
    }

    frmClusterDetectionTextfile& Retro = The<frmClusterDetectionTextfile>();
    frmSelectDataFormat& Dialog = The<frmSelectDataFormat>();
};

class RealWatchPoints : public RealPoints {
protected:
    bool Open(const std::string& name) {
        const std::string ids = RealData("prospect/" + name + "_xy.txt");
        if (ids.empty()) return false;
        Command("mnuOpenTextPro");
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, ids);
        ScreenTest::Press(Watch, "cmdFileOpenIDXY");
        Script.ExpectFile(FileQuestion::Kind::Open, OpenFilter, RealData("prospect/" + name + "_z.txt"));
        ScreenTest::Press(Watch, "cmdNewZScore");
        ScreenTest::Press(Watch, "cmdRun");
        TakePoints(ids);
        Show(Watch, 1);
        return true;
    }

    frmUnivariateCusumTextfile& Watch = The<frmUnivariateCusumTextfile>();
};

} // namespace

TEST_F(RealRetroPoints, StandWhereTheViewSays) {
    for (const auto& [name, format] :
         {std::pair{"points/tokyo_oe.txt", "optObsExp"}, std::pair{"points/akl_pc.txt", "optPopCase"}}) {
        Points.clear();
        Moved(0, 0);
        if (!Open(name, format)) GTEST_SKIP() << "no real data";
        auto* local = The_<ListBox>(Retro, "lstLocalPatternSummary");
        const auto rowIsSelected = [local](size_t i) {
            EXPECT_EQ(local->ListIndex(), static_cast<int>(i) + 3);
        };
        Mouse hand(*picPoint);
        ExpectPlotted();
        ScreenTest::Press(Retro, "optIdentify");
        Ask(rowIsSelected);

        ScreenTest::Press(Retro, "optPan");
        hand.Drag(100, 100, 30, -20);
        Moved(30, -20);
        ExpectPlotted();
        ScreenTest::Press(Retro, "optZoomIn"); // by settled sum and offset both
        hand.Press(10, 10, Qt::RightButton);
        View.Zoom = 1.4;
        Moved(60, -40);
        ExpectPlotted();
        ScreenTest::Press(Retro, "optIdentify"); // presses alone: a release would settle the drag once more
        Ask(rowIsSelected);

        hand.DoubleClick(10, 10); // its first release settles 60, -40
        ScreenTest::Press(Retro, "optZoomOut");
        hand.Press(10, 10);
        View.Zoom = 1.2;
        ExpectPlotted();
        ScreenTest::Press(Retro, "optFullExtent");
        hand.Press(10, 10);
        Moved(0, 0);
        ExpectPlotted();
        Retro.Unload();
    }
}

TEST_F(RealWatchPoints, StandWhereTheViewSays) {
    for (const char* name : {"msl", "imd"}) {
        Points.clear();
        Moved(0, 0);
        if (!Open(name)) GTEST_SKIP() << "no real data";
        const auto isNamed = [this](size_t i) {
            EXPECT_EQ(Text(Watch, "lblDisplay"), "Selected Region: " + Points[i].Id);
        };
        Mouse hand(*picPoint);
        ScreenTest::Press(Watch, "optIdentify");
        Ask(isNamed);

        ScreenTest::Press(Watch, "optPan");
        hand.Drag(100, 100, -25, 15);
        ScreenTest::Press(Watch, "optZoomOut");
        hand.Press(10, 10, Qt::MiddleButton);
        View.Zoom = 0.85;
        Moved(-50, 30);
        ScreenTest::Press(Watch, "optIdentify");
        Ask(isNamed);

        // The select circle: what it holds on the map is what is nearer on the plot than its radius.
        const PointXY centre = View.Plot(Points[4].At);
        ScreenTest::Press(Watch, "optMeasureDistance");
        const double radius = 60;
        hand.Press(centre.X, centre.Y);
        hand.Move(centre.X, centre.Y + radius);
        hand.Release(centre.X, centre.Y + radius);
        EXPECT_EQ(Text(Watch, "lblDisplay"), "Radius: " + std::to_string(std::lround(radius / View.Scale())));
        for (const NamedPoint& point : Points) {
            const PointXY at = View.Plot(point.At);
            const bool inside = std::hypot(at.X - centre.X, at.Y - centre.Y) <= radius;
            const QColor box = picPoint->Picture().pixelColor(static_cast<int>(std::nearbyint(at.X)),
                                                              static_cast<int>(std::nearbyint(at.Y)));
            EXPECT_EQ(box == QColor(255, 255, 0), inside) << point.Id;
        }
        Watch.Unload();
    }
}
