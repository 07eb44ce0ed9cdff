#include "desktop/toolkit/Screens.h"

#include "core/platform/ErrorBoundary.h"
#include "desktop/toolkit/Screen.h"

#include <QApplication>
#include <QFileInfo>
#include <QMdiArea>
#include <QMenu>
#include <QResizeEvent>

namespace vastrel {

Screens& screens() {
    static Screens all;
    return all;
}

void Screens::Admit(Screen* screen) {
    if (frame_.Area == nullptr) return;
    if (screen->ScreenKind() == Screen::Kind::Window) {
        if (screen->parentWidget() != frame_.Window) screen->setParent(frame_.Window, Qt::Dialog);
        return;
    }
    frame_.Show();
    auto* window = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    if (window == nullptr) {
        const QSize design = screen->size();
        window = frame_.Area->addSubWindow(screen);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->setWindowIcon(frame_.Window->windowIcon());
        screen->FillWindowMenu(*window->systemMenu());
        designSize_[screen] = design + window->sizeHint() - screen->sizeHint(); // with its title bar
    }
    // As new, also where it was moved or maximised before.
    if (window->windowState() != Qt::WindowNoState) window->setWindowState(Qt::WindowNoState);
    window->hide();
    const QSize room =
        designSize_[screen].boundedTo(frame_.Area->size()); // lists shrink before there are scroll bars
    window->setGeometry({{0, 0}, room.expandedTo(window->minimumSizeHint())});
}

void Screens::Dismiss(Screen* screen) {
    screen->Frame()->hide();
    if (frame_.Area != nullptr && screen->ScreenKind() == Screen::Kind::Child) {
        // The area counts what is seen only when it is resized.
        QWidget* viewport = frame_.Area->viewport();
        QResizeEvent same(viewport->size(), viewport->size());
        QApplication::sendEvent(viewport, &same);
    }
    emit Unloaded(screen);
}

void Screens::Activate(QMdiSubWindow* child) const {
    if (frame_.Area != nullptr) frame_.Area->setActiveSubWindow(child);
}

void Screens::UnloadChildren() {
    const auto all = all_; // a screen that unloads may be the first to call for another, which is then made
    for (Screen* screen : all)
        if (screen->ScreenKind() == Screen::Kind::Child) screen->Unload();
}

void Screens::OnActivate(Screen* screen, std::function<void()> handler) const {
    connect(frame_.Area, &QMdiArea::subWindowActivated, screen,
            [screen, handler = std::move(handler)](QMdiSubWindow* window) {
                if (window != nullptr && window->widget() == screen) InBoundary(handler);
            });
}

void Screens::EnableEntry(const char* entry, bool enabled) const {
    if (frame_.EnableEntry) frame_.EnableEntry(entry, enabled);
}

void Screens::ShowStatus(const std::string& text) const {
    if (frame_.ShowStatus) frame_.ShowStatus(text);
}

void Screens::ShowDataset(const std::string& path, std::ptrdiff_t count, const char* ofWhat) const {
    const QString name = QFileInfo(QString::fromStdString(path)).fileName();
    const QString text = QString("%1: %2 %3").arg(name).arg(count).arg(ofWhat);
    if (frame_.ShowDataset) frame_.ShowDataset(text.toStdString());
}

QSize Screens::FrameSize() const {
    return frame_.Area != nullptr ? frame_.Area->size() : QSize();
}

QPoint Screens::FramePosition() const {
    return frame_.Area != nullptr ? frame_.Area->mapToGlobal(QPoint(0, 0)) : QPoint();
}

} // namespace vastrel
