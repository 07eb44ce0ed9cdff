#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace vastrel {

// Clicks and keys that wait in the queue of the program, as those do that a person makes while it computes.

// The event itself comes into being as it is served: two that are made ahead share the position of the later.
inline void PostMouse(QWidget& control, QEvent::Type type) {
    QWidget* window = control.window();
    const QPointF at = control.mapTo(window, control.rect().center());
    const auto send = [handle = window->windowHandle(), at, type] {
        const auto down = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, handle->mapToGlobal(at), Qt::LeftButton, down, {});
        QCoreApplication::sendEvent(handle, &event);
    };
    QMetaObject::invokeMethod(window->windowHandle(), send, Qt::QueuedConnection);
}

inline void PostClick(QWidget& control) {
    PostMouse(control, QEvent::MouseButtonPress);
    PostMouse(control, QEvent::MouseButtonRelease);
}

/// To the control of the window that has the focus.
inline void PostKey(QWidget& window, Qt::Key key, const QString& text) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(window.windowHandle(), new QKeyEvent(type, key, {}, text));
}

/// Serves what waits, and what comes of it.
inline void ServeEvents() {
    for (int turn = 0; turn < 10; ++turn)
        QApplication::processEvents();
}

} // namespace vastrel
