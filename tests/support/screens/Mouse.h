#pragma once

#include "desktop/toolkit/PlotWidget.h"

#include <QApplication>
#include <QMouseEvent>

namespace vastrel {

/// The mouse over a map, at positions of the plot: they begin two pixels inside the widget's frame.
class Mouse {
public:
    explicit Mouse(PlotWidget& map) : map_(map) {}

    void Press(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
        Send(QEvent::MouseButtonPress, x, y, button, button);
    }
    void Move(double x, double y, Qt::MouseButtons down = Qt::LeftButton) {
        Send(QEvent::MouseMove, x, y, Qt::NoButton, down);
    }
    void Release(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
        Send(QEvent::MouseButtonRelease, x, y, button, Qt::NoButton);
    }
    void Click(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
        Press(x, y, button);
        Release(x, y, button);
    }
    void DoubleClick(double x, double y) {
        Click(x, y);
        Send(QEvent::MouseButtonDblClick, x, y, Qt::LeftButton, Qt::LeftButton);
        Release(x, y);
    }
    /// A whole drag, with a stop on its way.
    void Drag(double x, double y, double dx, double dy, Qt::MouseButton button = Qt::LeftButton) {
        Press(x, y, button);
        Move(x + dx / 2, y + dy / 2, button);
        Move(x + dx, y + dy, button);
        Release(x + dx, y + dy, button);
    }

    static constexpr Qt::MouseButton EachButton[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};

private:
    void Send(QEvent::Type type, double x, double y, Qt::MouseButton button, Qt::MouseButtons down) {
        const QPointF at(x + 2, y + 2);
        QMouseEvent event(type, at, map_.mapToGlobal(at), button, down, Qt::NoModifier);
        QApplication::sendEvent(&map_, &event);
    }

    PlotWidget& map_;
};

} // namespace vastrel
