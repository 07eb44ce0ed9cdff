#pragma once

#include <QWidget>

#include <functional>
#include <vector>

namespace vastrel {

/// The state in which the controls of a form were designed: texts, enabled, shown, selected. It is taken once
/// behind setupUi and put back at every load, so that a screen that was unloaded comes back as new.
class DesignState {
public:
    void Capture(QWidget* form);
    void Restore() const;

private:
    std::vector<std::function<void()>> restore_;
};

} // namespace vastrel
