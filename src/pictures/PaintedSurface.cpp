#include "pictures/PaintedSurface.h"

#include <QFontDatabase>

namespace vastrel {

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
    Painter().fillRect(QRectF(0, 0, size.ScaleWidth, size.ScaleHeight), Qt::white);
}

void PaintedSurface::Polygon(const std::vector<PlotPoint>& corners) {
    QPolygonF ring;
    ring.reserve(static_cast<qsizetype>(corners.size()));
    for (const PlotPoint& corner : corners)
        ring << QPointF(corner.X + 0.5, corner.Y + 0.5); // the centre of the pixel
    QPainter& painter = Painter();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(PenOf(pen_));
    painter.setBrush(Brush());
    painter.drawPolygon(ring, Qt::OddEvenFill);
}

void PaintedSurface::Circle(double x, double y, double radius, Colour colour) {
    QPainter& painter = Painter();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(PenOf(colour));
    painter.setBrush(Brush());
    painter.drawEllipse(QPointF(x + 0.5, y + 0.5), radius, radius);
}

void PaintedSurface::Box(double left, double top, double right, double bottom, Colour colour) {
    QPainter& painter = Painter();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(PenOf(colour));
    painter.setBrush(Brush());
    painter.drawRect(QRectF(QPointF(left + 0.5, top + 0.5), QPointF(right + 0.5, bottom + 0.5)));
}

void PaintedSurface::Point(double x, double y, Colour colour) {
    QPainter& painter = Painter();
    painter.setRenderHint(QPainter::Antialiasing, true);
    QPen pen = PenOf(colour);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawPoint(QPointF(x + 0.5, y + 0.5));
}

void PaintedSurface::Text(double x, double y, const std::string& text) {
    // What a printed legend has beside its boxes on the polygon map; a wider text is narrowed to it.
    constexpr double room = 104;
    QPainter& painter = Painter();
    painter.setFont(LegendFont());
    painter.setPen(Qt::black);
    const QString shown = QString::fromStdString(text);
    const double width = painter.fontMetrics().horizontalAdvance(shown);
    painter.save();
    painter.translate(x, y + painter.fontMetrics().ascent());
    if (width > room) painter.scale(room / width, 1);
    painter.drawText(QPointF(0, 0), shown);
    painter.restore();
}

} // namespace vastrel
