#include "core/display/HitArithmetic.h"

#include "core/numeric/Elementary.h"

#include <cmath>

namespace vastrel {

double SafeAtan2(double y, double x) {
    constexpr double pi = 3.14159265;
    double angle = std::fabs(x) >= 0.0001 ? std::fabs(ArcTangent(y / x)) : pi / 2;
    if (x < 0) angle = pi - angle;
    if (y < 0) angle = -angle;
    return angle;
}

double TurnAngle(const PointXY& a, const PointXY& b, const PointXY& c) {
    const double dot = (a.X - b.X) * (c.X - b.X) + (a.Y - b.Y) * (c.Y - b.Y);
    const double cross = (c.Y - b.Y) * (a.X - b.X) - (c.X - b.X) * (a.Y - b.Y);
    return SafeAtan2(static_cast<float>(cross), static_cast<float>(dot));
}

bool InsidePart(double cx, double cy, std::ptrdiff_t count, const Array1<PointXY>& points) {
    if (count < 1) return false;
    const PointXY click{cx, cy};
    auto sum = static_cast<float>(TurnAngle(points(count), click, points(1)));
    for (std::ptrdiff_t i = 1; i < count; ++i)
        sum = static_cast<float>(sum + TurnAngle(points(i), click, points(i + 1)));
    return std::fabs(sum) > 0.00001F;
}

} // namespace vastrel
