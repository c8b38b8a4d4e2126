// SPDX-License-Identifier: GPL-3.0-or-later
#include "toolkit/tables/CellTableModel.h"

#include "toolkit/tables/CellText.h"

namespace marquell::toolkit {

CellTableModel::CellTableModel(const CellTableSource& source,
                               const std::vector<TableColumn>& columns, const CellStore& cells)
    : source_(source), columns_(columns), cells_(cells) {}

void CellTableModel::setRowCount(int rowCount) {
    const int before = rowCount_;
    if (rowCount < before) {
        beginRemoveRows({}, rowCount, before - 1);
        rowCount_ = rowCount;
        endRemoveRows();
    } else if (rowCount > before) {
        beginInsertRows({}, before, rowCount - 1);
        rowCount_ = rowCount;
        endInsertRows();
    }
    if (rowCount_ == 0 || columnCount_ == 0) return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount_ - 1, columnCount_ - 1));
}

void CellTableModel::resetRowCount(int rowCount) {
    beginResetModel();
    rowCount_ = rowCount;
    endResetModel();
}

void CellTableModel::tellChange(int row, int column) {
    Q_EMIT dataChanged(index(row, column), index(row, column));
}

void CellTableModel::beginColumnChange() {
    // Without columns in between the header would keep the order that the old ones were moved to.
    beginResetModel();
    columnCount_ = 0;
    endResetModel();
    beginResetModel();
}

void CellTableModel::endColumnChange(int rowCount) {
    columnCount_ = static_cast<int>(columns_.size());
    rowCount_ = rowCount;
    endResetModel();
}

int CellTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rowCount_;
}

int CellTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCount_;
}

QVariant CellTableModel::data(const QModelIndex& index, int role) const {
    // All else is drawn by the delegate from the cells themselves.
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    return spokenText(*cells_.cellForReading(index.row(), index.column()));
}

Qt::ItemFlags CellTableModel::flags(const QModelIndex& index) const {
    if (source_.isSeparator(index.row())) return Qt::NoItemFlags;
    // Whether there is anything to drag is asked when a drag begins.
    return QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
}

QVariant CellTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return headerText(columns_.at(static_cast<std::size_t>(section)).title);
}

}  // namespace marquell::toolkit
