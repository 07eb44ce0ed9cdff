#pragma once

namespace vastrel {

/// How a map zooms. A zoom is added to, never multiplied, and has no bounds: at 0 everything falls on one
/// point, below 0 the map is mirrored through its centre.
struct MapZoomRule {
    double Start;            // at every open of a shapefile, or when the form loads
    double Step;             // one addition of ZoomIn, one subtraction of ZoomOut
    int StepsOnStatisticMap; // how many additions a press makes while a statistic is on show
    int StepsOnOtherMaps;    // and otherwise
    double FullExtent;       // after the whole extent was asked for
};

// clang-format off
inline constexpr MapZoomRule PolygonMapZoom          = {1.0, 0.4,  1, 2, 1.0};
inline constexpr MapZoomRule RetroPointMapZoom       = {1.2, 0.2,  1, 1, 1.2};
inline constexpr MapZoomRule ProspectivePointMapZoom = {1.0, 0.15, 1, 1, 1.0};
// clang-format on

} // namespace vastrel
