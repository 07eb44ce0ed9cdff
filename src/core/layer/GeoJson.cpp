#include "core/layer/GeoJson.h"

#include "core/spatial/Projection.h"
#include "core/spatial/RingNesting.h"
#include "core/text/Numbers.h"

#include <nlohmann/json.hpp>

namespace vastrel {

namespace {

using Json = nlohmann::ordered_json;

// Coordinates are most of a layer: they are written as text at once, the rest by the library.

void Append(std::string& text, const PointXY& point) {
    text += '[' + ShortestText(point.X) + ',' + ShortestText(point.Y) + ']';
}

void Append(std::string& text, const ClosedRing& ring) {
    text += '[';
    for (const PointXY& vertex : ring) {
        if (&vertex != &ring.front()) text += ',';
        Append(text, vertex);
    }
    text += ']';
}

void Append(std::string& text, const NestedRings& rings) {
    text += '[';
    Append(text, rings.Outer);
    for (const ClosedRing& hole : rings.Holes) {
        text += ',';
        Append(text, hole);
    }
    text += ']';
}

void AppendGeometry(std::string& text, const Layer& layer, std::ptrdiff_t region) {
    if (layer.Polygons == nullptr) {
        text += "{\"type\":\"Point\",\"coordinates\":";
        Append(text, layer.PointOf(region));
        text += '}';
        return;
    }
    const auto polygons = NestRings(*layer.Polygons->Item(region));
    if (polygons.empty()) {
        text += "null";
        return;
    }
    text += "{\"type\":\"MultiPolygon\",\"coordinates\":[";
    for (const NestedRings& rings : polygons) {
        if (&rings != &polygons.front()) text += ',';
        Append(text, rings);
    }
    text += "]}";
}

std::string Properties(const Layer& layer, std::ptrdiff_t region) {
    Json properties = Json::object();
    for (const ResultColumn& column : layer.Rows.Columns)
        properties[column.Name] =
            std::visit([region](const auto& values) { return Json(values(region)); }, column.Values);
    return properties.dump();
}

void AppendFeature(std::string& text, const Layer& layer, std::ptrdiff_t region) {
    text += "{\"type\":\"Feature\",\"id\":" + std::to_string(region) +
            ",\"properties\":" + Properties(layer, region) + ",\"geometry\":";
    AppendGeometry(text, layer, region);
    text += '}';
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
    for (std::ptrdiff_t region = 1; region <= layer.Rows.RowCount; ++region) {
        AppendFeature(text, layer, region);
        text += region < layer.Rows.RowCount ? ",\n" : "\n";
    }
    text += "]\n}\n";
    return text;
}

} // namespace vastrel
