#pragma once

#include <QImage>
#include <QSize>

#include <functional>
#include <string>

class QMenu;
class QPaintDevice;

namespace vastrel {

/// What can be copied or saved of a chart or of a map: its size in logical pixels, and how it is painted on a
/// device of that size.
struct Picture {
    QSize Size;
    std::function<void(QPaintDevice&)> Paint;
};

/// The picture in twice its size, as the clipboard takes it.
QImage ImageOf(const Picture& picture);

/// The bytes of the picture's file: "png" (in twice its size), "svg" or "pdf".
std::string PictureBytes(const std::string& format, const Picture& picture);

void CopyPicture(const Picture& picture);

/// Asks for a file, whose extension tells the format. Run-time error 75 where it cannot be written.
void SavePictureAs(const Picture& picture);

/// Adds "Copy Picture" and "Save Picture As..." to a menu; the picture is taken when an entry is chosen.
void AddPictureEntries(QMenu& menu, std::function<Picture()> picture);

} // namespace vastrel
