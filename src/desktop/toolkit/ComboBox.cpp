#include "desktop/toolkit/ComboBox.h"

#include "core/platform/ErrorBoundary.h"

namespace vastrel {

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent) {
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
