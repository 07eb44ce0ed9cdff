#pragma once

#include "core/display/PlotSurface.h"

#include <QPainter>

#include <functional>

namespace vastrel {

/// A plot surface over a painter. Whoever derives from it says which device is painted on.
class PaintedSurface : public PlotSurface {
public:
    void Erase() override;
    void SetLineWidth(int pixels) override { lineWidth_ = pixels; }
    void SetPen(Colour colour) override { pen_ = colour; }
    void SetFillStyle(FillStyle style) override { style_ = style; }
    void SetFill(Colour colour) override { fill_ = colour; }
    void Polygon(const std::vector<PlotPoint>& corners) override;
    void Circle(double x, double y, double radius, Colour colour) override;
    void Box(double left, double top, double right, double bottom, Colour colour) override;
    void Point(double x, double y, Colour colour) override;
    void Text(double x, double y, const std::string& text) override;

    /// The narrow font of printed legends, size 8.
    static QFont LegendFont();

protected:
    /// One stroke of a drawing: it knows all that it needs but the painter, in logical pixels, its origin
    /// inside the frame.
    using Stroke = std::function<void(QPainter& painter)>;

    /// Paints a stroke. Whoever keeps it can paint it again.
    virtual void Paint(const Stroke& stroke) = 0;

private:
    QPen PenOf(Colour colour) const;
    QBrush Brush() const;

    int lineWidth_ = 1;
    Colour pen_ = Colours::Black;
    Colour fill_ = Colours::White;
    FillStyle style_ = FillStyle::Transparent;
};

/// A colour of the store in the toolkit's form.
QColor ToQColor(Colour colour);

} // namespace vastrel
