#include "desktop/prospective/WatchTools.h"

#include "core/prospective/PointCusum.h"
#include "core/text/Numbers.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/OptionButton.h"
#include "desktop/toolkit/PlotWidget.h"

#include <QLabel>

namespace vastrel {

namespace {

/// Elements 1..n.
Array1<double> FirstOf(const Array1<double>& values, std::ptrdiff_t n) {
    Array1<double> first(n);
    for (std::ptrdiff_t i = 1; i <= n; ++i)
        first(i) = values(i);
    return first;
}

} // namespace

WatchTools::WatchTools(PointMap& map, const Actions& actions)
    : map_(map), actions_(actions), tools_(map, ProspectivePointMapZoom, actions.Redraw) {}

void WatchTools::TakeControls(QWidget& screen, const PointCusum& watch) {
    watch_ = &watch;
    tools_.TakeOptions(screen);
    optMeasureDistance = screen.findChild<OptionButton*>("optMeasureDistance");
    optIdentify = screen.findChild<OptionButton*>("optIdentify");
    picPoint = screen.findChild<PlotWidget*>("picPoint");
    lstPeriod = screen.findChild<ListBox*>("lstPeriod");
    lblDisplay = screen.findChild<QLabel*>("lblDisplay");

    for (const char* name :
         {"optZoomIn", "optZoomOut", "optPan", "optFullExtent", "optMeasureDistance", "optIdentify"})
        screen.findChild<OptionButton*>(name)->Click = [this] { Option_Click(); };
    picPoint->MouseDown = [this](int, double x, double y) { Press(x, y); };
    picPoint->MouseMove = [this](int button, double x, double y) { Move(button, x, y); };
    picPoint->MouseUp = [this](int button, double x, double y) { Release(button, x, y); };
    picPoint->DblClick = [this] { tools_.DoubleClick(); };
}

void WatchTools::Reset() {
    circle_ = {};
    selectRadius_ = 0;
    pointSelection_.Clear();
    picPoint->setToolTip("");
}

void WatchTools::Option_Click() {
    lblDisplay->setVisible(optIdentify->Value() || optMeasureDistance->Value());
    if (optIdentify->Value()) lblDisplay->clear();
}

bool WatchTools::IsSelecting() const {
    return optMeasureDistance->isEnabled() && optMeasureDistance->Value();
}

void WatchTools::Press(double x, double y) {
    if (lstPeriod->ListCount() == 0 || tools_.Press(x, y)) return;
    if (optMeasureDistance->Value()) {
        circle_.CentreX = x;
        circle_.CentreY = y;
    } else if (optIdentify->Value()) {
        Identify(x, y);
    }
}

void WatchTools::Move(int button, double x, double y) {
    if (lstPeriod->ListCount() == 0 || button != PointTools::LeftButton) return;
    tools_.Move(button, x, y);
    if (optMeasureDistance->Value() && Measure(x, y)) DrawSelectCircle(*picPoint, circle_);
}

void WatchTools::Release(int button, double x, double y) {
    if (lstPeriod->ListCount() == 0) return;
    if (button == PointTools::LeftButton) actions_.Redraw();
    if (IsSelecting()) SelectPoints(x, y);
    tools_.Release();
}

/// Draws the points anew and opens the circle to a position. False where the map has no scale to measure by.
bool WatchTools::Measure(double x, double y) {
    actions_.Redraw();
    if (map_.View.ScaleX == 0) return false;
    circle_ = CircleThrough(circle_.CentreX, circle_.CentreY, x, y);
    selectRadius_ = SelectRadius(map_.View, circle_);
    return true;
}

void WatchTools::SelectPoints(double x, double y) {
    if (!Measure(x, y)) return;
    pointSelection_ = PointSelection(map_.View, circle_, watch_->RegionX, watch_->RegionY, watch_->N);
    map_.DrawSelectedPoints(*picPoint, pointSelection_);
    DrawSelectCircle(*picPoint, circle_);
    lblDisplay->setText(QString::fromStdString("Radius: " + GeneralText(selectRadius_)));
}

/// Only the Regions that are watched are asked: the ids file may have more points than there are z-scores.
void WatchTools::Identify(double x, double y) {
    const std::ptrdiff_t region = NearestPoint(map_.View, x, y, FirstOf(watch_->RegionX, watch_->N),
                                               FirstOf(watch_->RegionY, watch_->N));
    actions_.Redraw();
    actions_.ShowRegion(region);
    const QString label = QString::fromStdString(watch_->RegionIDs(region));
    lblDisplay->setText("Selected Region: " + label);
    picPoint->setToolTip(label);
}

} // namespace vastrel
