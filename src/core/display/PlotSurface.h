#pragma once

#include "core/workspace/Workspace.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vastrel {

/// A colour as the store holds it: blue in the high byte, red in the low byte.
using Colour = std::uint32_t;

namespace Colours {
constexpr Colour Black = 0;
constexpr Colour White = 0xFFFFFF;
constexpr Colour Green = 65280;
constexpr Colour Yellow = 65535;
constexpr Colour Red = 255;
} // namespace Colours

/// Layout units to a logical pixel.
constexpr double LayoutUnit = 15;

/// The sizes of a plot surface, 32-bit floats: outside in layout units, inside in logical pixels.
struct SurfaceSize {
    float Width = 0, Height = 0;
    float ScaleWidth = 0, ScaleHeight = 0;
    bool operator==(const SurfaceSize&) const = default;
};

/// A place on a surface in logical pixels, rounded nowhere.
struct UnroundedPosition {
    double X = 0, Y = 0;
};

/// The sizes of a surface of this outer size, which has a frame of two pixels on each side.
SurfaceSize FramedSurface(float width, float height);

enum class FillStyle { Solid, Transparent };

/// What painters draw on. Coordinates are logical pixels, y downward. Pen, fill and line width stay as they
/// were set last.
class PlotSurface {
public:
    virtual ~PlotSurface() = default;

    virtual SurfaceSize Size() const = 0;
    virtual void Erase() = 0;
    virtual void SetLineWidth(int pixels) = 0;
    virtual void SetPen(Colour colour) = 0;
    virtual void SetFillStyle(FillStyle style) = 0;
    virtual void SetFill(Colour colour) = 0;

    /// Fills (alternate) and outlines the ring through these corners.
    virtual void Polygon(const std::vector<PlotPoint>& corners) = 0;

    /// A circle in a colour of its own, filled by the fill style in force.
    virtual void Circle(double x, double y, double radius, Colour colour) = 0;

    /// A box in a colour of its own, filled by the fill style in force.
    virtual void Box(double left, double top, double right, double bottom, Colour colour) = 0;

    /// A single point as wide as the line width.
    virtual void Point(double x, double y, Colour colour) = 0;

    /// A text of font size 8 in black, its top left corner at (x, y).
    virtual void Text(double x, double y, const std::string& text) = 0;

    /// Brings what was drawn to the screen.
    virtual void Refresh() = 0;
};

} // namespace vastrel
