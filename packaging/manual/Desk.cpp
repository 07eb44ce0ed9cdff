#include "Desk.h"

#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/ListBox.h"
#include "desktop/toolkit/PlotWidget.h"
#include "support/screens/Mouse.h"
#include "support/screens/PostedInput.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTimer>

#include <cstdlib>
#include <iostream>

using namespace vastrel;

namespace {

[[noreturn]] void Stop(const QString& why) {
    std::cerr << "vastrel-pictures: " << why.toStdString() << '\n';
    std::_Exit(EXIT_FAILURE);
}

} // namespace

Desk::Desk(const QString& project, const QString& data, const QString& pictures)
    : project_(QDir(project).absolutePath()), data_(data), pictures_(QDir(pictures).absolutePath()),
      frame_(nullptr) {
    QDir().mkpath(data);
    const QDir from(project_ + "/samples");
    for (const QString& file : from.entryList({"*.txt", "*.csm", "country.*"}, QDir::Files)) {
        QFile::remove(data + "/" + file);
        if (!QFile::copy(from.filePath(file), data + "/" + file)) Stop(file + " cannot be copied.");
    }
    SetPlatform(this);
    frame_ = new MDIFrmMain;
    frame_->ShowFrame();
    frame_->showNormal(); // the offscreen desktop is smaller than the frame
    frame_->resize(1280, 860);
}

template <typename Control>
Control& Desk::Find(QWidget& screen, const char* name) const {
    auto* control = screen.findChild<Control*>(name);
    if (control == nullptr) Stop(QString("%1 does not stand on %2").arg(name, screen.objectName()));
    return *control;
}

void Desk::Command(const char* entry) {
    if (!frame_->Entry(entry)->isEnabled()) Stop(QString("%1 is disabled").arg(entry));
    frame_->Entry(entry)->trigger();
}

void Desk::InDialog(QObject& dialog, const std::function<void()>& steps) {
    QTimer::singleShot(0, &dialog, steps);
}

void Desk::Press(QWidget& screen, const char* button) {
    if (auto* action = screen.findChild<QAction*>(button)) return action->trigger();
    Find<QAbstractButton>(screen, button).click();
}

void Desk::Type(QWidget& screen, const char* edit, const QString& text) {
    Find<QLineEdit>(screen, edit).setText(text);
}

void Desk::Pick(QWidget& screen, const char* comboBox, const QString& entry) {
    auto& box = Find<ComboBox>(screen, comboBox);
    const int index = box.findText(entry);
    if (index < 0) Stop(entry + " is not offered by " + comboBox);
    box.SetListIndex(index);
}

void Desk::Row(QWidget& screen, const char* list, const QString& text) {
    auto& rows = Find<ListBox>(screen, list);
    for (int row = 0; row < rows.ListCount(); ++row)
        if (QString::fromStdString(rows.List(row)).contains(text)) return rows.SetListIndex(row);
    Stop(text + " is no row of " + list);
}

void Desk::Drag(QWidget& screen, const char* map, QPoint from, QPoint to) {
    ServeEvents(); // what comes right behind a computation would be dropped
    Mouse(Find<PlotWidget>(screen, map)).Drag(from.x(), from.y(), to.x() - from.x(), to.y() - from.y());
}

void Desk::Keep(QWidget& widget, const QString& name, const QRect& part) {
    QApplication::processEvents();
    const QString file = pictures_ + "/" + name + ".png";
    const QRect whole = part.isNull() ? widget.rect() : part.intersected(widget.rect());
    if (!widget.grab(whole).toImage().convertToFormat(QImage::Format_RGB888).save(file, "PNG", 0))
        Stop(file + " cannot be written.");
}

QRect Desk::Part(QWidget& screen, const char* control) const {
    const auto& part = Find<QWidget>(screen, control);
    constexpr int room = 6;
    return QRect(part.mapTo(&screen, QPoint(0, 0)), part.size()).adjusted(-room, -room, room, room);
}

void Desk::ShowMessage(const Message& message) {
    if (messagePicture_.isEmpty()) Stop(QString::fromStdString("unexpected: " + message.Text));
    QTimer::singleShot(200, frame_, [this] {
        QWidget* box = QApplication::activeModalWidget();
        Keep(*box, messagePicture_);
        messagePicture_.clear();
        box->close();
    });
    QtPlatform::ShowMessage(message);
}

FileChoice Desk::ChooseFile(const FileQuestion&) {
    if (answers_.empty()) Stop("an unexpected file dialog");
    const QString file = answers_.front();
    answers_.pop_front();
    QDir::setCurrent(data_);
    return {(data_ + "/" + file).toStdString(), file.toStdString(), false};
}

void Desk::Yield(long) {
    QApplication::processEvents(); // nobody waits here
}
