#include "validation/StudyMaps.h"

#include "core/display/MapSizes.h"
#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"
#include "core/numeric/Elementary.h"

#include "core/platform/Platform.h"
#include "core/retrospective/PointDataset.h"
#include "core/retrospective/Weights.h"
#include "core/spatial/Centroids.h"
#include "core/spatial/ShapeDataset.h"
#include "validation/RandomNumbers.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace vastrel::validation {

namespace {

constexpr const char* PointsFile = "/country_pop.txt";
constexpr const char* ShapesFile = "/country.shp";

void LoadPoints(const std::string& samples) {
    ws = Workspace{};
    ws.bTextfileData = true;
    if (!LoadPointDataset(samples + PointsFile, PointFormat::PopCase))
        throw std::runtime_error("The sample of points cannot be read.");
}

double DistanceSquared(const RegionPoint& a, const RegionPoint& b) {
    return (a.X - b.X) * (a.X - b.X) + (a.Y - b.Y) * (a.Y - b.Y);
}

} // namespace

StudyMap CountryMap(const std::string& samples) {
    LoadPoints(samples);
    StudyMap map{"country", {}, ws.PopBase, 0};
    const Array1<RegionPoint> points = ws.RegionCentroid;
    ws = Workspace{};
    const std::string path = std::filesystem::canonical(samples + ShapesFile).string();
    if (!OpenShapeAttributes({path, ShapesFile + 1, false}))
        throw std::runtime_error("The sample of polygons cannot be read.");
    ws.bShapefileData = true;
    ReadShapeHeader();
    LoadShapes();
    ComputeShapeAreas();
    ComputeCentroids();
    map.At = ws.RegionCentroid;
    map.Area = ws.TotalShapeArea;
    for (std::ptrdiff_t i = 1; i <= map.Count(); ++i)
        if (DistanceSquared(map.At(i), points(i)) > 1e-3)
            throw std::runtime_error("The samples of points and polygons are not in one order.");
    return map;
}

StudyMap CountryPointsMap(const std::string& samples) {
    LoadPoints(samples);
    PointMap plotted(RetroPointMapZoom.Start);
    plotted.TakeCentroids(static_cast<std::ptrdiff_t>(ws.NumTextRegion));
    PlotAllPoints(plotted.View, RetroPointSurface(), plotted.X, plotted.Y);
    TakePointDataset();
    return {"country-points", ws.RegionCentroid, ws.PopBase, ws.TotalShapeArea};
}

StudyMap GridMap(int side) {
    const std::ptrdiff_t n = std::ptrdiff_t{side} * side;
    StudyMap map{"grid-" + std::to_string(n), Array1<RegionPoint>(n), Array1<double>(n),
                 static_cast<double>(n)};
    for (std::ptrdiff_t i = 0; i < n; ++i) {
        const std::ptrdiff_t column = i % side, row = i / side;
        map.At(i + 1) = {std::to_string(i + 1), static_cast<double>(column), static_cast<double>(row)};
        map.Population(i + 1) = 1000;
    }
    return map;
}

StudyMap UnequalMap(int side) {
    StudyMap map = GridMap(side);
    map.Name = "unequal-" + std::to_string(map.Count());
    RandomNumbers random(map.Name, 0);
    for (std::ptrdiff_t i = 1; i <= map.Count(); ++i)
        map.Population(i) = 1000 * Exponential(1.5 * random.Normal());
    return map;
}

std::ptrdiff_t MiddleRegion(const StudyMap& map) {
    RegionPoint middle;
    for (std::ptrdiff_t i = 1; i <= map.Count(); ++i) {
        middle.X += map.At(i).X / static_cast<double>(map.Count());
        middle.Y += map.At(i).Y / static_cast<double>(map.Count());
    }
    std::ptrdiff_t nearest = 1;
    for (std::ptrdiff_t i = 2; i <= map.Count(); ++i)
        if (DistanceSquared(map.At(i), middle) < DistanceSquared(map.At(nearest), middle)) nearest = i;
    return nearest;
}

std::vector<std::ptrdiff_t> Disc(const StudyMap& map, double share) {
    const RegionPoint& centre = map.At(MiddleRegion(map));
    std::vector<std::ptrdiff_t> order;
    double people = 0, inside = 0;
    for (std::ptrdiff_t i = 1; i <= map.Count(); ++i) {
        order.push_back(i);
        people += map.Population(i);
    }
    std::stable_sort(order.begin(), order.end(), [&](auto a, auto b) {
        return DistanceSquared(map.At(a), centre) < DistanceSquared(map.At(b), centre);
    });
    std::size_t size = 0;
    while (inside < share * people)
        inside += map.Population(order[size++]);
    order.resize(size);
    return order;
}

void TakeMap(const StudyMap& map) {
    ws = Workspace{};
    ws.bShapefileData = true;
    ws.NumRegion = static_cast<std::int32_t>(map.Count());
    ws.RegionCentroid = map.At;
    ws.TotalShapeArea = map.Area;
}

} // namespace vastrel::validation
