#pragma once

#include <QRadioButton>

#include <functional>

namespace vastrel {

/// One of a group of exclusive choices. Click fires when it changes to selected, by the user or by code, and
/// at no other time; what is selected at design fires nothing.
class OptionButton : public QRadioButton {
    Q_OBJECT

public:
    explicit OptionButton(QWidget* parent = nullptr);

    std::function<void()> Click;

    bool Value() const { return isChecked(); }

    /// Selects the option; Click runs in the caller's error boundary.
    void Select();

private:
    bool byCode_ = false;
};

} // namespace vastrel
