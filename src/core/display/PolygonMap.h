#pragma once

#include "core/display/PlotSurface.h"
#include "core/retrospective/RetroVariable.h"

namespace vastrel {

/// What the map window's pictures are made of: the form, on which the legend is printed, the map itself, and
/// the variable that the retrospective screen has chosen.
struct PolygonMap {
    PlotSurface& Form;
    PlotSurface& picSHP;
    RetroVariable Variable;
};

/// Clears what is printed on the form, builds and prints the legend of `classValues` (1..NumRegion), which
/// are sorted by it, and paints the Regions in the classes of `drawValues` (in Region order). MCritical may
/// show its message for an M variable. Run-time error 9 for arrays that are too short.
void ShowRetroMap(const PolygonMap& map, Array1<double>& classValues, const Array1<double>& drawValues);

/// Clears what is printed on the form.
void ClearPrint(const PolygonMap& map);

/// Draws what the mapping flags say: the statistic of DisplayClassValues and DisplayDrawValues, else the
/// cusums of SelectedPeriod, else the outlines.
void RedrawByMode(const PolygonMap& map);

/// Whether the display arrays have as many elements as there are Regions. A window that is resized or comes
/// to the front goes by it: they may stem from another dataset.
bool HasRetroMap();

/// After a resize: the outlines, then the map by mode on top of them; a statistic only with HasRetroMap.
void RedrawResized(const PolygonMap& map);

/// When the window comes to the front: the statistic map where there is one, the outlines where its arrays
/// do not fit, nothing in the other modes.
void RedrawActivated(const PolygonMap& map);

/// Back to the whole extent, without the settled pan; the last drag stays.
void ShowWholeExtent(const PolygonMap& map);

/// Steps the zoom and redraws by mode: one step on a statistic map, two on the others, which are two
/// additions. Zooming out draws the outlines without the settled pan after the first step.
void ZoomIn(const PolygonMap& map);
void ZoomOut(const PolygonMap& map);

/// Draws the outlines, computes the centroids, and marks them. Errors as for ComputeCentroids.
void ShowCentroids(PlotSurface& picSHP);

} // namespace vastrel
