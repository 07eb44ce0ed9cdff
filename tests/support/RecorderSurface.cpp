#include "support/RecorderSurface.h"

#include "core/text/Numbers.h"

#include <cstdio>

namespace vastrel {

namespace {

std::string Hex(Colour colour) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%06X", static_cast<unsigned>(colour));
    return text;
}

std::string At(double x, double y) {
    return Num(x, "0.000") + " " + Num(y, "0.000");
}

} // namespace

void RecorderSurface::Erase() {
    operations_ += "erase\n";
}
void RecorderSurface::SetLineWidth(int pixels) {
    operations_ += "width " + std::to_string(pixels) + "\n";
}
void RecorderSurface::SetPen(Colour colour) {
    operations_ += "pen " + Hex(colour) + "\n";
}
void RecorderSurface::SetFillStyle(FillStyle style) {
    operations_ += style == FillStyle::Solid ? "style solid\n" : "style transparent\n";
}
void RecorderSurface::SetFill(Colour colour) {
    operations_ += "fill " + Hex(colour) + "\n";
}

void RecorderSurface::Polygon(const std::vector<PlotPoint>& corners) {
    operations_ += "polygon";
    for (const auto& corner : corners)
        operations_ += " " + std::to_string(corner.X) + "," + std::to_string(corner.Y);
    operations_ += "\n";
}

void RecorderSurface::Circle(double x, double y, double radius, Colour colour) {
    operations_ += "circle " + At(x, y) + " " + Num(radius, "0.000") + " " + Hex(colour) + "\n";
}

void RecorderSurface::Box(double left, double top, double right, double bottom, Colour colour) {
    operations_ += "box " + At(left, top) + " " + At(right, bottom) + " " + Hex(colour) + "\n";
}

void RecorderSurface::Point(double x, double y, Colour colour) {
    operations_ += "point " + At(x, y) + " " + Hex(colour) + "\n";
}

void RecorderSurface::Text(double x, double y, const std::string& text) {
    operations_ += "text " + At(x, y) + " |" + text + "|\n";
}

void RecorderSurface::Refresh() {
    operations_ += "refresh\n";
}

} // namespace vastrel
