#include "core/layer/GeoJson.h"

#include "core/spatial/Projection.h"
#include "core/spatial/RingNesting.h"

#include <nlohmann/json.hpp>

namespace vastrel {

namespace {

using Json = nlohmann::ordered_json;

Json Position(const PointXY& point) {
    return Json::array({point.X, point.Y});
}

Json Positions(const ClosedRing& ring) {
    Json positions = Json::array();
    for (const PointXY& vertex : ring)
        positions.push_back(Position(vertex));
    return positions;
}

Json Coordinates(const CPolygon& polygon) {
    Json coordinates = Json::array();
    for (const NestedRings& rings : NestRings(polygon)) {
        Json one = Json::array({Positions(rings.Outer)});
        for (const ClosedRing& hole : rings.Holes)
            one.push_back(Positions(hole));
        coordinates.push_back(std::move(one));
    }
    return coordinates;
}

Json Geometry(const Layer& layer, std::ptrdiff_t region) {
    if (layer.Polygons == nullptr)
        return {{"type", "Point"}, {"coordinates", Position(layer.PointOf(region))}};
    Json coordinates = Coordinates(*layer.Polygons->Item(region));
    if (coordinates.empty()) return nullptr;
    return {{"type", "MultiPolygon"}, {"coordinates", std::move(coordinates)}};
}

Json Feature(const Layer& layer, std::ptrdiff_t region) {
    Json properties = Json::object();
    for (const ResultColumn& column : layer.Rows.Columns)
        properties[column.Name] =
            std::visit([region](const auto& values) { return Json(values(region)); }, column.Values);
    return {{"type", "Feature"},
            {"id", region},
            {"properties", std::move(properties)},
            {"geometry", Geometry(layer, region)}};
}

/// Readers of geographic data take the text of a .prj file as the name of a system.
Json Crs(const std::string& projection) {
    return {{"type", "name"}, {"properties", {{"name", projection}}}};
}

} // namespace

bool HasOwnCrs(const Layer& layer) {
    return !layer.Projection.empty() && !IsGeographic(layer.Projection);
}

std::string GeoJsonText(const Layer& layer) {
    std::string text = "{\n\"type\": \"FeatureCollection\",\n";
    if (HasOwnCrs(layer)) text += "\"crs\": " + Crs(layer.Projection).dump() + ",\n";
    text += "\"features\": [\n";
    for (std::ptrdiff_t region = 1; region <= layer.Rows.RowCount; ++region)
        text += Feature(layer, region).dump() + (region < layer.Rows.RowCount ? ",\n" : "\n");
    return text + "]\n}\n";
}

} // namespace vastrel
