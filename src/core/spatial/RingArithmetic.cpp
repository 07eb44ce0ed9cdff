#include "core/spatial/RingArithmetic.h"

#include "core/numeric/CheckedDiv.h"
#include "core/text/Numbers.h"

namespace vastrel {

namespace {

/// Twice the signed area of the triangle that the edge from vertex k makes with the origin.
double EdgeTerm(const PointXY& from, const PointXY& to) {
    return to.Y * from.X - from.Y * to.X;
}

} // namespace

double SignedRingArea(const Array1<PointXY>& vertices) {
    double area = 0;
    for (std::ptrdiff_t k = 1; k < vertices.UpperBound(); ++k)
        area += EdgeTerm(vertices(k), vertices(k + 1)) * 0.5;
    return area;
}

PointXY RingCentroid(const Array1<PointXY>& vertices, double area) {
    PointXY centroid;
    for (std::ptrdiff_t k = 1; k < vertices.UpperBound(); ++k) {
        const PointXY &from = vertices(k), &to = vertices(k + 1);
        const double c = -EdgeTerm(from, to);
        centroid.X += CheckedDiv(c * (to.X + from.X), 6 * area, "ComputeCentroids");
        centroid.Y += CheckedDiv(c * (to.Y + from.Y), 6 * area, "ComputeCentroids");
    }
    return centroid;
}

} // namespace vastrel
