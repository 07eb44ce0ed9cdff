#pragma once

namespace vastrel {

class frmPolygonSHP;

// What the mouse does on the polygon map with the tool that is pressed. Any button of the mouse acts.
// Positions are plot pixels. A flash waits and serves events: a press inside it runs to its end first, and
// the flash goes on with the Region that was selected last; it ends quietly where the window was closed or an
// animation has begun.

void PressOnPolygons(frmPolygonSHP& window, double x, double y);

/// Drags the outlines while the pan tool is held. Then the status line tells the position.
void MoveOnPolygons(frmPolygonSHP& window, double x, double y);

/// Ends a drag, and brings the colours back where the pan tool is pressed. The pan of the last drag is added
/// once more in every tool.
void ReleaseOnPolygons(frmPolygonSHP& window, double x, double y);

void DoubleClickOnPolygons();

} // namespace vastrel
