#include "core/spatial/StudyArea.h"

#include "core/numeric/RunProcedure.h"
#include "core/spatial/PlotArea.h"

#include <cmath>
#include <limits>
#include <utility>

namespace vastrel {

float PseudoAngle(PlotPoint from, PlotPoint to) {
    const auto dx = static_cast<float>(static_cast<std::int64_t>(to.X) - from.X);
    const auto dy = static_cast<float>(static_cast<std::int64_t>(to.Y) - from.Y);
    const float size = std::fabs(dx) + std::fabs(dy);
    float t = size == 0 ? 360.0F / 9 : dy / size;
    if (dx < 0)
        t = 2 - t;
    else if (dy < 0)
        t = 4 + t;
    return t * 90;
}

namespace {

/// Brings the lowest point, in a tie the leftmost, to place 1.
void SwapStartToFront(Array1<PlotPoint>& points) {
    std::ptrdiff_t start = 1;
    for (std::ptrdiff_t i = 2; i <= points.UpperBound(); ++i)
        if (std::pair(points(i).Y, points(i).X) < std::pair(points(start).Y, points(start).X)) start = i;
    std::swap(points(1), points(start));
}

} // namespace

std::ptrdiff_t WrapHull(Array1<PlotPoint>& points) {
    const std::ptrdiff_t n = points.UpperBound();
    if (n < 1) return 0;
    SwapStartToFront(points);
    std::ptrdiff_t hull = 1;
    for (float previous = 0;;) {
        float smallest = 360;
        std::ptrdiff_t next = 0;
        for (std::ptrdiff_t i = hull + 1; i <= n; ++i) {
            const float angle = PseudoAngle(points(hull), points(i));
            if (angle >= previous && angle < smallest) {
                smallest = angle;
                next = i;
            }
        }
        const float back = PseudoAngle(points(hull), points(1));
        // The way back closes the hull; where no point was kept there is nowhere else to go.
        if ((back >= previous && back <= smallest) || next == 0) return hull;
        ++hull;
        std::swap(points(hull), points(next));
        previous = smallest;
    }
}

namespace {

double Product32(std::int32_t a, std::int32_t b) {
    const std::int64_t product = static_cast<std::int64_t>(a) * b;
    if (product < std::numeric_limits<std::int32_t>::min() ||
        product > std::numeric_limits<std::int32_t>::max())
        RaiseCustomary(Overflow, "PointStudyArea", "A plotted position is too far out.");
    return static_cast<double>(product);
}

} // namespace

double OpenHullSum(const Array1<PlotPoint>& hull, std::ptrdiff_t count) {
    double sum = 0;
    for (std::ptrdiff_t k = 2; k < count; ++k)
        sum = sum + 0.5 * (Product32(hull(k).X, hull(k + 1).Y) - Product32(hull(k + 1).X, hull(k).Y));
    return sum;
}

void ForgetPlottedPoints() {
    ws.PlottedPoints.Clear();
    ws.ScaleX = ws.ScaleY = 0;
}

double PointStudyArea() {
    if (ws.PlottedPoints.UpperBound() != static_cast<std::ptrdiff_t>(ws.NumTextRegion)) return 0;
    const std::ptrdiff_t hull = WrapHull(ws.PlottedPoints);
    if (hull < 3) return 0;
    const double sum = OpenHullSum(ws.PlottedPoints, hull);
    return RunFunction("PointStudyArea", [sum] { return PlotAreaToMap(sum, ws.ScaleX, ws.ScaleY); });
}

} // namespace vastrel
