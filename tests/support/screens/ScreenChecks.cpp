#include "support/screens/ScreenChecks.h"

#include "desktop/toolkit/PlotWidget.h"
#include "pictures/LineChart.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSlider>

#include <gtest/gtest.h>

namespace vastrel {

namespace {

QWidget* Control(QWidget& screen, const char* name) {
    if (screen.objectName() == name) return &screen;
    auto* control = screen.findChild<QWidget*>(name);
    if (control == nullptr) ADD_FAILURE() << name << " does not stand on the screen.";
    return control;
}

QString CaptionOf(const QWidget* control) {
    if (control == nullptr) return {};
    if (auto* group = qobject_cast<const QGroupBox*>(control)) return group->title();
    if (auto* button = qobject_cast<const QAbstractButton*>(control)) return button->text();
    if (auto* label = qobject_cast<const QLabel*>(control)) return label->text();
    if (auto* edit = qobject_cast<const QLineEdit*>(control)) return edit->text();
    if (auto* combo = qobject_cast<const QComboBox*>(control)) return combo->currentText();
    return control->windowTitle();
}

bool IsControl(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QListView*>(widget) != nullptr ||
           qobject_cast<const QSlider*>(widget) != nullptr ||
           qobject_cast<const PlotWidget*>(widget) != nullptr ||
           qobject_cast<const LineChart*>(widget) != nullptr;
}

/// A control of the form, not a part that the toolkit made for one of them.
bool IsNamed(const QWidget* widget) {
    return !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
}

} // namespace

void ExpectCaptions(QWidget& screen, const CaptionTable& table) {
    for (const auto& [name, caption] : table)
        EXPECT_EQ(CaptionOf(Control(screen, name)).toStdString(), caption) << name;
}

void ExpectEnabled(QWidget& screen, const std::vector<const char*>& controls,
                   const std::vector<std::string>& enabled) {
    std::vector<std::string> found;
    for (const char* name : controls)
        if (const auto* control = Control(screen, name); control != nullptr && control->isEnabled())
            found.emplace_back(name);
    EXPECT_EQ(found, enabled);
}

void ExpectTabOrder(QWidget& screen, const std::vector<std::string>& controls) {
    std::vector<std::string> found;
    for (auto* widget = screen.nextInFocusChain(); widget != &screen; widget = widget->nextInFocusChain()) {
        const bool option = qobject_cast<QAbstractButton*>(widget) != nullptr;
        const bool reached = option || (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (reached && screen.isAncestorOf(widget) && IsNamed(widget))
            found.push_back(widget->objectName().toStdString());
    }
    EXPECT_EQ(found, controls);
}

void KeepShot(QWidget& widget, const std::string& name) {
    const QString folder = qEnvironmentVariable("VASTREL_SHOTS");
    if (folder.isEmpty()) return;
    QApplication::processEvents();
    widget.grab().save(folder + "/" + QString::fromStdString(name) + ".png");
}

void ExpectAccessibleNames(QWidget& screen) {
    int controls = 0;
    for (auto* widget : screen.findChildren<QWidget*>()) {
        if (!IsNamed(widget) || !IsControl(widget)) continue;
        ++controls;
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(told, nullptr) << widget->objectName().toStdString();
        EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
    }
    EXPECT_GT(controls, 0);
}

} // namespace vastrel
