#pragma once

#include "core/workspace/MapView.h"

namespace vastrel {

// What the mouse does to the pan of a map, polygons or points. Positions are plot pixels.

/// The press of a drag.
void PressPan(MapPan& pan, double x, double y);

/// A move while the drag lasts: the live offset follows the mouse.
void MovePan(MapPan& pan, double x, double y);

/// A release, of any button and in every tool: the offset goes into the settled sum. It is not cleared, so
/// that the next drawing moves the map by the last drag a second time, and each further release adds it once
/// more until a double click; meant so.
void ReleasePan(MapPan& pan);

/// A double click: the offset is forgotten, the settled sum stays.
void DropPanOffset(MapPan& pan);

/// The whole extent was asked for: the settled sum is forgotten, the offset stays.
void DropSettledPan(MapPan& pan);

} // namespace vastrel
