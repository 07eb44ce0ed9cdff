#pragma once

#include "core/display/PlotSurface.h"

namespace vastrel {

/// A plot surface that writes down what is drawn on it, a line an operation.
class RecorderSurface : public PlotSurface {
public:
    explicit RecorderSurface(const SurfaceSize& size) : size_(size) {}

    const std::string& Operations() const { return operations_; }
    void Forget() { operations_.clear(); }

    SurfaceSize Size() const override { return size_; }
    void Erase() override;
    void SetLineWidth(int pixels) override;
    void SetPen(Colour colour) override;
    void SetFillStyle(FillStyle style) override;
    void SetFill(Colour colour) override;
    void Polygon(const std::vector<PlotPoint>& corners) override;
    void Circle(double x, double y, double radius, Colour colour) override;
    void Box(double left, double top, double right, double bottom, Colour colour) override;
    void Point(double x, double y, Colour colour) override;
    void Text(double x, double y, const std::string& text) override;
    void Refresh() override;

private:
    SurfaceSize size_;
    std::string operations_;
};

} // namespace vastrel
