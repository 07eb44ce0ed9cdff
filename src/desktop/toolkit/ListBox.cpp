#include "desktop/toolkit/ListBox.h"

#include "core/platform/ErrorBoundary.h"
#include "desktop/toolkit/TextCopy.h"

#include <QFontDatabase>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace vastrel {

namespace {

/// Makes every row as wide as the widest: a list of uniform rows takes the size of its first one for all.
class RowsOfOneWidth : public QStyledItemDelegate {
public:
    explicit RowsOfOneWidth(ListBox* list) : QStyledItemDelegate(list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        constexpr int margins = 8;
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return {list_->WidestRow() + margins, size.height()};
    }

private:
    ListBox* list_;
};

} // namespace

ListBox::ListBox(QWidget* parent) : QListView(parent) {
    setModel(&rows_);
    setUniformItemSizes(true);
    setItemDelegate(new RowsOfOneWidth(this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideNone);
    setFont(FixedFont());
    OfferTextCopy(*this);
}

QFont ListBox::FixedFont() {
    const auto families = QFontDatabase::families();
    QFont font(families.contains("Courier New") ? "Courier New" : "Liberation Mono", 9);
    font.setStyleHint(QFont::Monospace);
    return font;
}

void ListBox::Clear() {
    const QScopedValueRollback guard(quiet_, true);
    widest_ = 0;
    rows_.setStringList({});
    scrollToTop();
}

void ListBox::AddItem(const std::string& row) {
    AddItems({row});
}

void ListBox::AddItems(const std::vector<std::string>& rows) {
    if (rows.empty()) return;
    const QScopedValueRollback guard(quiet_, true);
    for (const auto& row : rows)
        widest_ = std::max(widest_, fontMetrics().horizontalAdvance(QString::fromStdString(row)));
    if (rows_.rowCount() == 0) { // the quick way for whole lists
        QStringList list;
        for (const auto& row : rows)
            list << QString::fromStdString(row);
        rows_.setStringList(list);
        return;
    }
    for (const auto& row : rows) {
        const int at = rows_.rowCount();
        rows_.insertRow(at);
        rows_.setData(rows_.index(at), QString::fromStdString(row));
    }
}

std::string ListBox::List(int row) const {
    return rows_.data(rows_.index(row)).toString().toStdString();
}

int ListBox::ListIndex() const {
    return selectionModel()->hasSelection() && currentIndex().isValid() ? currentIndex().row() : -1;
}

void ListBox::SetListIndex(int row) {
    if (row < 0 || row >= ListCount()) return;
    {
        const QScopedValueRollback guard(quiet_, true);
        setCurrentIndex(rows_.index(row));
        scrollTo(rows_.index(row));
    }
    if (Click) Click();
}

void ListBox::RepaintNow() {
    executeDelayedItemsLayout();
    viewport()->repaint();
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore(); // no other button selects
    {
        const QScopedValueRollback guard(quiet_, true);
        QListView::mousePressEvent(event);
    }
    if (indexAt(event->pos()).isValid() && Click) InBoundary(Click);
}

// Only the left button drags the selection along.
void ListBox::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::LeftButton) QListView::mouseMoveEvent(event);
}

// Coming here by the keyboard is no choice of a row: the toolkit would make the first one current.
void ListBox::focusInEvent(QFocusEvent* event) {
    const QScopedValueRollback guard(quiet_, true);
    QListView::focusInEvent(event);
    if (!selectionModel()->hasSelection()) selectionModel()->clearCurrentIndex();
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index, const QEvent*) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (!quiet_ && current.isValid() && Click) InBoundary(Click);
}

QSize ListBox::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 52, fontMetrics().height() * 8};
}

/// Where the room is short a list shrinks to its title rows and one more, before anything has to be scrolled.
QSize ListBox::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().height() * 4};
}

} // namespace vastrel
