#include "support/PlainView.h"

#include <algorithm>

namespace vastrel {

void MapBox::Take(const PointXY& at) {
    Left = std::min(Left, at.X);
    Right = std::max(Right, at.X);
    Bottom = std::min(Bottom, at.Y);
    Top = std::max(Top, at.Y);
}

MapBox MapBox::With(double margin) const {
    return {Left - margin * Width(), Bottom - margin * Height(), Right + margin * Width(),
            Top + margin * Height()};
}

// The longer side of the map takes that side of the surface, times the surface's outer ratio.
double PlainView::Scale() const {
    const double ratio = Surface.Height / Surface.Width;
    const double side =
        Box.Height() < Box.Width() ? Surface.ScaleWidth / Box.Width() : Surface.ScaleHeight / Box.Height();
    return Zoom * ratio * side;
}

PointXY PlainView::Plot(const PointXY& map) const {
    return {Surface.ScaleWidth / 2.0 + MovedX + Scale() * (map.X - (Box.Left + Box.Right) / 2),
            Surface.ScaleHeight / 2.0 + MovedY - Scale() * (map.Y - (Box.Bottom + Box.Top) / 2)};
}

PointXY PlainView::Map(const PointXY& plot) const {
    return {(Box.Left + Box.Right) / 2 + (plot.X - MovedX - Surface.ScaleWidth / 2.0) / Scale(),
            (Box.Bottom + Box.Top) / 2 - (plot.Y - MovedY - Surface.ScaleHeight / 2.0) / Scale()};
}

} // namespace vastrel
