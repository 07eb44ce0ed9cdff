#include "core/layer/LayerShapes.h"

#include "core/platform/RunTimeError.h"
#include "core/spatial/CRect.h"
#include "core/spatial/ShapeWriter.h"
#include "core/spatial/ShapefileFormat.h"

#include <limits>

namespace vastrel {

namespace {

std::int32_t Words(size_t bytes) {
    if (bytes / 2 > static_cast<size_t>(std::numeric_limits<std::int32_t>::max()))
        RaiseCustomary(Overflow, "BytesOfShapes", "The layer is larger than a shapefile can be.");
    return static_cast<std::int32_t>(bytes / 2);
}

/// A pair that grows by one record after the other; the room of its main headers is filled at the end.
class PairOfRecords {
public:
    explicit PairOfRecords(size_t expectedSize) { records_.reserve(expectedSize); }

    /// `shape` moves the extent, unless it holds nothing.
    void Add(const std::string& contents, const IShape& shape, bool holdsSomething) {
        const std::int32_t length = Words(contents.size());
        index_ += Bytes(RecordHeader{Words(records_.size()), length});
        records_ += Bytes(RecordHeader{++count_, length});
        records_ += contents;
        if (!holdsSomething) return;
        if (isEmpty_)
            extent_.TakeEdges(shape.Left(), shape.Right(), shape.Top(), shape.Bottom());
        else
            extent_.MoveOutwards(shape.Left(), shape.Right(), shape.Top(), shape.Bottom());
        isEmpty_ = false;
    }

    ShapeBytes Pair(ShapeType type) && {
        records_.replace(0, MainHeaderSize, Header(type, records_.size()));
        index_.replace(0, MainHeaderSize, Header(type, index_.size()));
        return {std::move(records_), std::move(index_)};
    }

private:
    std::string Header(ShapeType type, size_t size) const {
        MainHeader header;
        header.FileCode = ShapefileCode;
        header.FileLength = Words(size);
        header.Version = ShapefileVersion;
        header.ShapeType = type;
        header.XMin = extent_.Left();
        header.YMin = extent_.Bottom();
        header.XMax = extent_.Right();
        header.YMax = extent_.Top();
        return Bytes(header);
    }

    std::string records_ = std::string(MainHeaderSize, '\0'), index_ = records_;
    std::int32_t count_ = 0;
    CRect extent_;
    bool isEmpty_ = true;
};

constexpr size_t RoomOfAHead = 64; // of a record of one ring

size_t ExpectedSize(const Layer& layer) {
    return MainHeaderSize + static_cast<size_t>(layer.Rows.RowCount) * RoomOfAHead +
           static_cast<size_t>(VertexCount(layer) * PointSize);
}

} // namespace

ShapeBytes BytesOfShapes(const Layer& layer) {
    PairOfRecords pair(ExpectedSize(layer));
    for (std::ptrdiff_t region = 1; region <= layer.Rows.RowCount; ++region) {
        if (layer.Polygons != nullptr) {
            const CPolygon& polygon = *layer.Polygons->Item(region);
            pair.Add(RecordContents(polygon), polygon, polygon.Count() > 0);
        } else {
            const PointXY at = layer.PointOf(region);
            const CPoint point(at.X, at.Y);
            pair.Add(RecordContents(point), point, true);
        }
    }
    return std::move(pair).Pair(layer.Polygons != nullptr ? PolygonType : PointType);
}

} // namespace vastrel
