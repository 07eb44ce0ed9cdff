#include "desktop/toolkit/ComboBox.h"

#include "core/platform/ErrorBoundary.h"

#include <QProxyStyle>

namespace vastrel {

namespace {

/// The style of the program, but for the open list: it has a scroll bar where there are many rows, instead of
/// covering the screen with all of them.
class Scrolled : public QProxyStyle {
public:
    Scrolled() : QProxyStyle("fusion") {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QStyle* ScrolledStyle() {
    static auto* const style = new Scrolled; // as long as the process, like the screens
    return style;
}

} // namespace

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent) {
    constexpr int rowsAtOnce = 15;
    setMaxVisibleItems(rowsAtOnce);
    setStyle(ScrolledStyle());
    connect(this, &QComboBox::activated, this, [this] {
        if (Click) InBoundary(Click);
    });
}

void ComboBox::SetListIndex(int index) {
    if (index < 0 || index >= count()) return;
    setCurrentIndex(index);
    if (Click) Click();
}

} // namespace vastrel
