#include "core/layer/GeoJson.h"

#include "core/numeric/RowWorkers.h"
#include "core/spatial/Projection.h"
#include "core/spatial/RingNesting.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <vector>

namespace vastrel {

namespace {

using Json = nlohmann::ordered_json;

// Coordinates are most of a layer: they are written as text at once, the rest by the library.

constexpr size_t VertexWidth = 52; // two numbers of 24 characters at the most, and what stands around them

/// The digits of ShortestText.
void Append(std::string& text, const PointXY& point) {
    char vertex[VertexWidth];
    char* at = vertex;
    *at++ = '[';
    at = std::to_chars(at, std::end(vertex), point.X).ptr;
    *at++ = ',';
    at = std::to_chars(at, std::end(vertex), point.Y).ptr;
    *at++ = ']';
    text.append(vertex, at);
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

std::string PointText(const PointXY& point) {
    std::string text = R"({"type":"Point","coordinates":)";
    Append(text, point);
    text += '}';
    return text;
}

std::string PolygonText(const CPolygon& polygon) {
    const auto polygons = NestRings(polygon);
    if (polygons.empty()) return "null";
    std::string text = R"({"type":"MultiPolygon","coordinates":[)";
    text.reserve(text.size() + static_cast<size_t>(VertexCount(polygon)) * VertexWidth);
    for (const NestedRings& rings : polygons) {
        if (&rings != &polygons.front()) text += ',';
        Append(text, rings);
    }
    text += "]}";
    return text;
}

/// The geometry of each Region, counted from 0. Those of polygons are written by all cores.
std::vector<std::string> Geometries(const Layer& layer) {
    constexpr std::ptrdiff_t operationsOfAVertex = 200; // most of them for the digits
    const std::ptrdiff_t regions = layer.Rows.RowCount;
    std::vector<std::string> texts(static_cast<size_t>(regions));
    if (layer.Polygons == nullptr) {
        for (std::ptrdiff_t k = 0; k < regions; ++k)
            texts[static_cast<size_t>(k)] = PointText(layer.PointOf(k + 1));
        return texts;
    }
    const int workers = WorkersFor(VertexCount(layer) * operationsOfAVertex);
    RunRowWorkers(workers, regions, [&](RowRange range) {
        for (std::ptrdiff_t k = range.First; k < range.Last; ++k)
            texts[static_cast<size_t>(k)] = PolygonText(*layer.Polygons->Item(k + 1));
    });
    return texts;
}

size_t Size(const std::vector<std::string>& texts) {
    size_t size = 0;
    for (const std::string& text : texts)
        size += text.size();
    return size;
}

std::string Properties(const Layer& layer, std::ptrdiff_t region) {
    Json properties = Json::object();
    for (const ResultColumn& column : layer.Rows.Columns)
        properties[column.Name] =
            std::visit([region](const auto& values) { return Json(values(region)); }, column.Values);
    return properties.dump();
}

constexpr size_t RoomOfAHead = 300;

std::string FeatureHead(const Layer& layer, std::ptrdiff_t region) {
    return R"({"type":"Feature","id":)" + std::to_string(region) + R"(,"properties":)" +
           Properties(layer, region) + R"(,"geometry":)";
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
    const std::vector<std::string> geometries = Geometries(layer);
    text.reserve(Size(geometries) + static_cast<size_t>(layer.Rows.RowCount) * RoomOfAHead);
    for (std::ptrdiff_t region = 1; region <= layer.Rows.RowCount; ++region) {
        text += FeatureHead(layer, region);
        text += geometries[static_cast<size_t>(region - 1)];
        text += region < layer.Rows.RowCount ? "},\n" : "}\n";
    }
    text += "]\n}\n";
    return text;
}

} // namespace vastrel
