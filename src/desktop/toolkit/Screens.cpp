#include "desktop/toolkit/Screens.h"

#include "core/platform/ErrorBoundary.h"
#include "desktop/toolkit/Screen.h"

#include <QMdiArea>

namespace vastrel {

Screens& screens() {
    static Screens all;
    return all;
}

void Screens::Admit(Screen* screen) {
    if (screen->ScreenKind() != Screen::Kind::Child || frame_.Area == nullptr) return;
    frame_.Show();
    auto* window = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    if (window == nullptr) {
        const QSize design = screen->size();
        window = frame_.Area->addSubWindow(screen);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->setWindowIcon(frame_.Window->windowIcon());
        designSize_[screen] = design + window->sizeHint() - screen->sizeHint(); // with its title bar
    }
    // As new, also where it was moved or maximised before.
    if (window->windowState() != Qt::WindowNoState) window->setWindowState(Qt::WindowNoState);
    window->hide();
    window->setGeometry({{0, 0}, designSize_[screen].expandedTo(window->minimumSizeHint())});
}

void Screens::Activate(QMdiSubWindow* child) {
    if (frame_.Area != nullptr) frame_.Area->setActiveSubWindow(child);
}

void Screens::UnloadChildren() {
    for (Screen* screen : all_)
        if (screen->ScreenKind() == Screen::Kind::Child) screen->Unload();
}

void Screens::OnActivate(Screen* screen, std::function<void()> handler) {
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

QSize Screens::FrameSize() const {
    return frame_.Area != nullptr ? frame_.Area->size() : QSize();
}

QPoint Screens::FramePosition() const {
    return frame_.Area != nullptr ? frame_.Area->mapToGlobal(QPoint(0, 0)) : QPoint();
}

} // namespace vastrel
