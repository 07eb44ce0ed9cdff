#include "core/display/Pan.h"

namespace vastrel {

void PressPan(MapPan& pan, double x, double y) {
    pan.bPanning = true;
    pan.PanStartX = x;
    pan.PanStartY = y;
}

void MovePan(MapPan& pan, double x, double y) {
    pan.PanDX = x - pan.PanStartX;
    pan.PanDY = y - pan.PanStartY;
}

void ReleasePan(MapPan& pan) {
    pan.bPanning = false;
    pan.PanSettledX += pan.PanDX;
    pan.PanSettledY += pan.PanDY;
}

void DropPanOffset(MapPan& pan) {
    pan.PanDX = pan.PanDY = 0;
}

void DropSettledPan(MapPan& pan) {
    pan.PanSettledX = pan.PanSettledY = 0;
}

} // namespace vastrel
