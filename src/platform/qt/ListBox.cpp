#include "platform/qt/ListBox.h"

#include "platform/qt/ErrorBoundary.h"

#include <QFontDatabase>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace vastrel {

ListBox::ListBox(QWidget* parent) : QListView(parent) {
    setModel(&rows_);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideNone);
    setFont(FixedFont());
}

QFont ListBox::FixedFont() {
    const auto families = QFontDatabase::families();
    QFont font(families.contains("Courier New") ? "Courier New" : "Liberation Mono", 9);
    font.setStyleHint(QFont::Monospace);
    return font;
}

void ListBox::Clear() {
    const QScopedValueRollback guard(quiet_, true);
    rows_.setStringList({});
}

void ListBox::AddItem(const std::string& row) {
    AddItems({row});
}

void ListBox::AddItems(const std::vector<std::string>& rows) {
    if (rows.empty()) return;
    const QScopedValueRollback guard(quiet_, true);
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
    scrollToBottom();
    executeDelayedItemsLayout();
    viewport()->repaint();
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    {
        const QScopedValueRollback guard(quiet_, true);
        QListView::mousePressEvent(event);
    }
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid() && Click) InBoundary(Click);
}

void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (!quiet_ && current.isValid() && Click) InBoundary(Click);
}

QSize ListBox::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 52, fontMetrics().height() * 8};
}

} // namespace vastrel
