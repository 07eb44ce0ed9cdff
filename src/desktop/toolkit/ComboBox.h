#pragma once

#include <QComboBox>

#include <functional>
#include <string>
#include <vector>

namespace vastrel {

/// A combo box that only offers its entries; its text may be empty. Picking an entry fires Click, also the
/// entry that is shown already.
class ComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit ComboBox(QWidget* parent = nullptr);

    std::function<void()> Click;

    void AddItem(const std::string& text) {
        const int shown = currentIndex();
        addItem(QString::fromStdString(text));
        setCurrentIndex(shown); // the first entry would be shown otherwise
    }
    void AddItems(const std::vector<std::string>& texts) {
        for (const auto& text : texts)
            AddItem(text);
    }
    void Clear() { clear(); }
    int ListCount() const { return count(); }
    int ListIndex() const { return currentIndex(); }
    std::string Text() const { return currentText().toStdString(); }
    void EmptyText() { setCurrentIndex(-1); }

    /// Shows an entry without a Click.
    void ShowEntry(int index) { setCurrentIndex(index); }

    /// Picks an entry as the user does; Click runs in the caller's error boundary.
    void SetListIndex(int index);
};

} // namespace vastrel
