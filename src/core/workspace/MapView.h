#pragma once

namespace vastrel {

/// How far drags of the mouse have moved a map, in pixels: a sum of the finished drags and the live offset of
/// the current or last one. Drawings add both.
struct MapPan {
    double PanDX = 0, PanDY = 0;             // the current or last drag
    double PanSettledX = 0, PanSettledY = 0; // the finished drags
    double PanStartX = 0, PanStartY = 0;     // where the drag began
    bool bPanning = false;                   // from the press of a drag to its release
};

/// Where the map of a shapefile stands on its plot surface, as of the last drawing; the pan stays between
/// drawings.
struct PolygonMapView : MapPan {
    double ViewAspect = 0, ViewFactor = 0;
    double DrawnWidth = 0, DrawnHeight = 0; // the whole extent on the surface, in pixels
    double MapScaleX = 0, MapScaleY = 0;    // pixels per map unit
    double MapShiftX = 0, MapShiftY = 0;    // minus the left and the bottom edge of the extent
    double MapCentreX = 0, MapCentreY = 0;  // pixels; the settled pan included
};

} // namespace vastrel
