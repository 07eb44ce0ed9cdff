#pragma once

#include "core/layer/ResultTable.h"
#include "core/spatial/CPolygon.h"
#include "core/workspace/Collection.h"
#include "core/workspace/Workspace.h"

#include <functional>
#include <string>
#include <vector>

namespace vastrel {

/// Regions with their results and where they lie: what a geographic information system calls a layer.
struct Layer {
    ResultTable Rows; // one a Region, in Region order

    /// The polygons of the Regions, or else the point of each one, counted from 1.
    const Collection<CPolygon>* Polygons = nullptr;
    std::function<PointXY(std::ptrdiff_t region)> PointOf;

    std::string Projection; // the bytes of the dataset's .prj file; empty where there is none
};

/// The vertices of a polygon, and of all polygons of a layer; a layer of points has none.
std::ptrdiff_t VertexCount(const CPolygon& polygon);
std::ptrdiff_t VertexCount(const Layer& layer);

/// Rows with the polygons of the store that they tell of.
Layer PolygonLayer(ResultTable rows);

/// Rows with the points that their columns X and Y tell.
Layer PointLayer(ResultTable rows);

/// A file in memory.
struct FileBytes {
    std::string Path;
    std::string Bytes;
    bool operator==(const FileBytes&) const = default;
};

/// The files of a layer, and what a person should know about them.
struct LayerFiles {
    std::vector<FileBytes> Files;
    std::vector<std::string> Notes;
};

/// Whether a path names a layer by its ending: ".geojson" or ".shp", in letters of any case.
bool IsLayerPath(const std::string& path);

/// What to tell where the format of a path does not hold so many columns; empty where it does.
std::string TooManyLayerColumns(const std::string& path, std::ptrdiff_t columns);

/// All files that a layer of this path may be written to: the path itself, and with ".shp" those of the same
/// name with ".shx", ".dbf", ".cpg" and ".prj".
std::vector<std::string> PathsOfLayer(const std::string& path);

/// The layer as the files of a path that IsLayerPath. A shapefile without projection has no ".prj" among
/// them. Run-time error 9 for more columns than the format holds, 6 for more bytes.
LayerFiles FilesOfLayer(const std::string& path, const Layer& layer);

} // namespace vastrel
