#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <iostream>

/// Paints the icon at the size that the folder of each file names:
///
///     vastrel-icons ICON.svg 16/ICON.png 48/ICON.png
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    QSvgRenderer drawing(words.value(1));
    for (const QString& file : words.mid(2)) {
        const QDir folder = QFileInfo(file).dir();
        const int size = folder.dirName().toInt();
        QImage picture(size, size, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        if (drawing.isValid() && size > 0 && folder.mkpath(".") && picture.save(file)) continue;
        std::cerr << qPrintable(file) << " cannot be made.\n";
        return 1;
    }
    return 0;
}
