#include "desktop/toolkit/InputGate.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace vastrel {

InputGate::InputGate() {
    turn_.setInterval(0);
    connect(&turn_, &QTimer::timeout, this, [this] {
        if (--turnsLeft_ <= 0) turn_.stop();
    });
    if (qApp != nullptr) qApp->installEventFilter(this);
}

void InputGate::DropPending() {
    // Some event loops fire their timers before they come to the windows' events, in the same turn.
    constexpr int turns = 2;
    turnsLeft_ = turns;
    turn_.start();
}

void InputGate::ServeWithoutInput() {
    DropPending();
    QCoreApplication::processEvents();
    turnsLeft_ = 0;
    turn_.stop();
}

bool InputGate::KeepsOut(QEvent* event) {
    const bool closed = turnsLeft_ > 0;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        dropped_.setFlag(static_cast<QMouseEvent*>(event)->button(), closed);
        return closed;
    case QEvent::MouseButtonRelease: {
        // A release goes the way of its press: a button that is down when the gate closes comes up again.
        const bool drop = dropped_.testFlag(static_cast<QMouseEvent*>(event)->button());
        dropped_.setFlag(static_cast<QMouseEvent*>(event)->button(), false);
        return drop;
    }
    case QEvent::MouseMove:
        return (static_cast<QMouseEvent*>(event)->buttons() & dropped_) != Qt::NoButton;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        return closed;
    default:
        return false;
    }
}

bool InputGate::eventFilter(QObject* receiver, QEvent* event) {
    if (!KeepsOut(event)) return QObject::eventFilter(receiver, event);
    event->ignore();
    return true;
}

} // namespace vastrel
