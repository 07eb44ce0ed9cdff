#include "pictures/PaintedSurface.h"

#include "pictures/PictureFiles.h"

#include <QFontMetrics>
#include <QImage>

#include <set>

#include <gtest/gtest.h>

using namespace vastrel;

TEST(PaintedSurfaceTest, ReadsRedFromTheLowByte) {
    EXPECT_EQ(ToQColor(255), QColor(255, 0, 0));
    EXPECT_EQ(ToQColor(0xFF8080), QColor(128, 128, 255));
    EXPECT_EQ(ToQColor(Colours::Green), QColor(0, 255, 0));
    EXPECT_EQ(ToQColor(Colours::Yellow), QColor(255, 255, 0));
}

TEST(PaintedSurfaceTest, KeepsARangeOfFiveDigitsBesideTheMap) {
    // The legend is 2550 layout units wide, 170 pixels with 2 of frame on each side; texts begin at 400.
    const QFontMetrics metrics(PaintedSurface::LegendFont());
    EXPECT_LE(400 / LayoutUnit + metrics.horizontalAdvance(" -12345.6789   -   -12345.6789"), 170 - 4);
}

// On the polygon map the texts begin at 400 layout units and the map at 1980: 105 pixels.
TEST(PaintedSurfaceTest, NarrowsATextThatIsWiderThanTheRoomBesideThePolygons) {
    const auto lastInk = [](const std::string& text) {
        const std::string png = PngPicture(FramedSurface(3060, 460), 1, [&](PlotSurface& surface) {
            surface.Text(400 / LayoutUnit, 5, text);
        });
        const QImage image = QImage::fromData(QByteArray::fromStdString(png), "PNG");
        int last = -1;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y).lightness() < 128) last = x;
        return last;
    };
    const int wide = lastInk(" -12345.6789   -   -12345.6789");
    EXPECT_LT(wide, 132);
    EXPECT_GT(wide, 120);
    EXPECT_LT(lastInk(" -1.0000   -   0.0000"), 105); // others stay as they are
}

TEST(PaintedSurfaceTest, FillsByTheAlternateRule) {
    // A pentagram: its heart is wound twice and stays empty.
    const std::string png = PngPicture(FramedSurface(1560, 1560), 1, [](PlotSurface& surface) {
        surface.SetFillStyle(FillStyle::Solid);
        surface.SetFill(Colours::Red);
        surface.Polygon({{50, 0}, {79, 90}, {2, 35}, {98, 35}, {21, 90}});
    });
    const QImage image = QImage::fromData(QByteArray::fromStdString(png), "PNG");
    EXPECT_EQ(image.size(), QSize(100, 100));
    EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(50, 20), QColor(255, 0, 0));
}

TEST(PaintedSurfaceTest, WritesPicturesAsFiles) {
    const auto draw = [](PlotSurface& surface) { surface.Text(5, 5, "SIGNAL"); };
    const std::string png = PngPicture(FramedSurface(1560, 1560), 4, draw);
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(png), "PNG").size(), QSize(400, 400));
    const std::string svg = SvgPicture(FramedSurface(1560, 1560), draw);
    EXPECT_NE(svg.find("SIGNAL"), std::string::npos);
}

namespace {

/// A surface on an image of 1.5 pixels to a logical one.
class FineSurface : public PaintedSurface {
public:
    FineSurface() {
        Image.setDevicePixelRatio(1.5);
        Image.fill(Qt::white);
    }
    SurfaceSize Size() const override { return FramedSurface(1560, 1560); }
    void Refresh() override {}

    QImage Image{150, 150, QImage::Format_RGB32};

protected:
    void Paint(const Stroke& stroke) override {
        QPainter painter(&Image);
        stroke(painter);
    }
};

/// What a symbol of a point covers around the pixel that its centre falls on.
std::string Look(const std::function<void(PlotSurface&, int)>& draw, int at) {
    FineSurface surface;
    draw(surface, at);
    std::string look;
    QRect ink;
    for (int y = 0; y < 150; ++y)
        for (int x = 0; x < 150; ++x)
            if (surface.Image.pixelColor(x, y) != QColor(Qt::white)) ink |= QRect(x, y, 1, 1);
    for (int y = ink.top(); y <= ink.bottom(); ++y)
        for (int x = ink.left(); x <= ink.right(); ++x)
            look +=
                std::to_string(surface.Image.pixelColor(x, y).lightness()) + (x == ink.right() ? "\n" : " ");
    return look;
}

} // namespace

TEST(PaintedSurfaceTest, DrawsTheSymbolsOfAClassAlikeAtEveryScale) {
    const auto box = [](PlotSurface& surface, int at) {
        surface.Polygon({{at - 1, at - 1}, {at + 1, at - 1}, {at + 1, at + 1}, {at - 1, at + 1}});
    };
    const auto circle = [](PlotSurface& surface, int at) { surface.Circle(at, at, 4, Colours::Red); };
    std::set<std::string> boxes, circles;
    for (int at = 20; at < 30; ++at) {
        boxes.insert(Look(box, at));
        circles.insert(Look(circle, at));
    }
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_EQ(circles.size(), 1U);
}
