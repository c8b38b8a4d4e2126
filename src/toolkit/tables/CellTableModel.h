// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>

#include "toolkit/tables/CellStore.h"

namespace marquell::toolkit {

/// Tells Qt's view how many rows and columns there are, and assistive programs what the cells say.
class CellTableModel : public QAbstractTableModel {
public:
    /// All three have to outlive the model, which has neither rows nor columns at first.
    CellTableModel(const CellTableSource& source, const std::vector<TableColumn>& columns,
                   const CellStore& cells);

    /// Rows come and go at the end, so what is selected and in view stays by number.
    void setRowCount(int rowCount);
    /// Much quicker for many rows; what is selected and in view is forgotten.
    void resetRowCount(int rowCount);

    /// A cell shows something else than before.
    void tellChange(int row, int column);

    /// Between these two the columns may change, and the number of rows with them. Ends all
    /// selection.
    void beginColumnChange();
    void endColumnChange(int rowCount);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const CellTableSource& source_;
    const std::vector<TableColumn>& columns_;
    const CellStore& cells_;
    int rowCount_ = 0;
    int columnCount_ = 0;
};

}  // namespace marquell::toolkit
