#pragma once

#include <QListView>
#include <QStringListModel>

#include <functional>
#include <string>
#include <vector>

namespace vastrel {

/// A list of text rows, counted from 0. A click of the user or a row set by code fires Click, also on the row
/// that is selected already. Once a row is selected one always is, until the rows go: a click fires with a
/// row.
class ListBox : public QListView {
    Q_OBJECT

public:
    explicit ListBox(QWidget* parent = nullptr);

    std::function<void()> Click;

    void Clear();
    void AddItem(const std::string& row);
    void AddItems(const std::vector<std::string>& rows);
    int ListCount() const { return rows_.rowCount(); }
    std::string List(int row) const;

    /// The selected row; -1 for none.
    int ListIndex() const;

    /// Selects a row and fires Click in the caller's error boundary. A row that does not exist has no effect.
    void SetListIndex(int row);

    /// Brings the rows added by a command that does not yield to the screen, without serving events.
    void RepaintNow();

    /// Pixels of the widest row's text; a row that is wider than the box can be scrolled to its end.
    int WidestRow() const { return widest_; }

    /// The font of all lists of fixed columns: Courier New 9, or its stand-in.
    static QFont FixedFont();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    QStringListModel rows_;
    int widest_ = 0;     // pixels of the widest row's text
    bool quiet_ = false; // a selection that is not the user's by keyboard
};

} // namespace vastrel
