#include "core/spatial/ShapeWriter.h"

#include "core/spatial/ByteOrder.h"
#include "core/spatial/CMultiPoint.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/spatial/ShapefileFormat.h"

namespace vastrel {

namespace {

void AppendPoint(std::string& bytes, const CPoint& point) {
    AppendDouble(bytes, point.X);
    AppendDouble(bytes, point.Y);
}

void AppendBox(std::string& bytes, const IShape& shape) {
    for (const double edge : {shape.Left(), shape.Bottom(), shape.Right(), shape.Top()})
        AppendDouble(bytes, edge);
}

template <typename Shape>
std::string PartsContents(ShapeType type, const Shape& shape) {
    std::string bytes, firsts;
    std::int32_t pointCount = 0;
    for (const CPart& part : shape) {
        AppendInteger(firsts, pointCount);
        pointCount += part.Count();
    }
    bytes.reserve(firsts.size() + static_cast<size_t>(PartsPlace + pointCount * PointSize));
    AppendInteger(bytes, type);
    AppendBox(bytes, shape);
    AppendInteger(bytes, shape.Count());
    AppendInteger(bytes, pointCount);
    bytes += firsts;
    for (const CPart& part : shape)
        for (const CPoint& point : part)
            AppendPoint(bytes, point);
    return bytes;
}

} // namespace

std::string RecordContents(const CPoint& point) {
    std::string bytes;
    AppendInteger(bytes, PointType);
    AppendPoint(bytes, point);
    return bytes;
}

std::string RecordContents(const CPolyLine& line) {
    return PartsContents(PolyLineType, line);
}

std::string RecordContents(const CPolygon& polygon) {
    return PartsContents(PolygonType, polygon);
}

std::string RecordContents(const CMultiPoint& points) {
    std::string bytes;
    AppendInteger(bytes, MultiPointType);
    AppendBox(bytes, points);
    AppendInteger(bytes, points.Count());
    for (const CPoint& point : points)
        AppendPoint(bytes, point);
    return bytes;
}

} // namespace vastrel
