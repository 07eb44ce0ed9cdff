#include "desktop/toolkit/Screen.h"

#include "core/platform/ErrorBoundary.h"
#include "desktop/toolkit/Screens.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>

namespace vastrel {

Screen::Screen(Kind kind) : kind_(kind), closesByEscape_(kind == Kind::Window) {
    screens().Enlist(this);
}

void Screen::TakeDesign() {
    design_.Capture(this);
}

void Screen::Load() {
    if (loaded_) return;
    loaded_ = begins_ = true;
    design_.Restore();
    screens().Admit(this);
    try {
        Form_Load();
    } catch (...) {
        loaded_ = false; // so that the next show begins anew
        throw;
    }
}

void Screen::Unload() {
    if (!loaded_) return;
    loaded_ = false;
    ++generation_;
    std::exception_ptr fault;
    try {
        Form_Unload();
    } catch (...) {
        fault = std::current_exception();
    }
    screens().Dismiss(this);
    if (fault) std::rethrow_exception(fault);
}

void Screen::Show() {
    Load();
    QWidget* frame = Frame();
    show();
    frame->show();
    frame->raise();
    if (auto* child = qobject_cast<QMdiSubWindow*>(frame))
        screens().Activate(child);
    else
        frame->activateWindow();
    if (auto* first = begins_ ? FirstControl() : nullptr) first->setFocus(Qt::TabFocusReason);
    begins_ = false;
}

QWidget* Screen::FirstControl() {
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        const bool reached = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisibleTo(this);
        const auto* option = qobject_cast<QRadioButton*>(widget);
        const bool passedOver = option != nullptr && !option->isChecked();
        if (isAncestorOf(widget) && reached && widget->isEnabled() && !passedOver) return widget;
    }
    return focusPolicy() == Qt::NoFocus ? nullptr : this;
}

void Screen::ShowModal() {
    setWindowModality(Qt::ApplicationModal);
    const auto modeless = qScopeGuard([this] { setWindowModality(Qt::NonModal); });
    Show();
    QEventLoop loop;
    connect(&screens(), &Screens::Unloaded, &loop, [&](Screen* screen) {
        if (screen == this) loop.quit();
    });
    if (loaded_) loop.exec();
}

QWidget* Screen::Frame() {
    auto* child = qobject_cast<QMdiSubWindow*>(parentWidget());
    return child != nullptr ? static_cast<QWidget*>(child) : this;
}

void Screen::PlaceInFrame(double leftDivisor, double topDivisor) {
    QWidget* frame = Frame();
    frame->adjustSize();
    const QSize room = screens().FrameSize();
    const QSize rest = room - frame->size();
    QPoint at(static_cast<int>(rest.width() / leftDivisor), static_cast<int>(rest.height() / topDivisor));
    if (kind_ == Kind::Window) at += screens().FramePosition();
    frame->move(std::max(0, at.x()), std::max(0, at.y()));
}

void Screen::closeEvent(QCloseEvent* event) {
    event->accept();
    InBoundary([this] { Unload(); });
}

void Screen::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && closesByEscape_) {
        Frame()->close();
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // The button that has the focus, otherwise the default one.
        if (auto* focused = qobject_cast<QPushButton*>(focusWidget())) return focused->click();
        for (auto* button : findChildren<QPushButton*>())
            if (button->isDefault() && button->isEnabled()) return button->click();
    }
    QWidget::keyPressEvent(event);
}

} // namespace vastrel
