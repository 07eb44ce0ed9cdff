#pragma once

#include "core/display/PlotSurface.h"
#include "core/workspace/Workspace.h"

namespace vastrel {

/// A box of map positions.
struct MapBox {
    double Left = 1e300, Bottom = 1e300, Right = -1e300, Top = -1e300;

    void Take(const PointXY& at);
    /// With a margin on each side, as a share of the box.
    MapBox With(double margin) const;
    double Width() const { return Right - Left; }
    double Height() const { return Top - Bottom; }
};

/// Where a map stands on its surface, told in another way than the program's views: the middle of the box
/// comes to the middle of the surface, is moved from there, and one scale serves both directions.
struct PlainView {
    MapBox Box;
    SurfaceSize Surface;
    double Zoom = 1;
    double MovedX = 0, MovedY = 0; // pixels

    double Scale() const; // pixels a map unit
    PointXY Plot(const PointXY& map) const;
    PointXY Map(const PointXY& plot) const;
};

} // namespace vastrel
