#include "pictures/PaintedSurface.h"

#include <QFontDatabase>

#include <cmath>

namespace vastrel {

namespace {

/// The box of a point on a map, at most.
bool IsMark(const QPolygonF& ring) {
    constexpr double widest = 4;
    const QRectF bounds = ring.boundingRect();
    return bounds.width() <= widest && bounds.height() <= widest;
}

/// How far a mark is moved so that all of a kind cover the same pixels: at a scale like 1.5 the centres of
/// logical pixels, one of which is the anchor, fall on different places of a device pixel. Nothing at whole
/// scales.
QPointF ToPixel(const QPainter& painter, const QPointF& anchor) {
    const QTransform toDevice = painter.deviceTransform();
    const QPointF origin = toDevice.map(QPointF(0.5, 0.5));
    const QPointF away = toDevice.map(anchor) - origin;
    const QPointF whole(std::round(away.x()), std::round(away.y()));
    return toDevice.inverted().map(origin + whole) - anchor;
}

} // namespace

QColor ToQColor(Colour colour) {
    return {static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
            static_cast<int>((colour >> 16) & 0xFF)};
}

QFont PaintedSurface::LegendFont() {
    QFont font(QFontDatabase::families().contains("Arial Narrow") ? "Arial Narrow"
                                                                  : "Liberation Sans Narrow");
    font.setStyleHint(QFont::SansSerif);
    // A narrow family is taken as it is; a stand-in is narrowed.
    if (!QFontDatabase::families().contains(font.family())) font.setStretch(QFont::Condensed);
    font.setPixelSize(11); // size 8 at 96 dots to the inch
    return font;
}

QPen PaintedSurface::PenOf(Colour colour) const {
    QPen pen(ToQColor(colour), lineWidth_);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

QBrush PaintedSurface::Brush() const {
    return style_ == FillStyle::Solid ? QBrush(ToQColor(fill_)) : QBrush(Qt::NoBrush);
}

void PaintedSurface::Erase() {
    const SurfaceSize size = Size();
    Paint([inside = QRectF(0, 0, size.ScaleWidth, size.ScaleHeight)](QPainter& painter) {
        painter.fillRect(inside, Qt::white);
    });
}

void PaintedSurface::Polygon(const std::vector<PlotPoint>& corners) {
    QPolygonF ring;
    ring.reserve(static_cast<qsizetype>(corners.size()));
    for (const PlotPoint& corner : corners)
        ring << QPointF(corner.X + 0.5, corner.Y + 0.5); // the centre of the pixel
    Paint([ring, pen = PenOf(pen_), brush = Brush()](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawPolygon(IsMark(ring) ? ring.translated(ToPixel(painter, ring.boundingRect().topLeft()))
                                         : ring,
                            Qt::OddEvenFill);
    });
}

void PaintedSurface::Circle(double x, double y, double radius, Colour colour) {
    Paint([centre = QPointF(x + 0.5, y + 0.5), radius, pen = PenOf(colour),
           brush = Brush()](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawEllipse(centre + ToPixel(painter, centre), radius, radius);
    });
}

void PaintedSurface::Box(double left, double top, double right, double bottom, Colour colour) {
    const QRectF box(QPointF(left + 0.5, top + 0.5), QPointF(right + 0.5, bottom + 0.5));
    Paint([box, pen = PenOf(colour), brush = Brush()](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawRect(box);
    });
}

void PaintedSurface::Point(double x, double y, Colour colour) {
    QPen pen = PenOf(colour);
    pen.setCapStyle(Qt::RoundCap);
    Paint([at = QPointF(x + 0.5, y + 0.5), pen](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(pen);
        painter.drawPoint(at);
    });
}

void PaintedSurface::Text(double x, double y, const std::string& text) {
    // What a printed legend has beside its boxes on the polygon map; a wider text is narrowed to it.
    constexpr double room = 104;
    Paint([x, y, shown = QString::fromStdString(text)](QPainter& painter) {
        painter.setFont(LegendFont());
        painter.setPen(Qt::black);
        const double width = painter.fontMetrics().horizontalAdvance(shown);
        painter.save();
        painter.translate(x, y + painter.fontMetrics().ascent());
        if (width > room) painter.scale(room / width, 1);
        painter.drawText(QPointF(0, 0), shown);
        painter.restore();
    });
}

} // namespace vastrel
