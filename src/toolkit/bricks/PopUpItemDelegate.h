// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemDelegate>

#include "toolkit/bricks/TwoPartText.h"
#include "toolkit/look/Metrics.h"

class QComboBox;

namespace marquell::toolkit {

/// Draws the rows of a popup's list: like those of a menu, with texts of two parts. The choice is
/// Qt::DisplayRole, the subtitle subtitleRole.
class PopUpItemDelegate : public QAbstractItemDelegate {
public:
    static constexpr int subtitleRole = Qt::UserRole + 1;

    explicit PopUpItemDelegate(QComboBox* popup);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    static TwoPartText textOf(const QModelIndex& index);

private:
    const QComboBox* const popup_;
};

}  // namespace marquell::toolkit
