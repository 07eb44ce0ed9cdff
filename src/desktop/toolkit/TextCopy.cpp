#include "desktop/toolkit/TextCopy.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QTableView>

#include <algorithm>

namespace vastrel {

namespace {

QString CellText(const QModelIndex& cell) {
    return cell.data().toString();
}

/// The cells of a selection, row by row; a gap between selected columns is none in the text.
QString SelectedText(const QAbstractItemView& view) {
    QModelIndexList cells = view.selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end());
    QString text;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i > 0) text += cells[i].row() == cells[i - 1].row() ? '\t' : '\n';
        text += CellText(cells[i]);
    }
    return text;
}

QString WholeText(const QAbstractItemView& view) {
    const QAbstractItemModel& model = *view.model();
    QStringList rows;
    const auto addRow = [&](auto&& textOf) {
        QStringList columns;
        for (int column = 0; column < model.columnCount(); ++column)
            columns << textOf(column);
        rows << columns.join('\t');
    };
    if (qobject_cast<const QTableView*>(&view) != nullptr)
        addRow([&](int column) { return model.headerData(column, Qt::Horizontal).toString(); });
    for (int row = 0; row < model.rowCount(); ++row)
        addRow([&](int column) { return CellText(model.index(row, column)); });
    return rows.join('\n');
}

} // namespace

void OfferTextCopy(QAbstractItemView& view) {
    const auto offer = [&view](const char* caption, QString (*textOf)(const QAbstractItemView&)) {
        auto* entry = new QAction(caption, &view);
        QObject::connect(entry, &QAction::triggered, &view, [&view, textOf] {
            const QString text = textOf(view);
            if (!text.isEmpty()) QApplication::clipboard()->setText(text);
        });
        view.addAction(entry);
        return entry;
    };
    auto* copy = offer("&Copy", SelectedText);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    offer("Copy &All", WholeText);
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
}

} // namespace vastrel
