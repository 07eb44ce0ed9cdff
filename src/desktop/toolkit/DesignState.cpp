#include "desktop/toolkit/DesignState.h"

#include "desktop/toolkit/ComboBox.h"
#include "desktop/toolkit/ListBox.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolBar>

namespace vastrel {

namespace {

/// How to put one control back; nothing for widgets without a state of their own.
std::function<void()> RestoreOf(QWidget* widget) {
    if (auto* edit = qobject_cast<QLineEdit*>(widget))
        return [edit, text = edit->text()] { edit->setText(text); };
    if (auto* label = qobject_cast<QLabel*>(widget))
        return [label, text = label->text()] {
            if (label->pixmap(Qt::ReturnByValue).isNull() || !text.isEmpty()) label->setText(text);
        };
    if (auto* list = qobject_cast<ListBox*>(widget)) return [list] { list->Clear(); };
    if (auto* combo = qobject_cast<ComboBox*>(widget)) return [combo] { combo->Clear(); };
    if (auto* slider = qobject_cast<QSlider*>(widget)) return [slider] { slider->setValue(0); };
    if (auto* button = qobject_cast<QAbstractButton*>(widget); button != nullptr && button->isCheckable())
        return [button, checked = button->isChecked()] {
            const bool exclusive = button->autoExclusive();
            button->setAutoExclusive(false); // so that a group may stand without a choice again
            button->setChecked(checked);
            button->setAutoExclusive(exclusive);
        };
    return {};
}

} // namespace

void DesignState::Capture(QWidget* form) {
    restore_.clear();
    for (auto* widget : form->findChildren<QWidget*>()) {
        if (widget->isWindow() || qobject_cast<QToolBar*>(widget->parentWidget()) != nullptr) continue;
        const bool enabled = widget->isEnabledTo(widget->parentWidget());
        const bool hidden = widget->testAttribute(Qt::WA_WState_ExplicitShowHide) && widget->isHidden();
        restore_.emplace_back([widget, enabled, hidden, state = RestoreOf(widget)] {
            const QSignalBlocker silent(widget);
            widget->setEnabled(enabled);
            if (widget->isHidden() != hidden && !widget->objectName().startsWith("qt_"))
                widget->setHidden(hidden);
            if (state) state();
        });
    }
}

void DesignState::Restore() const {
    for (const auto& restore : restore_)
        restore();
}

} // namespace vastrel
