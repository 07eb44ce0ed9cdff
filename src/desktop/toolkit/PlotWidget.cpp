#include "desktop/toolkit/PlotWidget.h"

#include "core/platform/ErrorBoundary.h"
#include "core/text/Numbers.h"

#include <QMouseEvent>
#include <QPaintEvent>

#include <cmath>

namespace vastrel {

namespace {

constexpr int FrameWidth = 2;

/// The strokes that are kept for a picture on paper: several maps of the largest dataset over one another.
constexpr size_t MostStrokes = 200000;

int ButtonCode(Qt::MouseButtons buttons) {
    return (buttons & Qt::LeftButton ? 1 : 0) + (buttons & Qt::RightButton ? 2 : 0) +
           (buttons & Qt::MiddleButton ? 4 : 0);
}

} // namespace

PlotWidget::PlotWidget(QWidget* parent) : QFrame(parent) {
    setFrameStyle(Panel | Sunken);
    setLineWidth(FrameWidth);
    setMouseTracking(true);
    Renew();
}

void PlotWidget::FixSize(float width, float height) {
    fixed_ = FramedSurface(width, height);
    setFixedSize(static_cast<int>(std::nearbyint(width / LayoutUnit)),
                 static_cast<int>(std::nearbyint(height / LayoutUnit)));
    resize(minimumSize());
    Renew();
}

SurfaceSize PlotWidget::Size() const {
    if (fixed_) return *fixed_;
    return FramedSurface(static_cast<float>(width() * LayoutUnit), static_cast<float>(height() * LayoutUnit));
}

void PlotWidget::Renew() {
    const QSize inside = (size() - QSize(2 * FrameWidth, 2 * FrameWidth)).expandedTo(QSize(1, 1));
    if (picture_.size() == inside * devicePixelRatioF()) return; // the first show of a fixed size, say
    painter_.reset();
    strokes_.clear();
    picture_ = QImage(inside * devicePixelRatioF(), QImage::Format_RGB32);
    picture_.setDevicePixelRatio(devicePixelRatioF());
    picture_.fill(Qt::white);
}

void PlotWidget::EndPainting() {
    painter_.reset();
}

void PlotWidget::Erase() {
    PaintedSurface::Erase();
    strokes_.clear();
}

void PlotWidget::Paint(const Stroke& stroke) {
    Renew(); // a size whose event is still to come, as while a window is being maximised
    if (!painter_) painter_.emplace(&picture_);
    stroke(*painter_);
    strokes_.push_back(stroke);
    if (strokes_.size() < MostStrokes) return;
    // A long animation paints over and over: what it has come to stands for all that led there.
    EndPainting();
    strokes_ = {[picture = picture_](QPainter& painter) { painter.drawImage(0, 0, picture); }};
}

void PlotWidget::Repeat(QPainter& painter) const {
    for (const Stroke& stroke : strokes_)
        stroke(painter);
}

void PlotWidget::Refresh() {
    EndPainting();
    update();
}

QImage PlotWidget::Picture() {
    EndPainting();
    return picture_;
}

QPoint PlotWidget::Inside() {
    return {FrameWidth, FrameWidth};
}

void PlotWidget::paintEvent(QPaintEvent* event) {
    EndPainting();
    QPainter(this).drawImage(Inside(), picture_);
    QFrame::paintEvent(event);
}

void PlotWidget::resizeEvent(QResizeEvent*) {
    Renew();
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (MouseDown)
        InBoundary([&] { MouseDown(ButtonCode(event->button()), at.x() - FrameWidth, at.y() - FrameWidth); });
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (MouseMove)
        InBoundary(
            [&] { MouseMove(ButtonCode(event->buttons()), at.x() - FrameWidth, at.y() - FrameWidth); });
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (MouseUp)
        InBoundary([&] { MouseUp(ButtonCode(event->button()), at.x() - FrameWidth, at.y() - FrameWidth); });
}

// A double click is press, release, double click, release: its second press is no press.
void PlotWidget::mouseDoubleClickEvent(QMouseEvent*) {
    if (DblClick) InBoundary(DblClick);
}

} // namespace vastrel
