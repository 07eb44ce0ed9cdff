#pragma once

#include "core/display/PlotSurface.h"

namespace vastrel {

/// The sizes with which the maps open and are saved. The polygon window works out its own at each resize
/// (frmPolygonSHP).
inline SurfaceSize PolygonMapSurface() {
    return FramedSurface(5895, 4095);
}
inline SurfaceSize RetroPointSurface() {
    return FramedSurface(5595, 4275);
}
inline SurfaceSize ProspectivePointSurface() {
    return FramedSurface(6400, 4110);
}

/// A polygon map in a file made of pixels is enlarged so many times.
constexpr int PolygonPictureScale = 4;

} // namespace vastrel
