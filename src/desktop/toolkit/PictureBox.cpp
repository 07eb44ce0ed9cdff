#include "desktop/toolkit/PictureBox.h"

#include "core/platform/ErrorBoundary.h"
#include "core/platform/Platform.h"

#include <QDir>
#include <QMouseEvent>
#include <QPainter>

namespace vastrel {

PictureBox::PictureBox(QWidget* parent) : QLabel(parent) {
    setAutoFillBackground(false);
}

void PictureBox::LoadPicture(const std::string& fileName) {
    const QDir folder(QString::fromStdString(platform().ProgramFolder()) + "/BitMaps");
    picture_ = fileName.empty() ? QPixmap() : QPixmap(folder.filePath(QString::fromStdString(fileName)));
    update();
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (picture_.isNull()) return;
    const QSize fit = picture_.size().scaled(size(), Qt::KeepAspectRatio);
    const QPixmap scaled =
        picture_.scaled(fit * devicePixelRatioF(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    painter.drawPixmap(QRect(QPoint(0, 0), fit), scaled);
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && Click) InBoundary(Click);
}

} // namespace vastrel
