#include "core/layer/GeoJson.h"

#include "core/numeric/RowWorkers.h"

#include <gtest/gtest.h>

using namespace vastrel;

namespace {

/// A triangle that runs clockwise, as those of a shapefile do.
std::shared_ptr<CPolygon> Triangle(double x, double y, double side) {
    CPart part;
    for (const PointXY& vertex : {PointXY{x, y}, {x, y + side}, {x + side, y}, {x, y}})
        part.Add(CPoint(vertex.X, vertex.Y));
    auto polygon = std::make_shared<CPolygon>();
    polygon->Add(std::move(part));
    return polygon;
}

Layer LayerOf(const Collection<CPolygon>& polygons) {
    Layer layer;
    layer.Rows.RowCount = polygons.Count();
    layer.Rows.AddWholes("N", [](std::ptrdiff_t row) { return 10 * row; });
    layer.Polygons = &polygons;
    return layer;
}

} // namespace

TEST(GeoJson, TurnsTheOuterRingsAndKeepsEveryBitOfACoordinate) {
    Collection<CPolygon> polygons;
    polygons.Add(Triangle(0.1, -2.5e-7, 1e21));
    polygons.Add(std::make_shared<CPolygon>()); // a Region without a part
    EXPECT_EQ(GeoJsonText(LayerOf(polygons)),
              "{\n\"type\": \"FeatureCollection\",\n\"features\": [\n"
              "{\"type\":\"Feature\",\"id\":1,\"properties\":{\"N\":10},\"geometry\":"
              "{\"type\":\"MultiPolygon\",\"coordinates\":"
              "[[[[0.1,-2.5e-07],[1e+21,-2.5e-07],[0.1,1e+21],[0.1,-2.5e-07]]]]}},\n"
              "{\"type\":\"Feature\",\"id\":2,\"properties\":{\"N\":20},\"geometry\":null}\n]\n}\n");
}

TEST(GeoJson, HoldsNumbersOfTheLongestText) {
    Collection<CPolygon> polygons;
    polygons.Add(Triangle(-2.2250738585072014e-308, -1.2345678901234568e-300, 1.5));
    EXPECT_NE(
        GeoJsonText(LayerOf(polygons)).find("[[[[-2.2250738585072014e-308,-1.2345678901234568e-300],[1.5,"),
        std::string::npos);
}

TEST(GeoJson, IsTheSameFromEachNumberOfWorkers) {
    Collection<CPolygon> polygons;
    for (int i = 0; i < 11; ++i)
        polygons.Add(Triangle(i, i / 3.0, 1.0 / (i + 1)));
    ForceWorkers(1);
    const std::string text = GeoJsonText(LayerOf(polygons));
    for (const int workers : {2, 3, 16}) {
        ForceWorkers(workers);
        EXPECT_EQ(GeoJsonText(LayerOf(polygons)), text) << workers;
    }
    ForceWorkers(0);
}
