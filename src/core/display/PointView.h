#pragma once

#include "core/display/PlotSurface.h"

namespace vastrel {

/// Where the points of a text dataset stand on a plot surface: the data rectangle with its margin, its fit
/// to the surface, and the offsets of zoom and pan. Each point map owns one.
struct PointView : MapPan {
    double DataXMin = 0, DataXMax = 0, DataYMin = 0, DataYMax = 0;
    double MarginX = 0, MarginY = 0; // a twentieth of the range on each side
    double ViewXMin = 0, ViewYMax = 0, ViewWidth = 0, ViewHeight = 0;
    double ViewAspect = 0, ViewFactor = 0;
    double DrawnWidth = 0, DrawnHeight = 0; // the whole view on the surface, in pixels
    double ScaleX = 0, ScaleY = 0;          // pixels per map unit
    double MapShiftX = 0, MapShiftY = 0;    // map units
    double MapCentreX = 0, MapCentreY = 0;  // pixels; the settled pan included
    double PointZoom = 1;

    /// The view has an area; without one nothing is drawn.
    bool IsValid() const { return ViewWidth != 0 && ViewHeight != 0; }
};

/// An unrounded x and a y rounded once, to the nearest whole number, ties to even.
struct PointPosition {
    double X = 0;
    std::int32_t Y = 0;
};

/// Recomputes the view for points x, y (1..n). A single point, points in one line along an axis, or none:
/// the scales keep their old values and IsValid() is false. Otherwise the scales also go to the store.
/// Run-time error 6 for coordinates whose range overflows, 5 for a surface of no width; the view is refused
/// then as well.
void ComputePointView(PointView& view, const SurfaceSize& surface, const Array1<double>& x,
                      const Array1<double>& y);

/// The plot position of a map position. Run-time error 6 outside the 32-bit range.
PointPosition PointToPlot(const PointView& view, double x, double y);

/// Computes the view and stores the rounded position of every point in PlottedPoints: stands for a drawing
/// where there is no map to draw on. PlottedPoints keep what they hold where the view is refused.
void PlotAllPoints(PointView& view, const SurfaceSize& surface, const Array1<double>& x,
                   const Array1<double>& y);

/// The Region nearest to a position on the plot, by Euclidean distance in unrounded pixels; ties go as
/// SortBySecondField leaves them. Run-time error 9 without points.
std::ptrdiff_t NearestPoint(const PointView& view, double plotX, double plotY, const Array1<double>& x,
                            const Array1<double>& y);

} // namespace vastrel
