#pragma once

#include "core/display/MapSizes.h"

#include <cmath>
#include <cstdlib>

namespace vastrel {

/// A plot surface that keeps nothing of what is drawn on it. A position that is not finite and a ring without
/// a corner are findings.
class CheckingSurface : public PlotSurface {
public:
    explicit CheckingSurface(const SurfaceSize& size) : size_(size) {}

    SurfaceSize Size() const override { return size_; }
    void Erase() override {}
    void SetLineWidth(int) override {}
    void SetPen(Colour) override {}
    void SetFillStyle(FillStyle) override {}
    void SetFill(Colour) override {}
    void Polygon(const std::vector<PlotPoint>& corners) override {
        if (corners.empty()) std::abort();
    }
    void Circle(double x, double y, double radius, Colour) override { Require({x, y, radius}); }
    void Box(double left, double top, double right, double bottom, Colour) override {
        Require({left, top, right, bottom});
    }
    void Point(double x, double y, Colour) override { Require({x, y}); }
    void Text(double x, double y, const std::string&) override { Require({x, y}); }
    void Refresh() override {}

private:
    static void Require(std::initializer_list<double> numbers) {
        for (const double number : numbers)
            if (!std::isfinite(number)) std::abort();
    }

    SurfaceSize size_;
};

} // namespace vastrel
