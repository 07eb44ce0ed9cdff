#include "pictures/PictureFiles.h"

#include "core/platform/RunTimeError.h"
#include "pictures/PaintedSurface.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QSvgGenerator>

#include <exception>

namespace vastrel {

namespace {

/// A surface whose picture goes into a file.
class FileSurface : public PaintedSurface {
public:
    FileSurface(QPaintDevice* device, const SurfaceSize& size) : painter_(device), size_(size) {}

    SurfaceSize Size() const override { return size_; }
    void Refresh() override {}

protected:
    void Paint(const Stroke& stroke) override { stroke(painter_); }

private:
    QPainter painter_;
    SurfaceSize size_;
};

std::string Bytes(const QBuffer& buffer) {
    return buffer.data().toStdString();
}

} // namespace

void UsePicturesOffscreen() {
    if (QApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString&) {
        // The toolkit's remarks on a session without a desktop are no messages of the program. What it cannot
        // go on after is too little memory, for its plugins and fonts say; nothing can be caught there.
        if (type == QtFatalMsg) std::terminate();
    });
    static int argc = 1;
    static char name[] = "vastrel-batch";
    static char* argv[] = {name, nullptr};
    static QApplication application(argc, argv);
}

std::string PngPicture(const SurfaceSize& size, int enlarged, const std::function<void(PlotSurface&)>& draw) {
    QImage image(QSize(static_cast<int>(size.ScaleWidth), static_cast<int>(size.ScaleHeight)) * enlarged,
                 QImage::Format_RGB32);
    if (image.isNull() && size.ScaleWidth >= 1 && size.ScaleHeight >= 1)
        RaiseCustomary(OutOfMemory, "PngPicture", "There is no room for the picture.");
    image.setDevicePixelRatio(enlarged);
    image.fill(Qt::white);
    {
        FileSurface surface(&image, size);
        draw(surface);
    }
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    image.save(&file, "PNG");
    return Bytes(file);
}

std::string SvgPicture(const SurfaceSize& size, const std::function<void(PlotSurface&)>& draw) {
    QBuffer file;
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setResolution(96);
    generator.setSize(QSize(static_cast<int>(size.ScaleWidth), static_cast<int>(size.ScaleHeight)));
    generator.setViewBox(QRectF(0, 0, size.ScaleWidth, size.ScaleHeight));
    generator.setTitle("Vastrel map");
    {
        FileSurface surface(&generator, size);
        draw(surface);
    }
    return Bytes(file);
}

} // namespace vastrel
