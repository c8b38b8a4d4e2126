// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemDelegate>

#include "toolkit/tables/CellStore.h"

namespace marquell::toolkit {

/// Draws the cells of a table.
class CellDelegate : public QAbstractItemDelegate {
public:
    /// The cells have to outlive it.
    CellDelegate(CellStore& cells, QObject* parent);

    /// In points.
    void setTextInset(double textInset) { textInset_ = textInset; }

    /// Where the text of a cell goes that fills `rect`.
    QRect textRect(const QRect& rect, const TableCellView& cell,
                   Qt::LayoutDirection direction) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    CellStore& cells_;
    double textInset_ = 6;
};

}  // namespace marquell::toolkit
