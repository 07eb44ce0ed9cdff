#include "core/spatial/RingNesting.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>

namespace vastrel {

namespace {

constexpr size_t FewestVertices = 4;

struct RingRecord {
    ClosedRing Vertices;
    double Area = 0; // with its sign: positive for a ring that runs counter-clockwise
    double Left = 0, Right = 0, Bottom = 0, Top = 0;
    std::optional<PointXY> Inside;
    std::vector<size_t> Around; // the larger rings that it lies in
};

double TwiceSignedArea(const ClosedRing& ring) {
    const PointXY& origin = ring.front(); // near the ring, so that large coordinates do not cancel
    double area = 0;
    for (size_t k = 0; k + 1 < ring.size(); ++k)
        area += (ring[k].X - origin.X) * (ring[k + 1].Y - origin.Y) -
                (ring[k + 1].X - origin.X) * (ring[k].Y - origin.Y);
    return area;
}

/// Where the ring's edges meet the level y, in rising order. An edge holds its lower end and not its upper.
std::vector<double> Crossings(const ClosedRing& ring, double y) {
    std::vector<double> crossings;
    for (size_t k = 0; k + 1 < ring.size(); ++k) {
        const PointXY &a = ring[k], &b = ring[k + 1];
        if ((a.Y <= y) != (b.Y <= y)) crossings.push_back(a.X + (y - a.Y) / (b.Y - a.Y) * (b.X - a.X));
    }
    std::sort(crossings.begin(), crossings.end());
    return crossings;
}

/// A point well inside a ring: on the level half way between the two vertices that lie farthest apart in y
/// with none between them, in the middle of the widest piece there. None in a ring without an area.
std::optional<PointXY> PointInside(const ClosedRing& ring) {
    std::vector<double> levels;
    for (const PointXY& vertex : ring)
        levels.push_back(vertex.Y);
    std::sort(levels.begin(), levels.end());
    double gap = 0, y = 0;
    for (size_t k = 0; k + 1 < levels.size(); ++k)
        if (levels[k + 1] - levels[k] > gap) {
            gap = levels[k + 1] - levels[k];
            y = levels[k] + gap / 2;
        }
    const auto crossings = Crossings(ring, y);
    std::optional<PointXY> inside;
    double widest = 0;
    for (size_t k = 0; k + 1 < crossings.size(); k += 2)
        if (crossings[k + 1] - crossings[k] > widest) {
            widest = crossings[k + 1] - crossings[k];
            inside = PointXY{crossings[k] + widest / 2, y};
        }
    return inside;
}

bool Encloses(const ClosedRing& ring, const PointXY& point) {
    const auto crossings = Crossings(ring, point.Y);
    const auto after = std::upper_bound(crossings.begin(), crossings.end(), point.X);
    return (after - crossings.begin()) % 2 == 1;
}

RingRecord RecordOf(ClosedRing vertices) {
    RingRecord ring;
    ring.Vertices = std::move(vertices);
    ring.Area = TwiceSignedArea(ring.Vertices) / 2;
    const auto [left, right] =
        std::minmax_element(ring.Vertices.begin(), ring.Vertices.end(),
                            [](const PointXY& a, const PointXY& b) { return a.X < b.X; });
    const auto [bottom, top] =
        std::minmax_element(ring.Vertices.begin(), ring.Vertices.end(),
                            [](const PointXY& a, const PointXY& b) { return a.Y < b.Y; });
    ring.Left = left->X;
    ring.Right = right->X;
    ring.Bottom = bottom->Y;
    ring.Top = top->Y;
    return ring;
}

std::vector<RingRecord> RingsOf(const CPolygon& polygon) {
    std::vector<RingRecord> rings;
    for (const CPart& part : polygon) {
        ClosedRing vertices;
        vertices.reserve(static_cast<size_t>(part.Count()) + 1);
        for (const CPoint& point : part)
            vertices.push_back({point.X, point.Y});
        if (!vertices.empty() && vertices.front() != vertices.back())
            vertices.push_back(PointXY(vertices.front()));
        if (vertices.size() >= FewestVertices) rings.push_back(RecordOf(std::move(vertices)));
    }
    return rings;
}

bool LiesIn(RingRecord& ring, const RingRecord& larger) {
    const bool boxed = larger.Left <= ring.Left && ring.Right <= larger.Right &&
                       larger.Bottom <= ring.Bottom && ring.Top <= larger.Top;
    if (!boxed || std::fabs(larger.Area) <= std::fabs(ring.Area)) return false;
    if (!ring.Inside) ring.Inside = PointInside(ring.Vertices);
    return ring.Inside && Encloses(larger.Vertices, *ring.Inside);
}

/// Finds the rings around each one, in a sweep from left to right over those that reach that far.
void FindRingsAround(std::vector<RingRecord>& rings) {
    std::vector<size_t> order(rings.size()), reaching;
    std::iota(order.begin(), order.end(), size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
        if (rings[a].Left != rings[b].Left) return rings[a].Left < rings[b].Left;
        return std::fabs(rings[a].Area) > std::fabs(rings[b].Area);
    });
    for (const size_t at : order) {
        RingRecord& ring = rings[at];
        std::erase_if(reaching, [&](size_t other) { return rings[other].Right < ring.Left; });
        for (const size_t other : reaching)
            if (LiesIn(ring, rings[other])) ring.Around.push_back(other);
        reaching.push_back(at);
    }
}

bool IsHole(const RingRecord& ring) {
    return ring.Around.size() % 2 == 1;
}

/// The smallest outer ring around a hole; none where the rings cross.
std::optional<size_t> OuterOf(const std::vector<RingRecord>& rings, const RingRecord& hole) {
    std::optional<size_t> found;
    for (const size_t other : hole.Around)
        if (!IsHole(rings[other]) && (!found || std::fabs(rings[other].Area) < std::fabs(rings[*found].Area)))
            found = other;
    return found;
}

ClosedRing Turned(RingRecord& ring, bool counterClockwise) {
    if (ring.Area != 0 && (ring.Area > 0) != counterClockwise)
        std::reverse(ring.Vertices.begin(), ring.Vertices.end());
    return std::move(ring.Vertices);
}

} // namespace

std::vector<NestedRings> NestRings(const CPolygon& polygon) {
    auto rings = RingsOf(polygon);
    FindRingsAround(rings);
    std::vector<NestedRings> nested;
    std::vector<size_t> placeOf(rings.size()); // of an outer ring
    std::vector<std::pair<size_t, size_t>> holes;
    for (size_t k = 0; k < rings.size(); ++k) {
        const auto outer = IsHole(rings[k]) ? OuterOf(rings, rings[k]) : std::nullopt;
        if (outer) {
            holes.emplace_back(k, *outer);
            continue;
        }
        placeOf[k] = nested.size();
        nested.push_back({Turned(rings[k], true), {}});
    }
    for (const auto& [hole, outer] : holes)
        nested[placeOf[outer]].Holes.push_back(Turned(rings[hole], false));
    return nested;
}

} // namespace vastrel
