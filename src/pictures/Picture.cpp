#include "pictures/Picture.h"

#include "core/platform/ErrorBoundary.h"
#include "core/platform/Platform.h"
#include "core/text/TextFile.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QMenu>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace vastrel {

namespace {

constexpr int PixelsPerInch = 96; // logical ones

void WritePdf(QIODevice& file, const Picture& picture) {
    constexpr double pointsPerPixel = 72.0 / PixelsPerInch;
    QPdfWriter page(&file);
    page.setCreator("Vastrel");
    page.setResolution(PixelsPerInch);
    page.setPageSize(
        QPageSize(QSizeF(picture.Size) * pointsPerPixel, QPageSize::Point, "", QPageSize::ExactMatch));
    page.setPageMargins(QMarginsF());
    picture.Paint(page);
}

void WriteSvg(QIODevice& file, const Picture& picture) {
    QSvgGenerator page;
    page.setOutputDevice(&file);
    page.setResolution(PixelsPerInch);
    page.setSize(picture.Size);
    page.setViewBox(QRect(QPoint(0, 0), picture.Size));
    picture.Paint(page);
}

} // namespace

QImage ImageOf(const Picture& picture) {
    constexpr int enlarged = 2;
    QImage image(picture.Size * enlarged, QImage::Format_RGB32);
    image.setDevicePixelRatio(enlarged);
    image.fill(Qt::white);
    picture.Paint(image);
    return image;
}

std::string PictureBytes(const std::string& format, const Picture& picture) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    if (format == "pdf")
        WritePdf(file, picture);
    else if (format == "svg")
        WriteSvg(file, picture);
    else
        ImageOf(picture).save(&file, "PNG");
    return file.data().toStdString();
}

void CopyPicture(const Picture& picture) {
    QApplication::clipboard()->setImage(ImageOf(picture));
}

void SavePictureAs(const Picture& picture) {
    const FileChoice choice = platform().ChooseFile({FileQuestion::Kind::Save,
                                                     "PNG picture (*.png)|*.png|SVG picture (*.svg)|*.svg|"
                                                     "PDF document (*.pdf)|*.pdf",
                                                     "png"});
    if (choice.Path.empty()) return;
    const QString ending = QString::fromStdString(choice.Title).section('.', -1).toLower();
    const std::string format = ending == "svg" || ending == "pdf" ? ending.toStdString() : "png";
    WriteFile(choice.Path, PictureBytes(format, picture));
}

void AddPictureEntries(QMenu& menu, std::function<Picture()> picture) {
    menu.addAction("&Copy Picture", &menu, [picture] { InBoundary([&] { CopyPicture(picture()); }); });
    menu.addAction("Save &Picture As...", &menu,
                   [picture = std::move(picture)] { InBoundary([&] { SavePictureAs(picture()); }); });
}

} // namespace vastrel
