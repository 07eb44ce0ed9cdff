#pragma once

#include "core/display/SelectCircle.h"
#include "desktop/display/PointTools.h"

#include <functional>

class QLabel;

namespace vastrel {

class ListBox;
class PlotWidget;
struct PointCusum;

/// The mouse on the map of the watch on points: the tools of every point map, the circle that selects points,
/// and the question for the nearest Region. The map does nothing while the list of periods is empty.
class WatchTools {
public:
    /// What the screen does for them.
    struct Actions {
        std::function<void()> Redraw;                          // the points in the period on show
        std::function<void(std::ptrdiff_t region)> ShowRegion; // the Region that was asked for, from 1
    };

    WatchTools(PointMap& map, const Actions& actions);

    /// Finds the controls by their names and connects them; to be called behind setupUi.
    void TakeControls(QWidget& screen, const PointCusum& watch);

    /// Forgets the circle, the selection and the tool tip.
    void Reset();

private:
    void Option_Click();
    void Press(double x, double y);
    void Move(int button, double x, double y);
    void Release(int button, double x, double y);

    bool IsSelecting() const;
    bool Measure(double x, double y);
    void SelectPoints(double x, double y);
    void Identify(double x, double y);

    PointMap& map_;
    Actions actions_;
    PointTools tools_;
    const PointCusum* watch_ = nullptr;

    SelectCircle circle_;
    double selectRadius_ = 0; // map units
    Array1<KeyedValue> pointSelection_;

    OptionButton *optMeasureDistance = nullptr, *optIdentify = nullptr;
    PlotWidget* picPoint = nullptr;
    ListBox* lstPeriod = nullptr;
    QLabel* lblDisplay = nullptr;
};

} // namespace vastrel
