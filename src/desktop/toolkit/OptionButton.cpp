#include "desktop/toolkit/OptionButton.h"

#include "core/platform/ErrorBoundary.h"

#include <QScopedValueRollback>

namespace vastrel {

OptionButton::OptionButton(QWidget* parent) : QRadioButton(parent) {
    connect(this, &QRadioButton::toggled, this, [this](bool selected) {
        if (selected && !byCode_ && Click) InBoundary(Click);
    });
}

void OptionButton::Select() {
    if (isChecked()) return;
    {
        const QScopedValueRollback guard(byCode_, true);
        setChecked(true);
    }
    if (Click) Click();
}

} // namespace vastrel
