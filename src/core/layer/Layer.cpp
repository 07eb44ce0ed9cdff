#include "core/layer/Layer.h"

#include "core/layer/DbaseLayer.h"
#include "core/layer/GeoJson.h"
#include "core/layer/LayerShapes.h"
#include "core/platform/NativePath.h"
#include "core/spatial/Projection.h"

#include <algorithm>

namespace vastrel {

namespace {

constexpr const char* GeoJsonEnding = ".geojson";
constexpr const char* ShapeEnding = ".shp";

bool EndsIn(const std::string& path, const std::string& ending) {
    std::string own = PathText(NativePath(path).extension());
    std::transform(own.begin(), own.end(), own.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return own == ending;
}

std::string WithEnding(const std::string& path, const char* ending) {
    return PathText(NativePath(path).replace_extension(ending));
}

LayerFiles GeoJsonFiles(const std::string& path, const Layer& layer) {
    LayerFiles files;
    files.Files.push_back({path, GeoJsonText(layer)});
    if (HasOwnCrs(layer))
        files.Notes.push_back(FileName(path) + ": the coordinates are not longitude and latitude; the "
                                               "layer names their system in the member \"crs\".");
    return files;
}

LayerFiles ShapeFiles(const std::string& path, const Layer& layer) {
    ShapeBytes shapes = BytesOfShapes(layer);
    DbaseBytes table = DbaseTableBytes(layer.Rows);
    LayerFiles files;
    files.Files = {{path, std::move(shapes.Shp)},
                   {WithEnding(path, ".shx"), std::move(shapes.Shx)},
                   {WithEnding(path, ".dbf"), std::move(table.Table)},
                   {WithEnding(path, ".cpg"), "UTF-8"}};
    if (!layer.Projection.empty()) files.Files.push_back({WithEnding(path, ".prj"), layer.Projection});
    if (table.CutTexts > 0)
        files.Notes.push_back(FileName(path) + ": " + std::to_string(table.CutTexts) +
                              " ids are longer than the 254 bytes of a table's field and are cut there.");
    return files;
}

} // namespace

std::ptrdiff_t VertexCount(const CPolygon& polygon) {
    std::ptrdiff_t count = 0;
    for (const CPart& part : polygon)
        count += part.Count();
    return count;
}

std::ptrdiff_t VertexCount(const Layer& layer) {
    std::ptrdiff_t count = 0;
    if (layer.Polygons != nullptr)
        for (const auto& polygon : *layer.Polygons)
            count += VertexCount(*polygon);
    return count;
}

Layer PolygonLayer(ResultTable rows) {
    return {std::move(rows), &ws.ShpPolygons, {}, ProjectionOf(ws.ShapeFilePath)};
}

Layer PointLayer(ResultTable rows) {
    const auto column = [&rows](const std::string& name) {
        const auto at = std::find_if(rows.Columns.begin(), rows.Columns.end(),
                                     [&name](const ResultColumn& one) { return one.Name == name; });
        return std::get<ResultColumn::Numbers>(at->Values);
    };
    const auto pointOf = [x = column("X"), y = column("Y")](std::ptrdiff_t region) {
        return PointXY{x(region), y(region)};
    };
    return {std::move(rows), nullptr, pointOf, ""};
}

bool IsLayerPath(const std::string& path) {
    return EndsIn(path, GeoJsonEnding) || EndsIn(path, ShapeEnding);
}

std::string TooManyLayerColumns(const std::string& path, std::ptrdiff_t columns) {
    if (!EndsIn(path, ShapeEnding) || columns <= DbaseColumnLimit) return "";
    return path + " would have " + std::to_string(columns) + " columns, more than " +
           std::to_string(DbaseColumnLimit) + ". Take a .geojson file or fewer steps.";
}

std::vector<std::string> PathsOfLayer(const std::string& path) {
    std::vector<std::string> paths{path};
    if (EndsIn(path, ShapeEnding))
        for (const char* ending : {".shx", ".dbf", ".cpg", ".prj"})
            paths.push_back(WithEnding(path, ending));
    return paths;
}

LayerFiles FilesOfLayer(const std::string& path, const Layer& layer) {
    return EndsIn(path, ShapeEnding) ? ShapeFiles(path, layer) : GeoJsonFiles(path, layer);
}

} // namespace vastrel
