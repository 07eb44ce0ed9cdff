// What an analyst waits for at the screen: a map that is painted again, files that are opened, long lists and
// the attribute table.
#include "Register.h"
#include "core/display/MapSizes.h"
#include "core/display/PolygonMap.h"
#include "core/display/PolygonPainter.h"
#include "core/platform/Platform.h"
#include "core/spatial/ShapeDataset.h"
#include "core/workspace/Workspace.h"
#include "desktop/display/frmPolygonSHP.h"
#include "desktop/frontend/MDIFrmMain.h"
#include "desktop/spatial/frmAttTable.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/Screens.h"
#include "pictures/PaintedSurface.h"
#include "pictures/PictureFiles.h"
#include "support/AttributeData.h"
#include "support/screens/Mouse.h"

#include <QAction>
#include <QApplication>
#include <QImage>

#include <cmath>

using namespace vastrel;

namespace {

/// A surface that takes the time of the toolkit out of a picture.
class NullSurface : public PlotSurface {
public:
    SurfaceSize Size() const override { return PolygonMapSurface(); }
    void Erase() override {}
    void SetLineWidth(int) override {}
    void SetPen(Colour) override {}
    void SetFillStyle(FillStyle) override {}
    void SetFill(Colour) override {}
    void Polygon(const std::vector<PlotPoint>& corners) override { benchmark::DoNotOptimize(corners.data()); }
    void Circle(double, double, double, Colour) override {}
    void Box(double, double, double, double, Colour) override {}
    void Point(double, double, Colour) override {}
    void Text(double, double, const std::string&) override {}
    void Refresh() override {}
};

class ImageSurface : public PaintedSurface {
public:
    ImageSurface() : image_(393, 273, QImage::Format_RGB32), painter_(&image_) {}
    SurfaceSize Size() const override { return PolygonMapSurface(); }
    void Refresh() override {}

protected:
    void Paint(const Stroke& stroke) override { stroke(painter_); }

private:
    QImage image_;
    QPainter painter_;
};

/// Round Regions in a grid, one unit apart, of so many vertices each, and their table.
std::string WriteRoundRegions(const TemporaryFolder& folder, int regions, int vertices) {
    constexpr double fullTurn = 6.283185307179586;
    const int across = static_cast<int>(std::ceil(std::sqrt(regions)));
    ShapefileBytes shapes(5);
    std::vector<std::vector<std::string>> rows;
    for (int i = 0; i < regions; ++i) {
        Ring ring;
        for (int v = 0; v < vertices - 1; ++v)
            ring.push_back({i % across + 0.5 * std::cos(-fullTurn * v / (vertices - 1)),
                            i / across + 0.5 * std::sin(-fullTurn * v / (vertices - 1))});
        ring.push_back(ring.front());
        shapes.Add(PolygonContents({ring}));
        rows.push_back({std::to_string(i + 1), std::to_string(1000 + i)});
    }
    folder.Write("round.dbf", TableBytes({{"ID", 'N', 6}, {"POP", 'N', 9}}, rows));
    return shapes.WritePair(folder, "round.shp");
}

void OpenShapefile(const std::string& path) {
    ws = Workspace{};
    OpenShapeAttributes({path, "round.shp", false});
    ReadShapeHeader();
    LoadShapes();
}

void OpenFiles(benchmark::State& state) {
    const TemporaryFolder folder;
    const std::string path = WriteRoundRegions(folder, 5000, 120);
    for (auto _ : state)
        OpenShapefile(path);
}

/// 3,000 Regions of 80,000 vertices, with a value each.
struct OpenMap {
    OpenMap() {
        OpenShapefile(WriteRoundRegions(Folder, 3000, 27));
        ws.bRetroMapping = true;
        Values.ReDim(ws.NumRegion);
        for (std::ptrdiff_t i = 1; i <= ws.NumRegion; ++i)
            Values(i) = std::sin(static_cast<double>(i));
    }

    TemporaryFolder Folder;
    Array1<double> Values;
};

template <typename Surface>
void PaintOutlines(benchmark::State& state) {
    UsePicturesOffscreen();
    const OpenMap map;
    Surface surface;
    for (auto _ : state)
        DrawPlainMap(surface);
}

void PaintStatistic(benchmark::State& state) {
    UsePicturesOffscreen();
    const OpenMap map;
    ImageSurface form, surface;
    for (auto _ : state) {
        auto classValues = map.Values;
        ShowRetroMap({form, surface, RetroVariable::Unadjusted}, classValues, map.Values);
    }
}

/// One move of the pan tool over the map window, up to the picture on the screen.
void DragMap(benchmark::State& state) {
    UsePicturesOffscreen();
    static auto* const frame = new MDIFrmMain; // the screens keep to the first one
    frame->ShowFrame();
    const OpenMap map;
    auto& window = The<frmPolygonSHP>();
    window.DrawPlainMap();
    window.findChild<QAction*>("Pan")->trigger();
    Mouse hand(*window.findChild<PlotWidget*>("picSHP"));
    QApplication::processEvents();
    hand.Press(100, 100);
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 50;
        hand.Move(100 + step, 100 - step);
        QApplication::processEvents();
    }
    hand.Release(100, 100);
    frame->Unload();
}

void FillList(benchmark::State& state) {
    UsePicturesOffscreen();
    const std::string row = "  1234        0.1234       -1.2345        0.0001     12345";
    for (auto _ : state) {
        ListBox list;
        list.resize(400, 300);
        list.show();
        for (int i = 0; i < 5000; ++i)
            list.AddItem(row);
        list.grab();
    }
}

void FillGrid(benchmark::State& state) {
    UsePicturesOffscreen();
    const TemporaryFolder folder;
    std::vector<TableColumn> columns;
    std::vector<std::string> row;
    for (int column = 1; column <= 100; ++column) {
        columns.push_back({"C" + std::to_string(column), 'N', 10, 2});
        row.push_back(std::to_string(column) + ".25");
    }
    OpenTable(folder, columns, {5000, row}, 5000);
    ws.DbfFilePath = folder / "data.dbf";
    for (auto _ : state) {
        frmAttTable grid;
        grid.TakeTable();
        grid.show();
        grid.grab();
    }
}

const bool registered = Register("open/5000/shapefile/1", Length::Long, OpenFiles) &&
                        Register("paint/3000/walk/1", Length::Short, PaintOutlines<NullSurface>) &&
                        Register("paint/3000/outlines/1", Length::Short, PaintOutlines<ImageSurface>) &&
                        Register("paint/3000/statistic/1", Length::Short, PaintStatistic) &&
                        Register("paint/3000/a move of the pan tool/1", Length::Short, DragMap) &&
                        Register("list/5000/rows/1", Length::Long, FillList) &&
                        Register("grid/5000/table/1", Length::Long, FillGrid);

} // namespace
