#pragma once

#include "core/spatial/Recordset.h"

#include <QAbstractTableModel>

#include <memory>

namespace vastrel {

/// The rows of an attribute table for a grid. Cells are read from the table as they are painted, so that a
/// large table is shown at once, and the table's current row stays where it is. A null is an empty cell.
/// Every value can be read: a table with one that cannot is not shown.
class AttributeModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows another table; nullptr shows none.
    void Show(std::shared_ptr<Recordset> table);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Cell(int row, int column) const;

    std::shared_ptr<Recordset> table_;
};

} // namespace vastrel
