#include "core/spatial/PointDistance.h"

#include "core/numeric/CheckedDiv.h"
#include "core/spatial/CPolyLine.h"
#include "core/spatial/CPolygon.h"
#include "core/text/Numbers.h"

#include <cmath>
#include <limits>
#include <vector>

namespace vastrel {

namespace {

double Length(double dx, double dy) {
    return std::sqrt(dy * dy + dx * dx);
}

/// The search over the parts of one shape: the nearest vertex of each part first, then the segments there.
class NearestSearch {
public:
    explicit NearestSearch(const CPoint& from) : from_(from) {}

    template <typename Shape>
    double Over(const Shape& shape) {
        shape.Item(1); // an index error where there is no part
        std::vector<int> nearest;
        for (int p = 1; p <= shape.Count(); ++p)
            nearest.push_back(NearestVertex(shape.Item(p)));
        for (int p = 1; p <= shape.Count(); ++p)
            TrySegments(shape.Item(p), p, nearest[static_cast<size_t>(p - 1)], shape.Count());
        return best_;
    }

private:
    /// The index of the part's vertex that lies nearest, the earlier of equals; 0 for a part without
    /// vertices.
    int NearestVertex(const CPart& part) {
        int nearest = 0;
        double smallest = std::numeric_limits<double>::max();
        for (int k = 1; k <= part.Count(); ++k) {
            const double distance = DistanceToPoint(from_, part.Item(k));
            if (nearest != 0 && distance >= smallest) continue;
            smallest = distance;
            nearest = k;
        }
        if (nearest != 0 && smallest < best_) best_ = smallest;
        return nearest;
    }

    void TrySegments(const CPart& part, int partIndex, int vertex, int partCount) {
        if (vertex == 1) {
            TrySegment(part.Item(1), part.Item(2));
        } else if (vertex == partCount) {
            // Meant so: the count of parts, not of vertices, tells the last vertex, and the running part
            // index addresses it and its predecessor.
            TrySegment(part.Item(partIndex), part.Item(partIndex - 1));
        } else {
            TrySegment(part.Item(vertex), part.Item(vertex - 1));
            TrySegment(part.Item(vertex), part.Item(vertex + 1));
        }
    }

    void TrySegment(const CPoint& a, const CPoint& b) {
        constexpr const char* source = "CPoint::IShape_Distance";
        const double dx = b.X - a.X, dy = b.Y - a.Y;
        const double length = Length(dx, dy);
        const double along = CheckedDiv((from_.X - a.X) * dx + (from_.Y - a.Y) * dy, length, source);
        if (!(along > 0)) return;
        const double footX = along / length * dx, footY = along / length * dy;
        if (!(Length(footX, footY) < length)) return;
        const double distance = Length(from_.X - (a.X + footX), from_.Y - (a.Y + footY));
        if (distance < best_) best_ = distance;
    }

    const CPoint& from_;
    double best_ = std::numeric_limits<double>::max();
};

} // namespace

double DistanceToPoint(const CPoint& from, const CPoint& to) {
    if (from.X == to.X && from.Y == to.Y) return 0;
    return Length(to.X - from.X, to.Y - from.Y);
}

double DistanceToPolyLine(const CPoint& from, const CPolyLine& line) {
    return NearestSearch(from).Over(line);
}

double DistanceToPolygon(const CPoint& from, const CPolygon& polygon) {
    return NearestSearch(from).Over(polygon);
}

} // namespace vastrel
