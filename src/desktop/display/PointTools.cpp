#include "desktop/display/PointTools.h"

#include "core/display/Pan.h"
#include "desktop/toolkit/OptionButton.h"

namespace vastrel {

void PointTools::TakeOptions(const QWidget& screen) {
    optZoomIn = screen.findChild<OptionButton*>("optZoomIn");
    optZoomOut = screen.findChild<OptionButton*>("optZoomOut");
    optPan = screen.findChild<OptionButton*>("optPan");
    optFullExtent = screen.findChild<OptionButton*>("optFullExtent");
}

void PointTools::Zoom(double step) {
    map_.View.PointZoom += step;
    redraw_();
}

bool PointTools::Press(double x, double y) {
    if (optZoomIn->Value()) {
        Zoom(zoom_.Step);
    } else if (optZoomOut->Value()) {
        Zoom(-zoom_.Step);
    } else if (optPan->Value()) {
        PressPan(map_.View, x, y);
    } else if (optFullExtent->Value()) {
        map_.View.PointZoom = zoom_.FullExtent;
        DropSettledPan(map_.View);
        redraw_();
    } else {
        return false;
    }
    return true;
}

void PointTools::Move(int button, double x, double y) {
    if (!optPan->Value() || button != LeftButton) return;
    MovePan(map_.View, x, y);
    redraw_();
}

void PointTools::Release() {
    ReleasePan(map_.View);
}

void PointTools::DoubleClick() {
    DropPanOffset(map_.View);
}

} // namespace vastrel
