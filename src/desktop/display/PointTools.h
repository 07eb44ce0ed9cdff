#pragma once

#include "core/display/MapZoom.h"
#include "core/display/PointMap.h"

#include <functional>

class QWidget;

namespace vastrel {

class OptionButton;

/// The tools that both point maps have: zoom, pan, whole extent. Any button of the mouse acts at a press;
/// only the left one drags. How the maps differ stands in their zoom rules, and in the tools of their own.
class PointTools {
public:
    /// `redraw` erases and draws the map as it stands.
    PointTools(PointMap& map, const MapZoomRule& zoom, std::function<void()> redraw)
        : map_(map), zoom_(zoom), redraw_(std::move(redraw)) {}

    /// Finds the option buttons of the tools; to be called behind setupUi.
    void TakeOptions(const QWidget& screen);

    /// True where one of these tools is selected, and has acted.
    bool Press(double x, double y);

    /// The code of the buttons that are down, and the position.
    void Move(int button, double x, double y);

    /// Of any button, in every tool.
    void Release();
    void DoubleClick();

    static constexpr int LeftButton = 1;

private:
    void Zoom(double step);

    PointMap& map_;
    const MapZoomRule& zoom_;
    std::function<void()> redraw_;
    OptionButton *optZoomIn = nullptr, *optZoomOut = nullptr, *optPan = nullptr, *optFullExtent = nullptr;
};

} // namespace vastrel
