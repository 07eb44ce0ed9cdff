#include "desktop/spatial/AttributeModel.h"

namespace vastrel {

void AttributeModel::Show(std::shared_ptr<Recordset> table) {
    beginResetModel();
    table_ = std::move(table);
    endResetModel();
}

int AttributeModel::rowCount(const QModelIndex& parent) const {
    return table_ && !parent.isValid() ? table_->RecordCount() : 0;
}

int AttributeModel::columnCount(const QModelIndex& parent) const {
    return table_ && !parent.isValid() ? table_->FieldCount() : 0;
}

QString AttributeModel::Cell(int row, int column) const {
    const FieldValue value = table_->ValueAt(row, column);
    return value.IsNull() ? QString() : QString::fromStdString(value.Text());
}

QVariant AttributeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole) return Cell(index.row(), index.column());
    if (role == Qt::TextAlignmentRole && IsNumberType(table_->Fields(index.column()).Type()))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant AttributeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || !table_) return {};
    if (orientation == Qt::Vertical) return QStringLiteral("Polygon");
    return QString::fromStdString(table_->Fields(section).Name());
}

} // namespace vastrel
